// mrvCore/math/geometry2/mrvCollision2.cpp
#include "mrvCore/math/geometry2/mrvCollision2.h"

#include "mrvCore/math/geometry/mrvContainment.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "mrvCore/math/intersections/mrvLineIntersections.h"

namespace mrv {

namespace {

/// Positive if a, b, c turn counterclockwise.
float turnOf(const Vector2& a, const Vector2& b, const Vector2& c)
{
    return (a.x - c.x) * (b.y - c.y) - (a.y - c.y) * (b.x - c.x);
}

/// p1 lies beyond the edge r2 p2 alone.
bool testEdge(const Vector2& p1, const Vector2& q1, const Vector2& r1, const Vector2& p2, const Vector2& r2)
{
    if (turnOf(r2, p2, q1) >= 0.0f)
    {
        if (turnOf(p1, p2, q1) >= 0.0f)
            return turnOf(p1, q1, r2) >= 0.0f;
        return turnOf(q1, r1, p2) >= 0.0f && turnOf(r1, p1, p2) >= 0.0f;
    }
    return turnOf(r2, p2, r1) >= 0.0f && turnOf(p1, p2, r1) >= 0.0f &&
           (turnOf(p1, r1, r2) >= 0.0f || turnOf(q1, r1, r2) >= 0.0f);
}

/// p1 lies beyond both edges that meet at r2.
bool testVertex(const Vector2& p1, const Vector2& q1, const Vector2& r1, const Vector2& p2, const Vector2& q2,
                const Vector2& r2)
{
    if (turnOf(r2, p2, q1) >= 0.0f)
    {
        if (turnOf(r2, q2, q1) <= 0.0f)
        {
            if (turnOf(p1, p2, q1) > 0.0f)
                return turnOf(p1, q2, q1) <= 0.0f;
            return turnOf(p1, p2, r1) >= 0.0f && turnOf(q1, r1, p2) >= 0.0f;
        }
        return turnOf(p1, q2, q1) <= 0.0f && turnOf(r2, q2, r1) <= 0.0f && turnOf(q1, r1, q2) >= 0.0f;
    }
    if (turnOf(r2, p2, r1) < 0.0f)
        return false;
    if (turnOf(q1, r1, r2) >= 0.0f)
        return turnOf(p1, p2, r1) >= 0.0f;
    return turnOf(q1, r1, q2) >= 0.0f && turnOf(r2, r1, q2) >= 0.0f;
}

bool overlapCounterclockwise(const Vector2& p1, const Vector2& q1, const Vector2& r1, const Vector2& p2,
                             const Vector2& q2, const Vector2& r2)
{
    const bool isInP2Q2 = turnOf(p2, q2, p1) >= 0.0f;
    const bool isInQ2R2 = turnOf(q2, r2, p1) >= 0.0f;
    const bool isInR2P2 = turnOf(r2, p2, p1) >= 0.0f;
    if (isInP2Q2 && isInQ2R2)
        return isInR2P2 || testEdge(p1, q1, r1, p2, r2);
    if (isInP2Q2)
        return isInR2P2 ? testEdge(p1, q1, r1, r2, q2) : testVertex(p1, q1, r1, p2, q2, r2);
    if (isInQ2R2)
        return isInR2P2 ? testEdge(p1, q1, r1, q2, p2) : testVertex(p1, q1, r1, q2, r2, p2);
    return testVertex(p1, q1, r1, r2, p2, q2);
}

bool isInBox(const Vector2& point, const Vector2& min, const Vector2& max)
{
    return point.x >= min.x && point.x <= max.x && point.y >= min.y && point.y <= max.y;
}

bool anyVertexIn(const Triangle2& vertices, const Triangle2& triangle, float tolerance)
{
    for (const Vector2& vertex : vertices._vertices)
        if (contains(triangle, vertex, tolerance))
            return true;
    return false;
}

} // namespace

bool mrvAreColliding(const Vector2& min1, const Vector2& max1, const Vector2& min2, const Vector2& max2,
                     float tolerance)
{
    return !(min1.x - tolerance > max2.x || min2.x - tolerance > max1.x || min1.y - tolerance > max2.y ||
             min2.y - tolerance > max1.y);
}

bool areColliding(const Vector2& min1, const Vector2& max1, const Vector2& min2, const Vector2& max2,
                  float tolerance)
{
    return mrvAreColliding(min1, max1, min2, max2, tolerance);
}

bool areColliding(const Triangle2& a, const Triangle2& b, float tolerance)
{
    Vector2 minA, maxA, minB, maxB;
    a.getBoundingBox(minA, maxA);
    b.getBoundingBox(minB, maxB);
    if (!mrvAreColliding(minA, maxA, minB, maxB, tolerance))
        return false;
    if (a.isPoint(tolerance))
        return anyVertexIn(a, b, tolerance);
    if (b.isPoint(tolerance))
        return anyVertexIn(b, a, tolerance);
    return areCollidingNoDegenerates(a, b);
}

bool areCollidingNoDegenerates(const Triangle2& a, const Triangle2& b)
{
    return tri_tri_overlap_test_2d(a._vertices[0], a._vertices[1], a._vertices[2], b._vertices[0],
                                   b._vertices[1], b._vertices[2]);
}

bool areColliding(const Segment2& segment, const Vector2& boxMin, const Vector2& boxMax, float tolerance)
{
    if (isInBox(segment._p1, boxMin, boxMax) || isInBox(segment._p2, boxMin, boxMax))
        return true;
    Vector2 min, max;
    segment.getBoundingBox(min, max);
    if (!mrvAreColliding(min, max, boxMin, boxMax, tolerance))
        return false;
    const Vector2 southEast(boxMax.x, boxMin.y);
    const Vector2 northWest(boxMin.x, boxMax.y);
    return intersection(segment, Segment2(boxMin, southEast)) ||
           intersection(segment, Segment2(southEast, boxMax)) ||
           intersection(segment, Segment2(boxMax, northWest)) ||
           intersection(segment, Segment2(northWest, boxMin));
}

bool areColliding(const Triangle2& triangle, const Vector2& boxMin, const Vector2& boxMax, float tolerance)
{
    Vector2 min, max;
    triangle.getBoundingBox(min, max);
    if (!mrvAreColliding(min, max, boxMin, boxMax, tolerance))
        return false;
    for (const Vector2& vertex : triangle._vertices)
        if (isInBox(vertex, boxMin, boxMax))
            return true;
    if (contains(triangle, boxMin, 0.0f)) // the box may lie wholly inside
        return true;
    for (unsigned int i = 0; i < 3; ++i)
    {
        Segment2 edge;
        triangle.computeEdge(i, edge);
        if (areColliding(edge, boxMin, boxMax, tolerance))
            return true;
    }
    return false;
}

bool tri_tri_overlap_test_2d(const Vector2& p1, const Vector2& q1, const Vector2& r1, const Vector2& p2,
                             const Vector2& q2, const Vector2& r2)
{
    const bool isFirstClockwise = turnOf(p1, q1, r1) < 0.0f;
    const bool isSecondClockwise = turnOf(p2, q2, r2) < 0.0f;
    const Vector2& second1 = isFirstClockwise ? r1 : q1;
    const Vector2& third1 = isFirstClockwise ? q1 : r1;
    const Vector2& second2 = isSecondClockwise ? r2 : q2;
    const Vector2& third2 = isSecondClockwise ? q2 : r2;
    return overlapCounterclockwise(p1, second1, third1, p2, second2, third2);
}

} // namespace mrv
