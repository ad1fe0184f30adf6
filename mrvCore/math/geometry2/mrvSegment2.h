// mrvCore/math/geometry2/mrvSegment2.h
// A directed segment of the plane.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Line2;

/// From `_p1` to `_p2`. Tolerances are inclusive.
class MRV_CORE_API Segment2
{
public:
    /// The positive side lies to the left of the direction from `_p1` to `_p2`.
    enum Side { positiveSide = 0, negativeSide = 1, onLine = 2 };

    /// Both ends at the origin.
    Segment2() = default;
    Segment2(const Vector2& p1, const Vector2& p2) : _p1(p1), _p2(p2) {}

    Vector2 getCenter() const { return (_p1 + _p2) * 0.5f; }
    /// Exact comparisons; a segment that is a point is both.
    bool isVertical() const { return _p1.x == _p2.x; }
    bool isHorizontal() const { return _p1.y == _p2.y; }
    /// True if the ends differ by at most the tolerance in both coordinates.
    bool isDegenerated(float tolerance) const;

    Vector2 getVector() const { return _p2 - _p1; }
    /// Null for a segment that is a point.
    Vector2 getNormalizedVector() const { return getVector().computeNormalize(); }
    float getLength() const { return getVector().norm(); }

    /// True if the way from end to end over the point is at most `tolerance` longer than the segment.
    bool contains(const Vector2& point, float tolerance) const;
    /// The point of the segment that is nearest.
    Vector2 closestPoint(const Vector2& point) const;
    /// True if the foot of the perpendicular lies in the segment, `_p1` excluded and `_p2` included.
    bool projectsOn(const Vector2& point) const;
    /// Side of the line from `_p1` to `_p2`; positive is to the left.
    Side side(const Vector2& point) const;
    Line2 getLine() const;

    /// Compares end with end, so a segment does not equal its reverse.
    bool approxEqual(const Segment2& other, float tolerance) const;
    bool operator==(const Segment2& other) const { return _p1 == other._p1 && _p2 == other._p2; }
    bool operator!=(const Segment2& other) const { return !(*this == other); }
    /// For sorted containers: by `_p1`, then `_p2`.
    bool operator<(const Segment2& other) const;

    void getBoundingBox(Vector2& min, Vector2& max) const;

    Vector2 _p1;
    Vector2 _p2;
};

} // namespace mrv
