// mrvCore/math/types/mrvVector2.cpp
#include "mrvCore/math/types/mrvVector2.h"

#include <cmath>

namespace mrv {

// Out of line, as all that calls sine and the like: a compiler that knows the argument would put its own
// value in, which need not be the run-time library's to the last bit.
Vector2 Vector2::rotate(Angle angle) const
{
    return rotate(std::cos(angle), std::sin(angle));
}

Angle Vector2::getAngle() const
{
    return std::atan2(y, x);
}

bool areCollinear(const Vector2& a, const Vector2& b, float tolerance)
{
    const auto isSmall = [tolerance](const Vector2& v) {
        return std::abs(v.x) <= tolerance && std::abs(v.y) <= tolerance;
    };
    return isSmall(a) || isSmall(b) || std::abs(a.x * b.y - b.x * a.y) <= tolerance;
}

} // namespace mrv
