// tests/math/geometry2/mrvCollision2Test.cpp
#include "mrvCore/math/geometry2/mrvCollision2.h"

#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "tests/math/types/mrvMathTesting.h"

#include <algorithm>
#include <utility>

namespace mrv {

namespace {

constexpr Vector2 boxMin(0, 0);
constexpr Vector2 boxMax(4, 2);

/// True if a line along some edge parts the convex shapes: the separating axis theorem. Whole numbers make
/// it exact.
bool areParted(const std::vector<Vector2>& a, const std::vector<Vector2>& b)
{
    for (const auto* shape : { &a, &b })
        for (size_t i = 0; i < shape->size(); ++i)
        {
            const Vector2 edge = (*shape)[(i + 1) % shape->size()] - (*shape)[i];
            for (const Vector2& axis : { Vector2(-edge.y, edge.x), edge })
            {
                float min[2] = { infinity, infinity };
                float max[2] = { -infinity, -infinity };
                for (int k = 0; k < 2; ++k)
                    for (const Vector2& vertex : k == 0 ? a : b)
                    {
                        min[k] = std::min(min[k], axis.dot(vertex));
                        max[k] = std::max(max[k], axis.dot(vertex));
                    }
                if (max[0] < min[1] || max[1] < min[0])
                    return true;
            }
        }
    return false;
}

Vector2 latticePoint(RandomNumberGenerator& rng, unsigned int side)
{
    const float x = static_cast<float>(rng.rand() % side);
    return Vector2(x, static_cast<float>(rng.rand() % side));
}

} // namespace

// Corners on a small lattice touch and line up all the time. Touching counts.
TEST(Collision2Test, solidTrianglesAgreeWithSeparatingAxes)
{
    RandomNumberGenerator rng;
    int colliding = 0;
    int all = 0;
    while (all < 20000)
    {
        std::vector<Vector2> v;
        for (int k = 0; k < 6; ++k)
            v.push_back(latticePoint(rng, 7));
        const Triangle2 a(v[0], v[1], v[2]);
        const Triangle2 b(v[3], v[4], v[5]);
        if (a.isDegenerated(0.0f) || b.isDegenerated(0.0f))
            continue;
        ++all;
        const bool expected = !areParted({ v[0], v[1], v[2] }, { v[3], v[4], v[5] });
        colliding += expected;
        EXPECT_EQ(tri_tri_overlap_test_2d(v[0], v[1], v[2], v[3], v[4], v[5]), expected);
        EXPECT_EQ(areColliding(a, b, 0.0f), expected)
            << testing::PrintToString(floatsOf(v[0])) << testing::PrintToString(floatsOf(v[3]));
        EXPECT_EQ(areCollidingNoDegenerates(b, a), expected);
    }
    EXPECT_GT(colliding, all / 10);
    EXPECT_LT(colliding, all * 9 / 10);
}

TEST(Collision2Test, segmentsAndTrianglesAgreeWithSeparatingAxesOfABox)
{
    RandomNumberGenerator rng;
    const std::vector<Vector2> box = { { 3, 3 }, { 6, 3 }, { 6, 5 }, { 3, 5 } };
    for (int round = 0; round < 20000; ++round)
    {
        const Vector2 a = latticePoint(rng, 10);
        const Vector2 b = latticePoint(rng, 10);
        const Vector2 c = latticePoint(rng, 10);
        if (a == b)
            continue;
        EXPECT_EQ(areColliding(Segment2(a, b), box[0], box[2], 0.0f), !areParted({ a, b }, box));
        const Triangle2 triangle(a, b, c);
        const bool isDecided = !triangle.isDegenerated(0.0f);
        EXPECT_TRUE(!isDecided ||
                    areColliding(triangle, box[0], box[2], 0.0f) == !areParted({ a, b, c }, box))
            << "round " << round;
    }
}

TEST(Collision2Test, aTriangleThatIsAPointCollidesWhereThePointLies)
{
    const Triangle2 solid({ 0, 0 }, { 4, 0 }, { 0, 4 });
    const auto makePoint = [](float x, float y) { return Triangle2({ x, y }, { x, y }, { x, y }); };
    struct Case
    {
        const char* name;
        Triangle2 a, b;
        float tolerance;
        bool expected;
    };
    const Case cases[] = {
        { "inside", makePoint(1, 1), solid, 1e-5f, true },
        { "onTheOutline", makePoint(2, 2), solid, 1e-5f, true },
        { "inTheBoundingBoxOnly", makePoint(3, 3), solid, 1e-5f, false },
        { "secondIsThePoint", solid, makePoint(1, 1), 1e-5f, true },
        { "secondIsOutside", solid, makePoint(3, 3), 1e-5f, false },
        { "withinTolerance", makePoint(-0.5f, 1), solid, 0.5f, true },
        { "beyondTheBoxes", makePoint(-0.5f, 1), solid, 0.25f, false },
        { "bothThere", makePoint(1, 1), makePoint(1, 1), 1e-5f, true },
        { "bothApart", makePoint(1, 1), makePoint(1, 2), 1e-5f, false },
    };
    for (const Case& c : cases)
        EXPECT_EQ(areColliding(c.a, c.b, c.tolerance), c.expected) << c.name;
}

TEST(Collision2Test, boxesTouchUpToTheTolerance)
{
    const auto collide = [](const Vector2& offset, float tolerance) {
        return areColliding(boxMin, boxMax, boxMin + offset, boxMax + offset, tolerance);
    };
    for (const float sign : { -1.0f, 1.0f })
    {
        EXPECT_TRUE(collide({ 4 * sign, 2 * sign }, 0.0f));
        EXPECT_TRUE(collide({ 4.5f * sign, 0 }, 0.5f));
        EXPECT_FALSE(collide({ 4.5f * sign, 0 }, 0.25f));
        EXPECT_TRUE(collide({ 0, 2.5f * sign }, 0.5f));
        EXPECT_FALSE(collide({ 0, 2.5f * sign }, 0.25f));
    }
}

} // namespace mrv
