// mrvCore/math/rotations/mrvEulerAngles.h
// A rotation as three angles about the axes, in an order that the functions name.
#pragma once

#include "mrvCore/math/types/mrvAngle.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Angles about the first, second and third axis of the order named by the function that reads or writes
/// them (mrvCore/math/conversions/mrvEulerConversions.h).
class EulerAngles
{
public:
    Angle heading = 0.0f;
    Angle attitude = 0.0f;
    Angle bank = 0.0f;

    constexpr EulerAngles() = default;
    constexpr EulerAngles(Angle first, Angle second, Angle third)
        : heading(first)
        , attitude(second)
        , bank(third)
    {}

    /// True if each pair of angles is equal by AngleUtils::approxEqual; the same rotation by other angles
    /// does not count.
    MRV_CORE_API static bool approxEqual(const EulerAngles& a, const EulerAngles& b, float tolerance);
};

/// Whether an orientation stands at a pole, where heading and bank are one.
struct EulerPolesStatus
{
    enum Value { NONE = 0, NORTH = 1, SOUTH = 2, END = 3 };
};

} // namespace mrv
