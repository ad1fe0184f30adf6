// tests/math/types/mrvVector2Test.cpp
#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

TEST(Vector2Test, rotationsTurnCounterclockwise)
{
    const Vector2 v(2, 1);
    EXPECT_TRUE(isNear(v.rotate(HALF_PI_ANGLE), Vector2(-1, 2)));
    EXPECT_TRUE(isSame(v.rotate(0.6f, 0.8f), Vector2(0.6f * 2 - 0.8f, 0.8f * 2 + 0.6f)));
    Vector2 out;
    v.rotate(0.3f, out);
    EXPECT_TRUE(isSame(out, v.rotate(0.3f)));
    v.rotate90(out);
    EXPECT_TRUE(isSame(out, Vector2(-1, 2)));

    Vector2 self = v;
    self.rotateSelf90();
    self.rotateSelf(0.6f, -0.8f);
    self.rotateSelf(std::acos(0.6f) - HALF_PI_ANGLE);
    EXPECT_TRUE(isNear(self, v));
}

TEST(Vector2Test, angleIsMeasuredFromX)
{
    EXPECT_EQ(Vector2(3, 0).getAngle(), 0.0f);
    EXPECT_NEAR(Vector2(0, 2).getAngle(), HALF_PI_ANGLE, 1e-6f);
    EXPECT_NEAR(Vector2(-1, -1).getAngle(), -0.75f * PI_ANGLE, 1e-6f);
    EXPECT_EQ(Vector2().getAngle(), 0.0f);
}

TEST(Vector2Test, collinearityHasAnInclusiveTolerance)
{
    struct Case
    {
        const char* name;
        Vector2 a, b;
        float tolerance;
        bool expected;
    };
    const Case cases[] = {
        { "parallel", { 1, 2 }, { -2, -4 }, 0.0f, true },
        { "crossProductAtTolerance", { 1, 0 }, { 1, 0.25f }, 0.25f, true },
        { "crossProductAbove", { 1, 0 }, { 1, -0.25f }, 0.2499f, false },
        { "nullFirst", { 0.25f, -0.25f }, { 100, 100 }, 0.25f, true },
        { "nullSecond", { 100, 100 }, { 0.25f, -0.25f }, 0.25f, true },
        { "oneComponentIsNotNull", { 0.3f, 0 }, { 0, 100 }, 0.25f, false },
    };
    for (const Case& c : cases)
        EXPECT_EQ(areCollinear(c.a, c.b, c.tolerance), c.expected) << c.name;
}

TEST(Vector2Test, lexicographicOrderIsByXThenY)
{
    EXPECT_TRUE(lexicoGraphicCompare({ 1, 9 }, { 2, 0 }));
    EXPECT_FALSE(lexicoGraphicCompare({ 2, 0 }, { 1, 9 }));
    EXPECT_TRUE(lexicoGraphicCompare({ 1, 1 }, { 1, 2 }));
    EXPECT_FALSE(lexicoGraphicCompare({ 1, 1 }, { 1, 1 }));
}

} // namespace mrv
