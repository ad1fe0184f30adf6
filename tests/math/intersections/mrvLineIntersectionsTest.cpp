// tests/math/intersections/mrvLineIntersectionsTest.cpp
#include "mrvCore/math/intersections/mrvLineIntersections.h"

#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

TEST(LineIntersectionsTest, segmentsMeetWithTheirEndsIncluded)
{
    struct Case
    {
        const char* name;
        Segment2 a, b;
        bool expected;
    };
    const Case cases[] = {
        { "cross", { { 0, 0 }, { 2, 2 } }, { { 0, 2 }, { 2, 0 } }, true },
        { "endOnInside", { { 0, 0 }, { 2, 0 } }, { { 1, 0 }, { 1, 5 } }, true },
        { "endOnEnd", { { 0, 0 }, { 2, 0 } }, { { 2, 0 }, { 3, 5 } }, true },
        { "linesCrossBeyondFirst", { { 0, 0 }, { 2, 0 } }, { { 3, -1 }, { 3, 1 } }, false },
        { "linesCrossBeyondSecond", { { 0, 0 }, { 2, 0 } }, { { 1, 1 }, { 1, 2 } }, false },
        { "parallel", { { 0, 0 }, { 2, 0 } }, { { 0, 1 }, { 2, 1 } }, false },
        { "overlap", { { 0, 0 }, { 2, 2 } }, { { 3, 3 }, { 1, 1 } }, true },
        { "touchOnOneLine", { { 0, 0 }, { 2, 2 } }, { { 2, 2 }, { 3, 3 } }, true },
        { "apartOnOneLine", { { 0, 0 }, { 2, 2 } }, { { 3, 3 }, { 4, 4 } }, false },
        { "verticalOverlap", { { 1, 0 }, { 1, 2 } }, { { 1, 1 }, { 1, 5 } }, true },
        { "verticalApart", { { 1, 0 }, { 1, 2 } }, { { 1, 3 }, { 1, 5 } }, false },
        { "pointOnSegment", { { 0, 0 }, { 2, 2 } }, { { 1, 1 }, { 1, 1 } }, true },
        { "pointBesideSegment", { { 0, 0 }, { 2, 2 } }, { { 1, 0 }, { 1, 0 } }, false },
    };
    for (const Case& c : cases)
        EXPECT_EQ(intersection(c.a, c.b), c.expected) << c.name;
}

TEST(LineIntersectionsTest, linesCrossWhereverThatIs)
{
    Vector2 point(7, 7);
    EXPECT_FALSE(intersection({ 0, 0 }, { 1, 1 }, { 0, 1 }, { 1, 2 }, point));
    EXPECT_TRUE(isSame(point, Vector2(7, 7)));
    ASSERT_TRUE(intersection({ 0, 0 }, { 1, 0 }, { 5, 1 }, { 5, 2 }, point));
    EXPECT_TRUE(isNear(point, Vector2(5, 0)));
}

} // namespace mrv
