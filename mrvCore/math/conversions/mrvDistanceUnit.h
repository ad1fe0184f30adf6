// mrvCore/math/conversions/mrvDistanceUnit.h
// Units of distance and their conversion.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Units that scenes are built in; the metre is the reference.
struct distanceUnit
{
    enum Value { METER, DECIMETER, CENTIMETER, MILLIMETER, INCH, FEET, YARD, END };
};

/// Metres per unit, in the order of distanceUnit.
extern MRV_CORE_API const float unitScaleValues[distanceUnit::END];

/// Metres per unit; anything but a unit is fatal.
MRV_CORE_API float getScaleFactor(distanceUnit::Value unit);

/// A distance in one unit told in another.
MRV_CORE_API float convert(float value, distanceUnit::Value from, distanceUnit::Value to);

} // namespace mrv
