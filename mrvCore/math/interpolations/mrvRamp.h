// mrvCore/math/interpolations/mrvRamp.h
// A piecewise linear curve over a normalised position.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

/// What the value of a ramp is rounded to; any other number leaves it as it is.
struct RampOutputType
{
    enum Value { NONE, ROUND, FLOOR, CEIL, END };
};

/// Maps a position to a value by straight lines between entries.
///
/// A position from 0 to 1 runs over the input range, in whose units the keys of the entries are; a value
/// from 0 to 1 runs over the output range. Positions and values are limited to the ranges, which may run
/// downwards. Keys must be numbers.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
class MRV_CORE_API Ramp
{
public:
    /// No entries: 0 everywhere.
    Ramp() = default;
    /// One entry: the value everywhere.
    explicit Ramp(float value);
    /// Other ranges, and no entries.
    Ramp(float inputMin, float inputMax, float outputMin, float outputMax);
    Ramp(const Ramp&) = default;
    Ramp& operator=(const Ramp&) = default;
    virtual ~Ramp() = default;

    size_t getNbValues() const { return _entries.size(); }
    /// Adds an entry; a position that has one keeps its value. Note the order.
    void setValueAtPosition(float value, float position) { _entries.insert(position, value); }
    /// Before the first entry its value, from the last one on that of the last; 0 without entries.
    float getValueAtPosition(float position) const;

    void setEntries(const MrvMap<float, float>& entries) { _entries = entries; }
    const MrvMap<float, float>& getEntries() const { return _entries; }
    /// Removes the entries; ranges and type stay.
    void clear() { _entries.clear(); }

    /// Rounds a value as `_outputType` says. Values of 2^23 and more in size stay; a negative value that
    /// becomes zero is -0. Halves round up.
    float cast(float value) const;

    MrvMap<float, float> _entries; ///< values by their key in the input range
    float _inputMin = 0.0f;
    float _inputMax = 1.0f;
    float _outputMin = 0.0f;
    float _outputMax = 1.0f;
    int _outputType = RampOutputType::NONE;
};

} // namespace mrv
