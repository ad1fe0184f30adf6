// tests/math/rotations/mrvAngleUtilsTest.cpp
#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include "mrvCore/math/rotations/mrvAxisAngle.h"
#include "mrvCore/math/rotations/mrvEulerAngles.h"
#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

namespace {

constexpr float pi = PI_ANGLE;

} // namespace

TEST(AngleUtilsTest, wrappingIncludesMinusPiOnly)
{
    EXPECT_TRUE(AngleUtils::isModulo(-pi) && AngleUtils::isModulo(0.0f));
    EXPECT_FALSE(AngleUtils::isModulo(pi) || AngleUtils::isModulo(std::nextafter(-pi, -4.0f)));
    EXPECT_FALSE(AngleUtils::isModulo(notANumber));
    EXPECT_EQ(AngleUtils::getModuloValue(pi), -pi);
    EXPECT_EQ(AngleUtils::getModuloValue(-pi), -pi);
    EXPECT_EQ(AngleUtils::getModuloValueDegree(180.0f), -180.0f);
    for (int turns = -20; turns <= 20; ++turns)
    {
        for (float angle = -3.1f; angle < 3.14f; angle += 0.1f)
        {
            Angle wrapped = angle + static_cast<float>(turns) * TWO_PI_ANGLE;
            AngleUtils::moduloSelf(wrapped);
            EXPECT_NEAR(wrapped, angle, 2e-5f) << turns;
            EXPECT_TRUE(AngleUtils::isModulo(wrapped));
            EXPECT_NEAR(AngleUtils::getModuloValueDegree(angle * 50.0f + static_cast<float>(turns) * 360.0f),
                        angle * 50.0f, 1e-3f);
        }
    }
}

TEST(AngleUtilsTest, foldingNeverReachesTheFullTurn)
{
    struct Case
    {
        Angle angle, expected;
    };
    const Case cases[] = { { 0, 0 },         { 1, 1 },          { -1, TWO_PI_ANGLE - 1 }, { TWO_PI_ANGLE, 0 },
                           { 7, 0.716815f }, { -7, 5.566371f }, { -TWO_PI_ANGLE, 0 },     { -1e-10f, 0 } };
    for (const Case& c : cases)
        EXPECT_NEAR(AngleUtils::getPositiveModuloValue(c.angle), c.expected, 2e-6f) << c.angle;
}

TEST(AngleUtilsTest, hugeAnglesSkipTheRounding)
{
    // The quotient has no fraction left to cut: nothing but rounding remains.
    for (const Angle huge : { 1e8f, 3e20f })
    {
        EXPECT_LT(std::abs(AngleUtils::getModuloValue(huge)), huge * 1e-6f);
        EXPECT_LT(std::abs(AngleUtils::getModuloValue(-huge)), huge * 1e-6f);
        EXPECT_LT(std::abs(AngleUtils::getPositiveModuloValue(huge)), huge * 1e-6f);
        EXPECT_LT(std::abs(AngleUtils::getPositiveModuloValue(-huge)), huge * 1e-6f);
    }
    EXPECT_TRUE(std::isnan(AngleUtils::getModuloValue(infinity)));
    EXPECT_TRUE(std::isnan(AngleUtils::getPositiveModuloValue(-infinity)));
}

TEST(AngleUtilsTest, equalityReachesAcrossTheSeam)
{
    struct Case
    {
        const char* name;
        Angle a, b;
        float tolerance;
        bool expected;
    };
    const Case cases[] = {
        { "inside", 0.25f, 0.5f, 0.25f, true },
        { "insideBeyondTolerance", 0.25f, 0.5f, 0.2499f, false },
        { "acrossSeam", 3.1f, -3.1f, 0.1f, true },
        { "acrossSeamBackwards", -3.1f, 3.1f, 0.1f, true },
        { "acrossSeamBeyondTolerance", 3.1f, -3.1f, 0.08f, false },
        { "piAndMinusPi", pi, -pi, 1e-6f, true },
        { "aTurnApart", 0.5f, 0.5f + TWO_PI_ANGLE, 1e-5f, true },
        { "turnsApart", 0.5f - 3 * TWO_PI_ANGLE, 0.5f + TWO_PI_ANGLE, 1e-5f, true },
        { "opposite", 0.5f, 0.5f + pi, 1, false },
        { "notANumber", notANumber, 0, 10, false },
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(AngleUtils::approxEqual(c.a, c.b, c.tolerance), c.expected) << c.name;
        EXPECT_NE(AngleUtils::approxDiff(c.a, c.b, c.tolerance), c.expected) << c.name;
        for (unsigned int i = 0; i < 4; ++i)
        {
            Vector4 a, b;
            a[i] = c.a;
            b[i] = c.b;
            EXPECT_EQ(AngleUtils::approxEqual(a, b, c.tolerance), c.expected) << c.name;
            EXPECT_NE(AngleUtils::approxDiff(a, b, c.tolerance), c.expected) << c.name;
            if (i == 3)
                continue;
            const Vector3 a3(a.x, a.y, a.z), b3(b.x, b.y, b.z);
            EXPECT_EQ(AngleUtils::approxEqual(a3, b3, c.tolerance), c.expected) << c.name;
            EXPECT_NE(AngleUtils::approxDiff(a3, b3, c.tolerance), c.expected) << c.name;
            EXPECT_EQ(EulerAngles::approxEqual({ a.x, a.y, a.z }, { b.x, b.y, b.z }, c.tolerance),
                      c.expected);
        }
        EXPECT_EQ(AxisAngle::approxEqual({ Vector3(), c.a }, { Vector3(), c.b }, c.tolerance), c.expected)
            << c.name;
    }
    const Vector3 axis(0, 0, 1);
    EXPECT_TRUE(AxisAngle::approxEqual({ axis, 1 }, { axis * 1.25f, 1 }, 0.25f));
    EXPECT_TRUE(AxisAngle::approxDiff({ axis, 1 }, { axis * 1.25f, 1 }, 0.2499f));
}

TEST(AngleUtilsTest, distanceIsNotWrappedAgain)
{
    EXPECT_NEAR(AngleUtils::distance(3.0f, -3.0f), -6.0f, 1e-6f);
    EXPECT_NEAR(AngleUtils::distance(0.5f, 1.0f + TWO_PI_ANGLE), 0.5f, 1e-6f);
}

TEST(AngleUtilsTest, degreesAndRadiansAreInverse)
{
    EXPECT_EQ(AngleUtils::degreeToRadian(180.0f), pi);
    EXPECT_EQ(AngleUtils::radianToDegree(pi), 180.0f);
    EXPECT_DOUBLE_EQ(AngleUtils::degreeToRadiand(90.0), std::acos(0.0));
    EXPECT_DOUBLE_EQ(AngleUtils::radianToDegreed(std::acos(0.0)), 90.0);
}

TEST(AngleUtilsTest, randomAnglesStartAtTheLowOneAndFoldTheRange)
{
    RandomNumberGenerator rng(9), words(9);
    for (int i = 0; i < 100; ++i)
    {
        EXPECT_NEAR(AngleUtils::randomAngle(rng, 0.5f, 1.5f + TWO_PI_ANGLE), words.frand() + 0.5f, 1e-6f);
        EXPECT_NEAR(AngleUtils::randomAngle(rng, -0.5f, 1.0f), words.frand() * (1.5f - TWO_PI_ANGLE) - 0.5f,
                    1e-6f);
        EXPECT_EQ(AngleUtils::randomAngle(rng), words.frand() * TWO_PI_ANGLE);
    }
}

TEST(AngleTest, betweenVectorsOfAnyLength)
{
    const Vector3 x(1, 0, 0), z(0, 0, 1);
    for (const float length : { 1.0f, 1e-6f, 1.00001f, 300.0f })
    {
        for (Angle a = 0.1f; a < 3.1f; a += 0.1f)
        {
            const Vector3 v = Vector3(std::cos(a), std::sin(a), 0.0f) * length;
            EXPECT_NEAR(angle(x, v), a, 1e-4f);
            EXPECT_NEAR(angle(x, v, z), a, 1e-4f);
            EXPECT_NEAR(angle(v, x, z), -a, 1e-4f);
            EXPECT_NEAR(angle(x, v, -z), -a, 1e-4f);
        }
        EXPECT_NEAR(angle(x, x * length), 0.0f, 2e-3f);
        EXPECT_NEAR(angle(x, -x * length), pi, 2e-3f);
    }
    EXPECT_EQ(angle(x, x), 0.0f);
    EXPECT_EQ(angle(x, -x), pi);
    EXPECT_NEAR(angle(x, Vector3()), HALF_PI_ANGLE, 1e-6f);
    // Within 1.999989e-5 of a squared length of 1 nothing is normalised.
    const Vector3 nearlyUnit(1 + 0.9e-5f, 0, 0), longer(1 + 1.1e-5f, 0, 0);
    const Vector3 turned(0.6f, 0.8f, 0);
    EXPECT_EQ(angle(nearlyUnit, turned), std::acos(nearlyUnit.dot(turned)));
    EXPECT_NE(angle(longer, turned), std::acos(longer.dot(turned)));
}

TEST(AngleTest, nearestAxisIsTheEarlierOfEqualOnes)
{
    struct Case
    {
        Vector3 v, axis;
        Angle angle;
    };
    const Case cases[] = {
        { { 1, 2, -9 }, { 0, 0, -1 }, std::atan(std::sqrt(5.0f) / 9.0f) },
        { { 0, -3, 0 }, { 0, -1, 0 }, 0.0f },
        { { 1, 1, 0 }, { 1, 0, 0 }, pi / 4.0f },
        { { -1, 1, 0 }, { 0, 1, 0 }, pi / 4.0f },
        { { 0, 0, 0 }, { 1, 0, 0 }, HALF_PI_ANGLE },
    };
    for (const Case& c : cases)
    {
        Vector3 axis = c.v;
        EXPECT_NEAR(findNearestUnitAxis(axis, axis), c.angle, 1e-3f);
        EXPECT_TRUE(isSame(axis, c.axis));
    }
}

} // namespace mrv
