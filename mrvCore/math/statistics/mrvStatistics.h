// mrvCore/math/statistics/mrvStatistics.h
// Mean and spread of a row of numbers.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstddef>

namespace mrv {

/// Collects numbers and tells their statistics, each computed from the values when it is asked for.
///
/// Without a value there is no least and no greatest one: callers must not ask; the others are NaN then.
/// Threads: a plain value.
class MRV_CORE_API Statistics
{
public:
    void push_back(float value) { _values.push_back(value); }
    void clear() { _values.clear(); }
    size_t size() const { return _values.size(); }
    const PODArray<float>& getValues() const { return _values; }
    PODArray<float>& touchValues() { return _values; }

    float getMin() const;
    float getMax() const;
    float getArithmeticMean() const;
    /// Mean of the squares less the square of the mean. It may differ a little from the square of the
    /// standard deviation, and results depend on both staying as they are.
    float getVariance() const;
    /// Root of the mean squared deviation, of all values and not of a sample.
    float getStandardDeviation() const;

private:
    PODArray<float> _values;
};

} // namespace mrv
