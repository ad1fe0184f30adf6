// mrvCore/math/interpolations/mrvRamp.cpp
#include "mrvCore/math/interpolations/mrvRamp.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

float limit(float value, float end, float otherEnd)
{
    const auto [low, high] = std::minmax(end, otherEnd);
    return std::min(std::max(value, low), high);
}

} // namespace

Ramp::Ramp(float value)
{
    setValueAtPosition(value, _inputMin);
}

Ramp::Ramp(float inputMin, float inputMax, float outputMin, float outputMax)
    : _inputMin(inputMin)
    , _inputMax(inputMax)
    , _outputMin(outputMin)
    , _outputMax(outputMax)
{}

float Ramp::getValueAtPosition(float position) const
{
    if (_entries.empty())
        return 0.0f;
    const float x = limit(position * (_inputMax - _inputMin) + _inputMin, _inputMin, _inputMax);
    auto next = _entries.begin();
    auto last = next;
    while (next != _entries.end() && !(x < next.getKey()))
        last = next++;
    float value = last.getValue();
    if (last != next && next != _entries.end())
        value += (x - last.getKey()) / (next.getKey() - last.getKey()) * (next.getValue() - last.getValue());
    return cast(limit(value * (_outputMax - _outputMin) + _outputMin, _outputMin, _outputMax));
}

float Ramp::cast(float value) const
{
    // From here on every float is whole.
    if (std::fabs(value) >= 8388608.0f)
        return value;
    switch (_outputType)
    {
    case RampOutputType::ROUND:
        return std::copysign(std::floor(value + 0.5f), value);
    case RampOutputType::FLOOR:
        return std::floor(value);
    case RampOutputType::CEIL:
        return std::ceil(value);
    default:
        return value;
    }
}

} // namespace mrv
