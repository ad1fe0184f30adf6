// mrvCore/math/rotations/mrvEulerAngles.cpp
#include "mrvCore/math/rotations/mrvEulerAngles.h"

#include "mrvCore/math/rotations/mrvAngleUtils.h"

namespace mrv {

bool EulerAngles::approxEqual(const EulerAngles& a, const EulerAngles& b, float tolerance)
{
    return AngleUtils::approxEqual(a.heading, b.heading, tolerance) &&
           AngleUtils::approxEqual(a.attitude, b.attitude, tolerance) &&
           AngleUtils::approxEqual(a.bank, b.bank, tolerance);
}

} // namespace mrv
