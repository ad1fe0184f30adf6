// mrvCore/math/geometry2/mrvCircle2.cpp
#include "mrvCore/math/geometry2/mrvCircle2.h"

#include "mrvCore/math/geometry/mrvContainment.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include <cmath>

namespace mrv {

Vector2 Circle2::randomPoint(RandomNumberGenerator& rng) const
{
    const float distance = getRadius() * std::sqrt(rng.frand());
    const Angle angle = rng.frand() * TWO_PI_ANGLE;
    return _center + Vector2(std::cos(angle), std::sin(angle)) * distance;
}

bool circleTangents(const Circle2& circle, const Vector2& point, Vector2& tangent1, Vector2& tangent2)
{
    if (contains(circle, point, 1e-5f))
        return false;
    const Vector2 offset = point - circle._center;
    const float distance = offset.norm();
    const Vector2 along = offset / distance;
    const Vector2 across(-along.y, along.x);
    const float radius2 = circle._radius2;
    const Vector2 middle = circle._center + along * (radius2 / distance);
    const Vector2 side = across * (circle.getRadius() * std::sqrt(1.0f - radius2 / (distance * distance)));
    tangent1 = middle + side;
    tangent2 = middle - side;
    return true;
}

} // namespace mrv
