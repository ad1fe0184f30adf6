// mrvCore/math/intersections/mrvLineIntersections.cpp
#include "mrvCore/math/intersections/mrvLineIntersections.h"

#include "mrvCore/math/geometry2/mrvSegment2.h"

#include <algorithm>

namespace mrv {

namespace {

float cross(const Vector2& a, const Vector2& b)
{
    return a.x * b.y - a.y * b.x;
}

bool overlap(float a1, float a2, float b1, float b2)
{
    return std::max(a1, a2) >= std::min(b1, b2) && std::max(b1, b2) >= std::min(a1, a2);
}

} // namespace

bool intersection(const Segment2& a, const Segment2& b)
{
    const Vector2 u = a.getVector();
    const Vector2 v = b.getVector();
    const Vector2 offset = a._p1 - b._p1;
    const float denominator = cross(u, v);
    const float numeratorA = cross(v, offset);
    const float numeratorB = cross(u, offset);
    if (denominator == 0.0f)
    {
        if (numeratorA != 0.0f || numeratorB != 0.0f)
            return false;
        return a.isVertical() ? overlap(a._p1.y, a._p2.y, b._p1.y, b._p2.y)
                              : overlap(a._p1.x, a._p2.x, b._p1.x, b._p2.x);
    }
    const float s = numeratorA / denominator;
    const float t = numeratorB / denominator;
    return s >= 0.0f && s <= 1.0f && t >= 0.0f && t <= 1.0f;
}

bool intersection(const Vector2& p1, const Vector2& p2, const Vector2& p3, const Vector2& p4, Vector2& point)
{
    const Vector2 u = p2 - p1;
    const Vector2 v = p4 - p3;
    const float denominator = cross(u, v);
    if (denominator == 0.0f)
        return false;
    point = p1 + u * (cross(v, p1 - p3) / denominator);
    return true;
}

} // namespace mrv
