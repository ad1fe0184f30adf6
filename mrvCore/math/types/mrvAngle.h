// mrvCore/math/types/mrvAngle.h
// Angles and the values of pi that every computation shares.
#pragma once

namespace mrv {

/// An angle in radians.
using Angle = float;

// Results depend on these very floats.
constexpr Angle PI_ANGLE = 3.1415927f;
constexpr Angle TWO_PI_ANGLE = 6.2831855f;
constexpr Angle HALF_PI_ANGLE = 1.5707964f;

} // namespace mrv
