// mrvCore/math/geometry2/mrvSegment2.cpp
#include "mrvCore/math/geometry2/mrvSegment2.h"

#include "mrvCore/math/geometry/mrvSegmentQueries.h"
#include "mrvCore/math/geometry2/mrvLine2.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

bool areNear(const Vector2& a, const Vector2& b, float tolerance)
{
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance;
}

} // namespace

bool Segment2::isDegenerated(float tolerance) const
{
    return areNear(_p1, _p2, tolerance);
}

bool Segment2::contains(const Vector2& point, float tolerance) const
{
    return internal::segmentContains(_p1, _p2, point, tolerance);
}

Vector2 Segment2::closestPoint(const Vector2& point) const
{
    return internal::closestPointOfSegment(_p1, getVector(), _p2, point);
}

bool Segment2::projectsOn(const Vector2& point) const
{
    return internal::projectsOnSegment(_p1, getVector(), point);
}

Segment2::Side Segment2::side(const Vector2& point) const
{
    const Vector2 vector = getVector();
    const Vector2 offset = point - _p1;
    const float cross = vector.x * offset.y - offset.x * vector.y;
    if (cross > 0.0f)
        return positiveSide;
    return cross < 0.0f ? negativeSide : onLine;
}

Line2 Segment2::getLine() const
{
    return Line2(_p1, _p2);
}

bool Segment2::approxEqual(const Segment2& other, float tolerance) const
{
    return areNear(_p1, other._p1, tolerance) && areNear(_p2, other._p2, tolerance);
}

bool Segment2::operator<(const Segment2& other) const
{
    return _p1 != other._p1 ? _p1 < other._p1 : _p2 < other._p2;
}

void Segment2::getBoundingBox(Vector2& min, Vector2& max) const
{
    min = Vector2(std::min(_p1.x, _p2.x), std::min(_p1.y, _p2.y));
    max = Vector2(std::max(_p1.x, _p2.x), std::max(_p1.y, _p2.y));
}

} // namespace mrv
