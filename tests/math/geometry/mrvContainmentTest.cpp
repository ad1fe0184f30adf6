// tests/math/geometry/mrvContainmentTest.cpp
#include "mrvCore/math/geometry/mrvContainment.h"

#include "mrvCore/math/geometry2/mrvBox2.h"
#include "mrvCore/math/geometry2/mrvCircle2.h"
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "tests/math/types/mrvMathTesting.h"

#include <functional>

namespace mrv {

namespace {

Array<Vector2> makeCup()
{
    Array<Vector2> cup; // open above: not convex
    for (const Vector2& v :
         { Vector2(0, 0), { 6, 0 }, { 6, 6 }, { 4, 6 }, { 4, 2 }, { 2, 2 }, { 2, 6 }, { 0, 6 } })
        cup.push_back(v);
    return cup;
}

ConvexPolygon2 makePolygon(std::initializer_list<Vector2> vertices)
{
    ConvexPolygon2 polygon;
    for (const Vector2& vertex : vertices)
        polygon._vertices.push_back(vertex);
    return polygon;
}

const Array<Vector2> cup = makeCup();
const Circle2 circle({ 1, 1 }, 2.0f, false);
const Box2 box({ 4, 2 }, { 0, 0 }, 0.0f);
const Box2 turned({ 4, 2 }, { 0, 0 }, HALF_PI_ANGLE);
const Box2 mirrored({ -4, 2 }, { 0, 0 }, 0.0f);
const Triangle2 triangle({ 0, 0 }, { 0, 4 }, { 4, 0 }); // clockwise
const Triangle2 flat({ 0, 0 }, { 4, 0 }, { 2, 0 });
const ConvexPolygon2 diamond = makePolygon({ { 2, 0 }, { 4, 2 }, { 2, 4 }, { 0, 2 } });
const ConvexPolygon2 stick = makePolygon({ { 0, 0 }, { 4, 0 } });

struct ContainmentCase
{
    const char* name;
    std::function<bool(const Vector2&, float)> contains;
    Vector2 inside, onOutline, nearby; ///< the last at a distance of 0.5
    Vector2 outside;
};

template <typename Shape>
auto in(const Shape& shape)
{
    return [&shape](const Vector2& point, float tolerance) { return contains(shape, point, tolerance); };
}

bool inCup(const Vector2& point, float tolerance)
{
    return containsInPolygon(cup.begin(), cup.size(), point, tolerance);
}

const ContainmentCase containmentCases[] = {
    { "circle", in(circle), { 2, 2 }, { 3, 1 }, { 1, 3.5f }, { 3, 3 } },
    { "box", in(box), { 1, 1 }, { 4, 1 }, { 4.5f, 2.5f }, { 5, 1 } },
    { "turnedBox", in(turned), { -1, 3 }, { -1, 4 }, { -1, 4.5f }, { 1, 1 } },
    { "boxOfNegativeSize", in(mirrored), { -3, 1 }, { -4, 1 }, { -4.5f, 1 }, { 1, 1 } },
    { "triangle", in(triangle), { 1, 1 }, { 2, 2 }, { -0.5f, 1 }, { 3, 3 } },
    { "flatTriangle", in(flat), { 1, 0 }, { 4, 0 }, { 3, 0.5f }, { 3, 1 } },
    { "polygon", in(diamond), { 2, 2 }, { 1, 1 }, { 4.5f, 2 }, { 4, 4 } },
    { "cup", inCup, { 1, 5 }, { 3, 2 }, { 3, 2.5f }, { 3, 5 } },
};

} // namespace

class Containment : public testing::TestWithParam<ContainmentCase>
{};

TEST_P(Containment, countsTheOutlineAndTheToleranceIn)
{
    const ContainmentCase& c = GetParam();
    for (const float tolerance : { 0.0f, 0.4f })
    {
        EXPECT_TRUE(c.contains(c.inside, tolerance));
        EXPECT_TRUE(c.contains(c.onOutline, tolerance + 1e-6f));
        EXPECT_FALSE(c.contains(c.nearby, tolerance));
        EXPECT_FALSE(c.contains(c.outside, tolerance));
        EXPECT_FALSE(c.contains({ notANumber, 1 }, tolerance));
    }
    EXPECT_TRUE(c.contains(c.nearby, 0.500001f));
}

INSTANTIATE_TEST_SUITE_P(Table, Containment, testing::ValuesIn(containmentCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ContainmentTest, polygonsOfTooFewVerticesHoldNothing)
{
    EXPECT_FALSE(contains(stick, { 1, 0 }, 1.0f));
    EXPECT_FALSE(contains(Array<Vector2>(), Vector2()));
    EXPECT_TRUE(contains(cup, { 5, 5 }));
    EXPECT_FALSE(contains(cup, { 3, 5 }));
}

} // namespace mrv
