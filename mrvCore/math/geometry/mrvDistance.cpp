// mrvCore/math/geometry/mrvDistance.cpp
// Points, segments and triangles; lines, rectangles and boxes are in mrvDistanceCentered.cpp.
#include "mrvCore/math/geometry/mrvDistance.h"

#include "mrvCore/math/geometry/mrvContainment.h"
#include "mrvCore/math/geometry2/mrvBox2.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "mrvCore/math/geometry3/mrvSegment3.h"
#include "mrvCore/math/geometry3/mrvTriangle3.h"
#include "mrvCore/math/intersections/mrvLineIntersections.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mrv {

namespace {

/// How far a coordinate lies outside of the side from 0 to `end`.
float excess(float value, float end)
{
    const float low = std::min(0.0f, end);
    const float high = std::max(0.0f, end);
    return value < low ? low - value : std::max(value - high, 0.0f);
}

/// The closest pair of points found so far.
struct Closest
{
    float measure = std::numeric_limits<float>::max();
    Vector3 direction;

    void update(const Vector3& candidate)
    {
        const float candidateMeasure = candidate.norm2();
        if (!(candidateMeasure < measure))
            return;
        measure = candidateMeasure;
        direction = candidate;
    }
};

/// Where the plane of a triangle has the foot of the perpendicular from a point.
struct Foot
{
    /// Twice the areas between foot and edges, over twice the triangle's own.
    float weight1 = 0.0f;
    float weight2 = 0.0f;
    bool isInside = false; ///< never in a triangle without a surface

    Foot(const Vector3& point, const Vector3& v0, const Vector3& u, const Vector3& v)
    {
        const Vector3 normal = u.cross(v);
        const Vector3 w = point - v0;
        const float whole = normal.norm2();
        weight1 = w.cross(v).dot(normal) / whole;
        weight2 = u.cross(w).dot(normal) / whole;
        isInside = whole > 0.0f && weight1 >= 0.0f && weight2 >= 0.0f && weight1 + weight2 <= 1.0f;
    }
};

/// By the sides of the ends, without a smallest size: Triangle3's own test misses small triangles.
bool isCrossed(const Triangle3& triangle, const Segment3& segment)
{
    const Vector3 normal = triangle.getUAxis().cross(triangle.getVAxis());
    const float side1 = normal.dot(segment._p1 - triangle[0]);
    const float side2 = normal.dot(segment._p2 - triangle[0]);
    if (side1 == side2 || (side1 > 0.0f && side2 > 0.0f) || (side1 < 0.0f && side2 < 0.0f))
        return false;
    const Vector3 crossing = segment._p1 + segment.getVector() * (side1 / (side1 - side2));
    return Foot(crossing, triangle[0], triangle.getUAxis(), triangle.getVAxis()).isInside;
}

/// From a triangle to a segment.
Closest closestOf(const Triangle3& triangle, const Segment3& segment)
{
    Closest closest;
    if (isCrossed(triangle, segment))
    {
        closest.update(Vector3());
        return closest;
    }
    Vector3 point;
    for (int i = 0; i < 3; ++i)
    {
        Vector3 direction;
        distance2(triangle.getEdge(i), segment, direction);
        closest.update(direction);
    }
    for (const Vector3& end : { segment._p1, segment._p2 })
    {
        distance2(triangle, end, point);
        closest.update(end - point);
    }
    return closest;
}

Closest closestOf(const Triangle3& a, const Triangle3& b)
{
    Closest closest;
    for (int i = 0; i < 3 && closest.measure > 0.0f; ++i)
        closest.update(closestOf(a, b.getEdge(i)).direction);
    for (int i = 0; i < 3 && closest.measure > 0.0f; ++i)
        closest.update(-closestOf(b, a.getEdge(i)).direction);
    return closest;
}

} // namespace

float distance2(const Vector2& point, const Segment2& segment)
{
    return (point - segment.closestPoint(point)).norm2();
}

float distance2(const Segment2& a, const Segment2& b)
{
    if (a._p1 == a._p2)
        return distance2(a._p1, b); // a point counts as crossing whatever it is level with
    if (intersection(a, b))
        return 0.0f;
    return std::min({ distance2(a._p1, b), distance2(a._p2, b), distance2(b._p1, a), distance2(b._p2, a) });
}

float distance2(const Vector2& point, const Box2& box)
{
    const Vector2 local = (point - box.getTranslation()).rotate(box.getCosRotation(), -box.getSinRotation());
    return Vector2(excess(local.x, box.getSize().x), excess(local.y, box.getSize().y)).norm2();
}

float distance(const Triangle2& triangle, const Vector2& point)
{
    if (mrvContainsInPolygon(triangle._vertices, 3, point))
        return 0.0f;
    float least = std::numeric_limits<float>::max();
    for (unsigned int i = 0; i < 3; ++i)
    {
        Segment2 edge;
        triangle.computeEdge(i, edge);
        least = std::min(least, distance2(point, edge));
    }
    return std::sqrt(least);
}

float distance2(const Segment3& a, const Segment3& b)
{
    Vector3 direction;
    return distance2(a, b, direction);
}

float distance2(const Segment3& a, const Segment3& b, Vector3& direction)
{
    float s, t;
    Vector3 onA, onB;
    Segment3::closestPoints(a, b, s, t, onA, onB);
    direction = onB - onA;
    return direction.norm2();
}

float distance2(const Vector3& point, const Segment3& segment)
{
    return (point - segment.closestPoint(point)).norm2();
}

float distance2(const Vector3& point, const Segment3& segment, Vector3& direction)
{
    direction = segment.closestPoint(point) - point;
    return direction.norm2();
}

float distance2ClosestPoint(const Vector3& point, const Segment3& segment, Vector3& closest)
{
    closest = segment.closestPoint(point);
    return (point - closest).norm2();
}

float distance2(const Vector3& point, const Vector3& v0, const Vector3& v1, const Vector3& v2,
                Vector3& closest)
{
    const Vector3 u = v1 - v0;
    const Vector3 v = v2 - v0;
    const Foot foot(point, v0, u, v);
    if (foot.isInside)
    {
        closest = v0 + u * foot.weight1 + v * foot.weight2;
        return (point - closest).norm2();
    }
    float least = std::numeric_limits<float>::infinity();
    for (const Segment3& edge : { Segment3(v0, v1), Segment3(v1, v2), Segment3(v2, v0) })
    {
        const Vector3 candidate = edge.closestPoint(point);
        const float measure = (point - candidate).norm2();
        if (measure < least)
        {
            least = measure;
            closest = candidate;
        }
    }
    return least;
}

float distance2(const Triangle3& triangle, const Vector3& point, Vector3& closest)
{
    return distance2(point, triangle[0], triangle[1], triangle[2], closest);
}

float distance2(const Triangle3& triangle, const Segment3& segment)
{
    return closestOf(triangle, segment).measure;
}

float distance2(const Triangle3& triangle, const Segment3& segment, Vector3& direction)
{
    const Closest closest = closestOf(triangle, segment);
    direction = closest.direction;
    return closest.measure;
}

float distance2Optimized(const Triangle3& a, const Triangle3& b)
{
    return closestOf(a, b).measure;
}

float distance2Optimized(const Triangle3& a, const Triangle3& b, Vector3& direction)
{
    const Closest closest = closestOf(a, b);
    direction = closest.direction;
    return closest.measure;
}

} // namespace mrv
