// mrvCore/math/geometry/mrvContainment.cpp
#include "mrvCore/math/geometry/mrvContainment.h"

#include "mrvCore/math/geometry/mrvDistance.h"
#include "mrvCore/math/geometry2/mrvBox2.h"
#include "mrvCore/math/geometry2/mrvCircle2.h"
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"

#include <algorithm>

namespace mrv {

namespace {

bool isBetween(float value, float end, float tolerance)
{
    return value >= std::min(0.0f, end) - tolerance && value <= std::max(0.0f, end) + tolerance;
}

bool isNearOutline(const Vector2* points, size_t count, const Vector2& point, float tolerance)
{
    for (size_t i = 0; i < count; ++i)
        if (distance2(point, Segment2(points[i], points[i + 1 < count ? i + 1 : 0])) <= tolerance * tolerance)
            return true;
    return false;
}

} // namespace

bool contains(const Circle2& circle, const Vector2& point, float tolerance)
{
    const float reach = circle.getRadius() + tolerance;
    return (point - circle._center).norm2() <= reach * reach;
}

bool contains(const Box2& box, const Vector2& point, float tolerance)
{
    const Vector2 local = (point - box.getTranslation()).rotate(box.getCosRotation(), -box.getSinRotation());
    return isBetween(local.x, box.getSize().x, tolerance) && isBetween(local.y, box.getSize().y, tolerance);
}

bool contains(const Triangle2& triangle, const Vector2& point, float tolerance)
{
    return containsInPolygon(triangle._vertices, 3, point, tolerance);
}

bool contains(const ConvexPolygon2& polygon, const Vector2& point, float tolerance)
{
    const Array<Vector2>& vertices = polygon._vertices;
    return vertices.size() >= 3 && containsInPolygon(vertices.begin(), vertices.size(), point, tolerance);
}

bool contains(const Array<Vector2>& points, const Vector2& point)
{
    return mrvContainsInPolygon(points.begin(), points.size(), point);
}

bool mrvContainsInPolygon(const Vector2* points, size_t count, const Vector2& point)
{
    bool isInside = false;
    for (size_t i = 0, former = count - 1; i < count; former = i++)
    {
        const Vector2& a = points[former];
        const Vector2& b = points[i];
        if ((a.y > point.y) == (b.y > point.y))
            continue;
        if (point.x < a.x + (b.x - a.x) * ((point.y - a.y) / (b.y - a.y)))
            isInside = !isInside;
    }
    return isInside;
}

bool containsInPolygon(const Vector2* points, size_t count, const Vector2& point, float tolerance)
{
    return mrvContainsInPolygon(points, count, point) || isNearOutline(points, count, point, tolerance);
}

} // namespace mrv
