// tests/math/random/mrvNoiseTest.cpp
#include "mrvCore/math/random/mrvSimpleNoise1D.h"
#include "mrvCore/math/random/mrvSimplexNoise.h"

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "tests/support/mrvCoreFixture.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mrv {
namespace {

using NoiseTest = CoreTest;

TEST_F(NoiseTest, simpleNoiseRunsThroughDrawnPointsWithPeriod256)
{
    getRNGSingleton()->setSeed(7);
    const SimpleNoise1D noise;
    RandomNumberGenerator rng(7);
    float points[256];
    for (float& point : points)
        point = rng.frand();
    for (int i = -600; i < 600; ++i)
    {
        EXPECT_EQ(noise(i), points[i & 255]) << i;
        EXPECT_FLOAT_EQ(noise(i + 0.5), (points[i & 255] + points[(i + 1) & 255]) / 2.0f) << i;
        EXPECT_NEAR(noise(i + 1.0 / 3.0), 0.75f * points[i & 255] + 0.25f * points[(i + 1) & 255], 1e-6f);
    }
    EXPECT_EQ(noise(-0.0), points[0]);
    EXPECT_EQ(noise(1e300), points[0]); // a multiple of 256
    EXPECT_TRUE(std::isnan(noise(std::numeric_limits<double>::infinity())));
    EXPECT_EQ(&getSimpleNoise1D(), &getSimpleNoise1D());
}

TEST(SimplexNoiseTest, vanishesAtWholeNumbersAndIsContinuous)
{
    float highest = 0.0f;
    for (int i = -512; i <= 512; ++i)
    {
        const float x = static_cast<float>(i);
        EXPECT_EQ(sdnoise1(x), 0.0f) << x;
        EXPECT_NEAR(sdnoise1(x - 1e-3f), 0.0f, 3e-3f) << x;
        EXPECT_NEAR(sdnoise1(x + 1e-3f), 0.0f, 3e-3f) << x;
        for (const float part : { 0.25f, 0.5f, 0.75f })
        {
            EXPECT_EQ(sdnoise1(x + part), sdnoise1(x + part + 256.0f)) << x;
            highest = std::max(highest, std::fabs(sdnoise1(x + part)));
        }
    }
    EXPECT_GT(highest, 0.3f);
    EXPECT_LE(highest, 1.0f);
    // Between 0 and 1 lie the hashes 151 and 160, with the slopes 8 and 1: (3/4)^4 * (8 - 1) / 2 / 4.
    EXPECT_FLOAT_EQ(sdnoise1(0.5f), 0.31640625f * 3.5f / 4.0f);
    for (const float x : { 1e10f, -1e10f, std::numeric_limits<float>::infinity(), std::nanf("") })
        EXPECT_EQ(sdnoise1(x), 0.0f);
    float gradient = 0.0f;
    grad1(0xF8 + 2, &gradient);
    EXPECT_EQ(gradient, -3.0f);
}

} // namespace
} // namespace mrv
