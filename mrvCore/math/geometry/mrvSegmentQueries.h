// mrvCore/math/geometry/mrvSegmentQueries.h
// What a segment answers in the plane and in space alike.
#pragma once

namespace mrv::internal {

/// True if the way by the point is longer than the segment by at most the tolerance.
template <class Vector>
bool segmentContains(const Vector& p1, const Vector& p2, const Vector& point, float tolerance)
{
    return (p1 - point).norm() + (p2 - point).norm() - (p1 - p2).norm() <= tolerance;
}

/// The first end for a segment of no length.
template <class Vector>
Vector closestPointOfSegment(const Vector& p1, const Vector& vector, const Vector& p2, const Vector& point)
{
    const float t = (point - p1).dot(vector);
    const float length2 = vector.norm2();
    if (t <= 0.0f)
        return p1;
    if (t >= length2)
        return p2;
    return p1 + vector * (t / length2);
}

/// The first end does not count, the second one does.
template <class Vector>
bool projectsOnSegment(const Vector& p1, const Vector& vector, const Vector& point)
{
    const float t = (point - p1).dot(vector);
    return t > 0.0f && t <= vector.norm2();
}

} // namespace mrv::internal
