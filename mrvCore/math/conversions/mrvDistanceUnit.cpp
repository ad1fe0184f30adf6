// mrvCore/math/conversions/mrvDistanceUnit.cpp
#include "mrvCore/math/conversions/mrvDistanceUnit.h"

#include "mrvCore/system/debug/mrvAssert.h"

namespace mrv {

const float unitScaleValues[distanceUnit::END] = { 1.0f, 0.1f, 0.01f, 0.001f, 0.0254f, 0.3048f, 0.9144f };

float getScaleFactor(distanceUnit::Value unit)
{
    MRV_ASSERT(unit >= distanceUnit::METER && unit < distanceUnit::END, "%d is no unit of distance",
               static_cast<int>(unit));
    return unitScaleValues[unit];
}

float convert(float value, distanceUnit::Value from, distanceUnit::Value to)
{
    return value * getScaleFactor(from) / getScaleFactor(to);
}

} // namespace mrv
