// mrvCore/math/rotations/mrvAxisAngle.h
// A rotation as an axis and the angle about it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Nothing keeps the axis at unit length; the conversions take it as it is.
class AxisAngle
{
public:
    Vector3 _axis;
    Angle _angle = 0.0f;

    constexpr AxisAngle() = default;
    constexpr AxisAngle(const Vector3& axis, Angle angle) : _axis(axis), _angle(angle) {}

    /// True if every component of the axes differs by at most `tolerance` and the angles are equal by
    /// AngleUtils::approxEqual; the same rotation about the opposite axis does not count.
    MRV_CORE_API static bool approxEqual(const AxisAngle& a, const AxisAngle& b, float tolerance);
    /// The opposite of approxEqual().
    static bool approxDiff(const AxisAngle& a, const AxisAngle& b, float tolerance)
    {
        return !approxEqual(a, b, tolerance);
    }
};

} // namespace mrv
