// tests/math/statistics/mrvStatisticsTest.cpp
#include "mrvCore/math/statistics/mrvStatistics.h"

#include <gtest/gtest.h>

#include <vector>

namespace mrv {
namespace {

TEST(StatisticsTest, TellsMeanAndSpread)
{
    struct Case
    {
        std::vector<float> values;
        float min, max, mean, variance, deviation;
    };
    const Case cases[] = {
        { { 3.0f }, 3.0f, 3.0f, 3.0f, 0.0f, 0.0f },
        { { -1.0f, 1.0f }, -1.0f, 1.0f, 0.0f, 1.0f, 1.0f },
        { { 2.0f, 4.0f, 4.0f, 4.0f, 5.0f, 5.0f, 7.0f, 9.0f }, 2.0f, 9.0f, 5.0f, 4.0f, 2.0f },
        // The mean of squares has no bits left for the variance; the deviations have.
        { { 4096.0f, 4097.0f }, 4096.0f, 4097.0f, 4096.5f, 0.0f, 0.5f },
    };
    for (const Case& expected : cases)
    {
        Statistics statistics;
        for (const float value : expected.values)
            statistics.push_back(value);
        EXPECT_EQ(statistics.size(), expected.values.size());
        EXPECT_EQ(statistics.getMin(), expected.min);
        EXPECT_EQ(statistics.getMax(), expected.max);
        EXPECT_EQ(statistics.getArithmeticMean(), expected.mean);
        EXPECT_EQ(statistics.getVariance(), expected.variance);
        EXPECT_EQ(statistics.getStandardDeviation(), expected.deviation);
    }
}

} // namespace
} // namespace mrv
