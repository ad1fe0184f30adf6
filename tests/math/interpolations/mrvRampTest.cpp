// tests/math/interpolations/mrvRampTest.cpp
#include "mrvCore/math/interpolations/mrvDynamicRamp.h"
#include "mrvCore/math/interpolations/mrvInterpolation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mrv {
namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

TEST(RampTest, goesStraightFromEntryToEntryWithinItsRanges)
{
    Ramp empty, curve, scaled(10.0f, 20.0f, -1.0f, 1.0f), falling(1.0f, 0.0f, 1.0f, 0.0f);
    DynamicRamp constant(0.75f);
    curve.setValueAtPosition(0.25f, 0.25f);
    curve.setValueAtPosition(0.75f, 0.5f);
    curve.setValueAtPosition(0.0f, 0.5f); // keeps the former value
    scaled.setValueAtPosition(0.0f, 12.0f);
    scaled.setValueAtPosition(2.0f, 18.0f);
    falling.setValueAtPosition(0.0f, 0.0f);
    falling.setValueAtPosition(1.0f, 1.0f);
    struct Case
    {
        const Ramp& ramp;
        float position, value;
    };
    const Case cases[] = {
        { empty, 0.5f, 0.0f },     { constant, -3.0f, 0.75f }, { constant, 3.0f, 0.75f },
        { curve, 0.0f, 0.25f },    { curve, 0.25f, 0.25f },    { curve, 0.375f, 0.5f },
        { curve, 0.5f, 0.75f },    { curve, 2.0f, 0.75f },     { curve, -infinity, 0.25f },
        { curve, nan, 0.75f },     { scaled, 0.0f, -1.0f },    { scaled, 0.5f, 1.0f },
        { scaled, 0.35f, 0.0f },   { scaled, 1.0f, 1.0f }, // limited to the output range
        { falling, 0.25f, 0.25f }, { falling, 2.0f, 1.0f },
    };
    for (const Case& c : cases)
        EXPECT_FLOAT_EQ(c.ramp.getValueAtPosition(c.position), c.value) << c.position;
    EXPECT_EQ(curve.getNbValues(), 2u);
    constant.setEntries(curve.getEntries());
    EXPECT_EQ(constant.getValueAtPosition(0.375f), 0.5f);
    constant.clear();
    EXPECT_EQ(constant.getValueAtPosition(0.375f), 0.0f);
}

TEST(RampTest, castRoundsAndKeepsTheSignOfZero)
{
    struct Case
    {
        float value, round, floor, ceil;
    };
    const Case cases[] = {
        { 0.5f, 1.0f, 0.0f, 1.0f },
        { 1.5f, 2.0f, 1.0f, 2.0f },
        { -1.5f, -1.0f, -2.0f, -1.0f },
        { -0.5f, -0.0f, -1.0f, -0.0f },
        { -0.25f, -0.0f, -1.0f, -0.0f },
        { 8388609.0f, 8388609.0f, 8388609.0f, 8388609.0f },
        { -infinity, -infinity, -infinity, -infinity },
    };
    Ramp ramp;
    for (const Case& c : cases)
    {
        const float expected[] = { c.value, c.round, c.floor, c.ceil, c.value };
        for (int type = RampOutputType::NONE; type <= RampOutputType::END; ++type)
        {
            ramp._outputType = type;
            EXPECT_EQ(ramp.cast(c.value), expected[type]) << c.value << ' ' << type;
            EXPECT_EQ(std::signbit(ramp.cast(c.value)), std::signbit(expected[type]))
                << c.value << ' ' << type;
        }
    }
    Ramp whole(2.0f / 3.0f);
    whole._outputMax = 3.0f;
    whole._outputType = RampOutputType::ROUND;
    EXPECT_EQ(whole.getValueAtPosition(0.0f), 2.0f);
}

TEST(InterpolationTest, takesTheShortArcAndUnitLength)
{
    const Vector3 axis(0.0f, 0.0f, 1.0f);
    const Quaternion a(0.0f, axis), b(1.0f, axis);
    struct Case
    {
        Quaternion to;
        float t, angle;
    };
    const Case cases[] = { { b, 0.0f, 0.0f }, { b, 0.5f, 0.5f },  { -b, 0.5f, 0.5f },
                           { b, 1.0f, 1.0f }, { -b, 1.0f, 1.0f }, { b, 2.0f, 1.8073579f } };
    for (const Case& c : cases)
    {
        Quaternion out = c.to;
        interpolate_noFactorRangeCheck(out, a, out, c.t);
        EXPECT_NEAR(out.norm2(), 1.0f, 1e-6f);
        EXPECT_NEAR(2.0f * std::atan2(out.z, out.w), c.angle, 1e-6f) << c.t;
    }
    Quaternion out;
    interpolate_noFactorRangeCheck(out, a, Quaternion(-0.0f, 0.0f, 0.0f, -1.0f), 0.5f);
    EXPECT_EQ(out, a);
}

} // namespace
} // namespace mrv
