// mrvCore/math/rotations/mrvAxisAngle.cpp
#include "mrvCore/math/rotations/mrvAxisAngle.h"

#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include <cmath>

namespace mrv {

bool AxisAngle::approxEqual(const AxisAngle& a, const AxisAngle& b, float tolerance)
{
    const Vector3 difference = a._axis - b._axis;
    return std::abs(difference.x) <= tolerance && std::abs(difference.y) <= tolerance &&
           std::abs(difference.z) <= tolerance && AngleUtils::approxEqual(a._angle, b._angle, tolerance);
}

} // namespace mrv
