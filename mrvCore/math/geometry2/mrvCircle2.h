// mrvCore/math/geometry2/mrvCircle2.h
// A disc of the plane.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class RandomNumberGenerator;

/// Centre and squared radius.
class MRV_CORE_API Circle2
{
public:
    Circle2() = default;
    /// Around the origin; with `isSquared` the value is the square of the radius, here and below.
    Circle2(float radius, bool isSquared) : Circle2(Vector2(), radius, isSquared) {}
    Circle2(const Vector2& center, float radius, bool isSquared)
        : _center(center)
        , _radius2(isSquared ? radius : radius * radius)
    {}

    float getRadius() const { return __builtin_sqrtf(_radius2); }
    void setRadius(float radius) { _radius2 = radius * radius; }
    float getRadius2() const { return _radius2; }
    void setRadius2(float radius2) { _radius2 = radius2; }

    /// Uniform over the disc; draws the distance, then the angle.
    Vector2 randomPoint(RandomNumberGenerator& rng) const;

    Vector2 _center;
    float _radius2 = 0.0f;
};

/// Where the two tangents through the point touch the circle, the first to the left as seen from the
/// centre. False, and nothing written, for a point in the circle or at most 1e-5 outside.
MRV_CORE_API bool circleTangents(const Circle2& circle, const Vector2& point, Vector2& tangent1,
                                 Vector2& tangent2);

} // namespace mrv
