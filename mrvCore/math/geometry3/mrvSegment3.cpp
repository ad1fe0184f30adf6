// mrvCore/math/geometry3/mrvSegment3.cpp
#include "mrvCore/math/geometry3/mrvSegment3.h"

#include "mrvCore/math/geometry/mrvSegmentQueries.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

bool areNear(const Vector3& a, const Vector3& b, float tolerance)
{
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance &&
           std::abs(a.z - b.z) <= tolerance;
}

float clampedQuotient(float numerator, float denominator)
{
    return denominator > 0.0f ? std::clamp(numerator / denominator, 0.0f, 1.0f) : 0.0f;
}

} // namespace

Segment2 Segment3::project(Axis::Value axis) const
{
    return Segment2(_p1.project(axis), _p2.project(axis));
}

Segment2 Segment3::projectZ() const
{
    return Segment2(_p1.projectZ(), _p2.projectZ());
}

// The closest point of the one line, clamped; from there that of the other, clamped; and back if that moved.
void Segment3::closestPoints(const Segment3& p, const Segment3& q, float& s, float& t, Vector3& a, Vector3& b)
{
    const Vector3 u = p.getVector();
    const Vector3 v = q.getVector();
    const Vector3 w = p._p1 - q._p1;
    const float uu = u.norm2();
    const float vv = v.norm2();
    const float uv = u.dot(v);
    const float uw = u.dot(w);
    const float vw = v.dot(w);
    s = clampedQuotient(uv * vw - uw * vv, uu * vv - uv * uv);
    const float free = vv > 0.0f ? (uv * s + vw) / vv : 0.0f;
    t = std::clamp(free, 0.0f, 1.0f);
    if (t != free || !(vv > 0.0f))
        s = clampedQuotient(uv * t - uw, uu);
    a = p._p1 + u * s;
    b = q._p1 + v * t;
}

bool Segment3::isDegenerated(float tolerance) const
{
    return areNear(_p1, _p2, tolerance);
}

bool Segment3::contains(const Vector3& point, float tolerance) const
{
    return internal::segmentContains(_p1, _p2, point, tolerance);
}

Vector3 Segment3::closestPoint(const Vector3& point) const
{
    return internal::closestPointOfSegment(_p1, getVector(), _p2, point);
}

bool Segment3::projectsOn(const Vector3& point) const
{
    return internal::projectsOnSegment(_p1, getVector(), point);
}

bool Segment3::approxEqual(const Segment3& other, float tolerance) const
{
    return areNear(_p1, other._p1, tolerance) && areNear(_p2, other._p2, tolerance);
}

bool Segment3::operator<(const Segment3& other) const
{
    return _p1 != other._p1 ? _p1 < other._p1 : _p2 < other._p2;
}

void Segment3::getBoundingBox(Vector3& min, Vector3& max) const
{
    min = max = _p1;
    min.minSelf(_p2);
    max.maxSelf(_p2);
}

} // namespace mrv
