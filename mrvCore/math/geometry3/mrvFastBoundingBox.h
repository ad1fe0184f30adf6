// mrvCore/math/geometry3/mrvFastBoundingBox.h
// Axis-aligned box for the inner loops of large scenes.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class ClassifiedRay3;

/// Two corners and a flag, without a virtual table. An empty box has its corners crossed over, so that
/// growing and joining need no branch for it.
///
/// `_empty` is a hint that growing does not touch: while it is set the corners decide. operator+,
/// distance2() and intersect() clear it in a box that is not empty, also in a const one.
/// Threads: a box may be shared for reading once its hint is settled.
class MRV_CORE_API FastBoundingBox
{
public:
    FastBoundingBox() { clear(); }
    FastBoundingBox(const Vector3& min, const Vector3& max) : _min(min), _max(max), _empty(true) { settle(); }

    void clear();
    bool isEmpty() const { return _empty && areCornersCrossed(); }

    /// Grows to take the point in; a component that is no number changes nothing.
    void update(const Vector3& point)
    {
        _min.minSelf(point);
        _max.maxSelf(point);
    }
    /// The box around both.
    FastBoundingBox operator+(const FastBoundingBox& other) const;
    /// Equal corners; all empty boxes are equal.
    bool operator==(const FastBoundingBox& other) const;
    bool operator!=(const FastBoundingBox& other) const { return !(*this == other); }

    /// Length of the sides, null for an empty box.
    Vector3 getDelta() const { return isEmpty() ? Vector3() : _max - _min; }
    /// Null for an empty box.
    Vector3 getCenter() const { return isEmpty() ? Vector3() : (_min + _max) * 0.5f; }
    float getVolume() const;

    /// Strictly inside the box grown by the tolerance on all sides. An empty box contains nothing.
    bool contains(const Vector3& point, float tolerance) const;

    /// True unless a gap wider than the tolerance parts the boxes on some axis. Symmetric.
    static bool areColliding(const FastBoundingBox& a, const FastBoundingBox& b, float tolerance);
    /// Square of the distance between the boxes, 0 where they meet; an empty one counts as a point at the
    /// origin. Symmetric.
    static float distance2(const FastBoundingBox& a, const FastBoundingBox& b);

    /// True if the ray meets the box, or starts in it or less than 0.001 outside.
    bool intersect(const ClassifiedRay3& ray) const;
    /// The same with the parameter where the ray enters, 0 for a start inside.
    bool intersect(const ClassifiedRay3& ray, float& t) const;

    Vector3 _min;
    Vector3 _max;
    mutable bool _empty;

private:
    bool areCornersCrossed() const { return _min.x > _max.x || _min.y > _max.y || _min.z > _max.z; }
    void settle() const { _empty = isEmpty(); }
};

} // namespace mrv
