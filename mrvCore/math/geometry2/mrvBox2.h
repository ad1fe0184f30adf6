// mrvCore/math/geometry2/mrvBox2.h
// A turned rectangle of the plane.
#pragma once

#include "mrvCore/math/types/mrvQuadrant.h"
#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// A rectangle that stands on one corner, `_translation`, and is turned about it counterclockwise.
///
/// The cosine and the sine of the rotation are kept beside it; setRotation() sets all three.
class MRV_CORE_API Box2
{
public:
    Box2() = default;
    Box2(const Vector2& size, const Vector2& translation, Angle rotation);

    const Vector2& getSize() const { return _size; }
    void setSize(const Vector2& size) { _size = size; }
    const Vector2& getTranslation() const { return _translation; }
    void setTranslation(const Vector2& translation) { _translation = translation; }
    Angle getRotation() const { return _rotation; }
    void setRotation(Angle rotation);
    float getCosRotation() const { return _cosRotation; }
    float getSinRotation() const { return _sinRotation; }

    /// The sides that leave the corner: the one turned from x, and the one to its left.
    Vector2 getUVector() const { return Vector2(_cosRotation, _sinRotation) * _size.x; }
    Vector2 getVVector() const { return Vector2(-_sinRotation, _cosRotation) * _size.y; }
    /// A corner before the turn has its name; a value that is no quadrant is logged and gives SW.
    Vector2 getVertex(Quadrant::Value quadrant) const;
    /// The point at the fractions u and v of the sides; (0, 0) is SW and (1, 1) is NE.
    Vector2 getPositionFromUV(float u, float v) const
    {
        return _translation + u * getUVector() + v * getVVector();
    }

private:
    float _cosRotation = 1.0f;
    float _sinRotation = 0.0f;
    Vector2 _size;
    Vector2 _translation;
    Angle _rotation = 0.0f;
};

} // namespace mrv
