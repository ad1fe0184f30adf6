// mrvCore/math/geometry2/mrvLine2.cpp
#include "mrvCore/math/geometry2/mrvLine2.h"

#include <cmath>

namespace mrv {

Line2::Line2(const Vector2& p1, const Vector2& p2)
    : _a(p1.y - p2.y)
    , _b(p2.x - p1.x)
    , _c(p1.x * p2.y - p2.x * p1.y)
    , _p1(p1)
    , _p2(p2)
{}

bool Line2::parallel(const Line2& other, float tolerance) const
{
    const Vector2 u = getNormalizedDirectionVector();
    const Vector2 v = other.getNormalizedDirectionVector();
    return std::abs(u.x * v.y - v.x * u.y) <= tolerance;
}

// From a point of the line rather than by the equation, which loses the fraction far from the origin.
float Line2::signedDistance(const Vector2& point) const
{
    return getNormalizedNormalVector().dot(point - _p1);
}

Vector2 Line2::projectionNormal(const Vector2& point) const
{
    return getNormalizedNormalVector() * signedDistance(point);
}

bool Line2::onSameSide(const Vector2& a, const Vector2& b) const
{
    const float distanceA = signedDistance(a);
    const float distanceB = signedDistance(b);
    return (distanceA > 0.0f && distanceB > 0.0f) || (distanceA < 0.0f && distanceB < 0.0f);
}

bool Line2::contains(const Vector2& point, float tolerance) const
{
    return std::abs(signedDistance(point)) <= tolerance;
}

} // namespace mrv
