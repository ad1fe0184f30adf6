// mrvCore/math/geometry3/mrvAxisAlignedBox3.h
// A box along the axes.
#pragma once

#include "mrvCore/math/geometry3/mrvVolume.h"

#include <iosfwd>

namespace mrv {

class ClassifiedRay3;
class RandomNumberGenerator;

/// Two corners, and whether there is anything between them.
class MRV_CORE_API AxisAlignedBox3 : public Volume
{
public:
    /// Empty, with both corners at the origin.
    AxisAlignedBox3() = default;
    /// Corners as given; see validate().
    AxisAlignedBox3(const Vector3& min, const Vector3& max) : _min(min), _max(max) { validate(); }

    /// Strictly inside the box grown by the tolerance on all sides. An empty box contains nothing.
    bool contains(const Vector3& point, float tolerance) const override;
    /// The corners, also of an empty box.
    void retrieveBoundingBox(Vector3& min, Vector3& max) const override;
    AxisAlignedBox3* clone() const override;

    bool isEmpty() const { return _empty; }
    const Vector3& getMin() const { return _min; }
    const Vector3& getMax() const { return _max; }
    /// Each validates the box.
    void setMin(const Vector3& min) { setMinMax(min, _max); }
    void setMax(const Vector3& max) { setMinMax(_min, max); }
    void setMinMax(const Vector3& min, const Vector3& max);

    /// Swaps the corners on each axis where they are in the wrong order; the box stays empty if it was.
    void makeValid();
    /// Finds out whether the box is empty: crossed on some axis, or a single point.
    void validate();

    Vector3 getDelta() const { return _max - _min; }
    float getDeltaX() const { return _max.x - _min.x; }
    float getDeltaY() const { return _max.y - _min.y; }
    float getDeltaZ() const { return _max.z - _min.z; }
    Vector3 getCenter() const { return (_min + _max) * 0.5f; }
    float getVolume() const { return getDeltaX() * getDeltaY() * getDeltaZ(); }

    /// What both have in common, validated; empty if one of them is.
    AxisAlignedBox3 operator*(const AxisAlignedBox3& other) const;
    /// The box around both.
    AxisAlignedBox3 operator+(const AxisAlignedBox3& other) const;

    /// True if the ray meets the box, or starts in it or at most 1e-5 outside.
    bool intersect(const ClassifiedRay3& ray) const;
    /// The same with the parameter where the ray enters, 0 for a start inside.
    bool intersect(const ClassifiedRay3& ray, float& t) const;

    /// Moves the box.
    void translate(const Vector3& offset);

    /// Equal corners; all empty boxes are equal.
    bool operator==(const AxisAlignedBox3& other) const;
    bool operator!=(const AxisAlignedBox3& other) const { return !(*this == other); }

    /// Uniform; draws x, then y, then z.
    Vector3 randomPoint(RandomNumberGenerator& rng) const;

protected:
    Vector3 _min;
    Vector3 _max;
    bool _empty = true;
};

/// Writes "[(x,y,z),(x,y,z)]", lower corner first, or "[]" for an empty box.
MRV_CORE_API std::ostream& operator<<(std::ostream& stream, const AxisAlignedBox3& box);

} // namespace mrv
