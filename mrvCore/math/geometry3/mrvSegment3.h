// mrvCore/math/geometry3/mrvSegment3.h
// A directed segment of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Segment2;

/// From `_p1` to `_p2`. Tolerances are inclusive.
class MRV_CORE_API Segment3
{
public:
    /// Both ends at the origin.
    Segment3() = default;
    Segment3(const Vector3& p1, const Vector3& p2) : _p1(p1), _p2(p2) {}

    /// Drops an axis, as Vector3::project() does.
    Segment2 project(Axis::Value axis) const;
    /// Drops the z axis.
    Segment2 projectZ() const;

    /// The closest points `a` of `p` and `b` of `q`, at the fractions `s` and `t`. Of parallel segments the
    /// first such point from `p._p1` on.
    static void closestPoints(const Segment3& p, const Segment3& q, float& s, float& t, Vector3& a,
                              Vector3& b);

    Vector3 getCenter() const { return (_p1 + _p2) * 0.5f; }
    /// True if the ends differ by at most the tolerance in all coordinates.
    bool isDegenerated(float tolerance) const;
    Vector3 getVector() const { return _p2 - _p1; }
    /// Null for a segment that is a point.
    Vector3 getNormalizedVector() const { return getVector().computeNormalize(); }
    float getLength() const { return getVector().norm(); }

    /// True if the way from end to end over the point is at most `tolerance` longer than the segment.
    bool contains(const Vector3& point, float tolerance) const;
    /// The point of the segment that is nearest.
    Vector3 closestPoint(const Vector3& point) const;
    /// True if the foot of the perpendicular lies in the segment, `_p1` excluded and `_p2` included.
    bool projectsOn(const Vector3& point) const;

    Segment3 operator+(const Vector3& offset) const { return Segment3(_p1 + offset, _p2 + offset); }

    /// @{
    /// Each compares end with end, so a segment does not equal its reverse.
    bool operator==(const Segment3& other) const { return _p1 == other._p1 && _p2 == other._p2; }
    bool operator!=(const Segment3& other) const { return !(*this == other); }
    bool approxEqual(const Segment3& other, float tolerance) const;
    /// @}
    /// For sorted containers: by `_p1`, then `_p2`.
    bool operator<(const Segment3& other) const;

    void getBoundingBox(Vector3& min, Vector3& max) const;

    Vector3 _p1;
    Vector3 _p2;
};

} // namespace mrv
