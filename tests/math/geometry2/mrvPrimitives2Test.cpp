// tests/math/geometry2/mrvPrimitives2Test.cpp
// Lines, segments, boxes, circles and triangles of the plane.
#include "mrvCore/math/geometry/mrvContainment.h"
#include "mrvCore/math/geometry2/mrvBox2.h"
#include "mrvCore/math/geometry2/mrvCircle2.h"
#include "mrvCore/math/geometry2/mrvLine2.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "tests/math/types/mrvMathTesting.h"
#include "tests/support/mrvCoreFixture.h"

#include <csignal>
#include <string>

namespace mrv {

TEST(Line2Test, sidesDistancesAndProjections)
{
    const Line2 line(Vector2(1, 0), Vector2(1, 5)); // upwards
    EXPECT_FLOAT_EQ(line._a * 1.0f + line._b * 3.0f + line._c, 0.0f);
    EXPECT_TRUE(isNear(line.getNormalizedNormalVector(), Vector2(-1, 0)));
    EXPECT_TRUE(isNear(line.getNormalizedDirectionVector(), Vector2(0, 1)));
    EXPECT_NEAR(line.signedDistance({ -2, 9 }), 3.0f, 1e-6f);
    EXPECT_NEAR(Line2(line._p2, line._p1).signedDistance({ -2, 9 }), -3.0f, 1e-6f);
    EXPECT_TRUE(isNear(line.projection({ -2, 9 }), Vector2(1, 9)));
    EXPECT_TRUE(isNear(line.projectionNormal({ -2, 9 }), Vector2(-3, 0)));
    EXPECT_TRUE(line.onSameSide({ 2, 0 }, { 9, 9 }));
    EXPECT_FALSE(line.onSameSide({ 2, 0 }, { 0, 0 }));
    EXPECT_FALSE(line.onSameSide({ 1, 7 }, { 2, 0 }));
    EXPECT_TRUE(line.contains({ 1.25f, -4 }, 0.25f));
    EXPECT_FALSE(line.contains({ 1.25f, -4 }, 0.2499f));
    EXPECT_TRUE(line.parallel(Line2({ 9, 9 }, { 9, -9 })));
    EXPECT_FALSE(line.parallel(Line2({ 0, 0 }, { 1, 5 })));
}

TEST(Segment2Test, theFirstEndDoesNotProjectAndTheSecondDoes)
{
    const Segment2 segment({ 1, 1 }, { 5, 1 });
    struct Case
    {
        Vector2 point, closest;
        bool projects;
        Segment2::Side side;
    };
    const Case cases[] = {
        { { 0, 3 }, { 1, 1 }, false, Segment2::positiveSide },
        { { 1, 0 }, { 1, 1 }, false, Segment2::negativeSide },
        { { 3, 0 }, { 3, 1 }, true, Segment2::negativeSide },
        { { 5, 4 }, { 5, 1 }, true, Segment2::positiveSide },
        { { 6, 1 }, { 5, 1 }, false, Segment2::onLine },
    };
    for (const Case& c : cases)
    {
        EXPECT_TRUE(isSame(segment.closestPoint(c.point), c.closest));
        EXPECT_EQ(segment.projectsOn(c.point), c.projects) << c.point.x;
        EXPECT_EQ(segment.side(c.point), c.side) << c.point.x;
    }
    const Segment2 null({ 1, 1 }, { 1, 1 });
    EXPECT_TRUE(isSame(null.closestPoint({ 3, 3 }), Vector2(1, 1)));
    EXPECT_FALSE(null.projectsOn({ 3, 3 }));
}

TEST(Segment2Test, tolerancesAreInclusive)
{
    const Segment2 segment({ 0, 0 }, { 0.25f, -0.25f });
    EXPECT_TRUE(segment.isDegenerated(0.25f));
    EXPECT_FALSE(segment.isDegenerated(0.2499f));
    const Segment2 level({ 0, 0 }, { 4, 0 });
    EXPECT_TRUE(level.contains({ 4.5f, 0 }, 1.0f)); // there and back
    EXPECT_FALSE(level.contains({ 4.5f, 0 }, 0.99f));
    EXPECT_TRUE(level.approxEqual(Segment2({ 0.5f, 0 }, { 4, -0.5f }), 0.5f));
    EXPECT_FALSE(level.approxEqual(Segment2({ 4, 0 }, { 0, 0 }), 0.5f));
}

TEST(Segment2Test, extentAndOrder)
{
    const Segment2 segment({ 3, 1 }, { 3, -2 });
    Vector2 min, max;
    segment.getBoundingBox(min, max);
    EXPECT_TRUE(isSame(min, Vector2(3, -2)));
    EXPECT_TRUE(isSame(max, Vector2(3, 1)));
    EXPECT_TRUE(segment.isVertical());
    EXPECT_FALSE(segment.isHorizontal());
    EXPECT_TRUE(isSame(segment.getCenter(), Vector2(3, -0.5f)));
    EXPECT_TRUE(isNear(segment.getNormalizedVector(), Vector2(0, -1)));
    EXPECT_EQ(segment.getLength(), 3.0f);
    EXPECT_TRUE(segment < Segment2({ 3, 1 }, { 3, 0 }));
    EXPECT_TRUE(Segment2({ 2, 9 }, { 9, 9 }) < segment);
    EXPECT_FALSE(segment < segment);
    EXPECT_NEAR(segment.getLine().signedDistance({ 4, 0 }), 1.0f, 1e-6f); // left of downwards
}

TEST(Box2Test, cornersTurnAboutTheFirst)
{
    Box2 box({ 4, 2 }, { 10, 20 }, 0.0f);
    box.setRotation(HALF_PI_ANGLE);
    EXPECT_NEAR(box.getCosRotation(), 0.0f, 1e-6f);
    EXPECT_EQ(box.getSinRotation(), 1.0f);
    const Vector2 corners[] = { { 10, 20 }, { 10, 24 }, { 8, 24 }, { 8, 20 } };
    for (int quadrant = Quadrant::BEGIN; quadrant < Quadrant::END; ++quadrant)
        EXPECT_TRUE(isNear(box.getVertex(static_cast<Quadrant::Value>(quadrant)), corners[quadrant], 1e-5f));
    EXPECT_TRUE(isNear(box.getPositionFromUV(0.5f, 0.25f), Vector2(9.5f, 22), 1e-5f));
    EXPECT_TRUE(isNear(box.getPositionFromUV(1, 1), box.getVertex(Quadrant::NE), 1e-5f));
}

using Box2LogTest = CoreTest;

TEST_F(Box2LogTest, anUnknownQuadrantIsLogged)
{
    std::string text;
    CallbackLogger logger;
    logger.registerCallback(
        [](const char* message, void* out) { *static_cast<std::string*>(out) += message; }, &text);
    Box2().getVertex(Quadrant::END);
    EXPECT_EQ(text, "Maravo [ERROR] - 4 is an unknown quadrant.\n");
}

TEST(Circle2Test, tangentsTouchAndStandOnTheRadius)
{
    const Circle2 circle({ 1, 2 }, 2.0f, false);
    EXPECT_EQ(Circle2(4.0f, true).getRadius(), circle.getRadius());
    Vector2 first(7, 7), second(7, 7);
    for (const Vector2& inside : { Vector2(1, 2), Vector2(3, 2), Vector2(3.000009f, 2) })
        EXPECT_FALSE(circleTangents(circle, inside, first, second));
    EXPECT_TRUE(isSame(first, Vector2(7, 7)));
    const Vector2 point(6, 2);
    ASSERT_TRUE(circleTangents(circle, point, first, second));
    for (const Vector2& tangent : { first, second })
    {
        const Vector2 radius = tangent - circle._center;
        EXPECT_NEAR(radius.norm(), 2.0f, 1e-5f);
        EXPECT_NEAR(radius.dot(tangent - point), 0.0f, 1e-5f);
        EXPECT_NEAR(radius.x, 4.0f / 5.0f, 1e-6f);
    }
    EXPECT_GT(first.y, second.y);
}

TEST(Circle2Test, randomPointsAreUniformOverTheDisc)
{
    const Circle2 circle({ 3, -1 }, 2.0f, false);
    RandomNumberGenerator rng;
    RandomNumberGenerator same;
    const float distance = 2.0f * std::sqrt(same.frand()); // distance first, then angle
    const float angle = same.frand() * TWO_PI_ANGLE;
    EXPECT_TRUE(isNear(circle.randomPoint(rng),
                       Vector2(3 + distance * std::cos(angle), -1 + distance * std::sin(angle)), 1e-5f));
    int inHalfArea = 0;
    int above = 0;
    for (int i = 0; i < 10000; ++i)
    {
        const Vector2 point = circle.randomPoint(rng);
        EXPECT_TRUE(contains(circle, point, 1e-5f));
        inHalfArea += (point - circle._center).norm2() < 2.0f;
        above += point.y > -1.0f;
    }
    EXPECT_NEAR(inHalfArea, 5000, 200);
    EXPECT_NEAR(above, 5000, 200);
}

TEST(Triangle2Test, measures)
{
    const Triangle2 triangle({ 0, 0 }, { 4, 0 }, { 0, 3 });
    EXPECT_FLOAT_EQ(triangle.computeHeight(0), 2.4f);
    EXPECT_FLOAT_EQ(triangle.computeHeight(1), 4.0f);
    EXPECT_FLOAT_EQ(triangle.computeHeight(2), 3.0f);
    EXPECT_FLOAT_EQ(triangle.computeSurface(), 6.0f);
    EXPECT_FLOAT_EQ(Triangle2({ 0, 3 }, { 4, 0 }, { 0, 0 }).computeSurface(), 6.0f);
    EXPECT_EQ(Triangle2({ 3, 4 }, { 0, 0 }, { 0, 0 }).computeHeight(0), 5.0f);
    EXPECT_EQ(Triangle2::getNullTriangle().computeSurface(), 0.0f);
    Segment2 edge;
    triangle.computeEdge(2, edge);
    EXPECT_EQ(edge, Segment2({ 0, 3 }, { 0, 0 }));
    EXPECT_EXIT(triangle.computeHeight(3), testing::KilledBySignal(SIGTRAP), "height 3");
}

TEST(Triangle2Test, theSecondPassOfTheBarycenterWinsPrecision)
{
    const Triangle2 triangle({ 16000001, 0 }, { 16000002, 0 }, { 16000003, 3 });
    Vector2 plain, refined;
    triangle.computeBarycenter(plain, false);
    triangle.computeBarycenter(refined, true);
    EXPECT_EQ(refined.x, 16000002.0f);
    EXPECT_EQ(refined.y, 1.0f);
    EXPECT_LE(std::abs(refined.x - 16000002.0f), std::abs(plain.x - 16000002.0f));
}

TEST(Triangle2Test, degeneracies)
{
    struct Case
    {
        const char* name;
        Triangle2 triangle;
        float tolerance;
        bool isPoint, isDegenerated;
    };
    const Case cases[] = {
        { "solid", { { 0, 0 }, { 1, 0 }, { 0, 1 } }, 0.1f, false, false },
        { "pointAtTolerance", { { 1, 1 }, { 1.25f, 0.75f }, { 1, 1.25f } }, 0.25f, true, true },
        { "pointAboveTolerance", { { 1, 1 }, { 1.25f, 0.75f }, { 1, 1.25f } }, 0.01f, false, false },
        { "oneCornerAway", { { 1, 1 }, { 1, 1 }, { 9, 1 } }, 0.25f, false, true },
        { "line", { { 0, 0 }, { 2, 2 }, { 1, 1 } }, 0.0f, false, true },
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(c.triangle.isPoint(c.tolerance), c.isPoint) << c.name;
        EXPECT_EQ(c.triangle.isDegenerated(c.tolerance), c.isDegenerated) << c.name;
    }
}

TEST(Triangle2Test, randomPositionsLieInsideAndFavourTheFirstVertex)
{
    const Triangle2 triangle({ 0, 0 }, { 1, 0 }, { 0, 1 });
    RandomNumberGenerator rng;
    float far = 0.0f; // the weight of the other two vertices
    for (int i = 0; i < 10000; ++i)
    {
        Vector2 point;
        triangle.computeRandomPosition(rng, point);
        EXPECT_TRUE(contains(triangle, point, 1e-6f));
        far += point.x + point.y;
    }
    EXPECT_NEAR(far / 10000.0f, 0.5f, 0.01f); // it would be 2/3 if they were uniform
}

} // namespace mrv
