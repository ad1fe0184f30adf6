// mrvCore/math/statistics/mrvStatistics.cpp
#include "mrvCore/math/statistics/mrvStatistics.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

template <class Term>
float meanOf(const PODArray<float>& values, Term term)
{
    float sum = 0.0f;
    for (const float value : values)
        sum += term(value);
    return sum / static_cast<float>(values.size());
}

} // namespace

float Statistics::getMin() const
{
    return *std::min_element(_values.begin(), _values.end());
}

float Statistics::getMax() const
{
    return *std::max_element(_values.begin(), _values.end());
}

float Statistics::getArithmeticMean() const
{
    return meanOf(_values, [](float value) { return value; });
}

float Statistics::getVariance() const
{
    const float mean = getArithmeticMean();
    return meanOf(_values, [](float value) { return value * value; }) - mean * mean;
}

float Statistics::getStandardDeviation() const
{
    const float mean = getArithmeticMean();
    return std::pow(meanOf(_values, [mean](float value) { return (value - mean) * (value - mean); }), 0.5f);
}

} // namespace mrv
