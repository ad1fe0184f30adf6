// tests/math/geometry2/mrvConvexPolygon2Test.cpp
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"

#include "mrvCore/math/geometry/mrvContainment.h"
#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

namespace {

using Status = ConvexPolygon2::MrvPolygonStatus;

Array<Vector2> toArray(std::initializer_list<Vector2> points)
{
    Array<Vector2> array;
    for (const Vector2& point : points)
        array.push_back(point);
    return array;
}

} // namespace

TEST(ConvexPolygon2Test, statusIsFoundFromTheTurns)
{
    const Array<Vector2> square = toArray({ { 0, 0 }, { 1, 0 }, { 1, 1 }, { 0, 1 } });
    const Array<Vector2> clockwise = toArray({ { 0, 0 }, { 0, 1 }, { 1, 1 }, { 1, 0 } });
    const Array<Vector2> bowTie = toArray({ { 0, 0 }, { 1, 1 }, { 1, 0 }, { 0, 1 } });
    const Array<Vector2> repeated = toArray({ { 0, 0 }, { 1, 0 }, { 1, 0 }, { 1, 1 }, { 0, 1 } });
    const Array<Vector2> tiny = toArray({ { 0, 0 }, { 0.003f, 0 }, { 0, 0.003f } });
    const Array<Vector2> two = toArray({ { 0, 0 }, { 1, 0 } });
    struct Case
    {
        const char* name;
        const Array<Vector2>& vertices;
        Status::Value stored;
        bool force, computeIfUnknown;
        Status::Value expected;
    };
    const Case cases[] = {
        { "counterclockwise", square, Status::UNKNOWN, false, true, Status::CCW },
        { "clockwise", clockwise, Status::UNKNOWN, true, false, Status::CW },
        { "notAsked", square, Status::UNKNOWN, false, false, Status::UNKNOWN },
        { "storedIsBelieved", square, Status::CW, false, true, Status::CW },
        { "storedIsContradicted", square, Status::CW, true, false, Status::INVALID },
        { "invalidStays", square, Status::INVALID, true, true, Status::INVALID },
        { "bothTurns", bowTie, Status::UNKNOWN, true, true, Status::INVALID },
        { "repeatedCornerTurnsNowhere", repeated, Status::UNKNOWN, true, true, Status::CCW },
        { "turnsTooSmallToCount", tiny, Status::UNKNOWN, true, true, Status::UNKNOWN },
        { "turnsTooSmallKeepWhatIsStored", tiny, Status::CW, true, true, Status::CW },
        { "fewerThanThree", two, Status::CCW, true, false, Status::INVALID },
    };
    for (const Case& c : cases)
    {
        ConvexPolygon2 polygon;
        polygon.setVertices(c.vertices, c.stored);
        EXPECT_EQ(polygon.getStatus(c.force, c.computeIfUnknown), c.expected) << c.name;
        EXPECT_EQ(polygon._status, c.expected) << c.name;
    }
}

TEST(ConvexPolygon2Test, hullsDropWhatIsCollinear)
{
    ConvexPolygon2 polygon;
    polygon.computeConvexHull(
        toArray({ { 2, 0 }, { 0, 0 }, { 1, 0 }, { 2, 2 }, { 1, 1 }, { 0, 2 }, { 0, 0 }, { 0, 1 } }));
    const Vector2 expected[] = { { 0, 0 }, { 2, 0 }, { 2, 2 }, { 0, 2 } };
    ASSERT_EQ(polygon._vertices.size(), 4u);
    for (size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(isSame(polygon._vertices[i], expected[i])) << i;
    EXPECT_EQ(polygon.getStatus(true, true), Status::CCW);
    polygon.computeConvexHull(toArray({ { 0, 0 }, { 5, 5 } }));
    EXPECT_TRUE(polygon._vertices.empty());
    polygon.computeConvexHull(toArray({ { 0, 0 }, { notANumber, 0 }, { 1, notANumber }, { 5, 5 } }));
    EXPECT_TRUE(polygon._vertices.empty());
}

TEST(ConvexPolygon2Test, hullsHoldAllTheirPoints)
{
    RandomNumberGenerator rng;
    for (int round = 0; round < 500; ++round)
    {
        const float side = round % 2 == 0 ? 4.0f : 4096.0f; // many are in line, or few
        Array<Vector2> points;
        for (int i = 3 + round % 40; i > 0; --i)
        {
            const float x = std::floor(rng.frand() * side);
            points.push_back(Vector2(x, std::floor(rng.frand() * side)));
        }
        ConvexPolygon2 polygon;
        polygon.computeConvexHull(points);
        const size_t count = polygon._vertices.size();
        for (size_t i = 0; count > 2 && i < count; ++i)
        {
            const Vector2 a = polygon._vertices[i];
            const Vector2 edge = polygon._vertices[(i + 1) % count] - a;
            const Vector2 next = polygon._vertices[(i + 2) % count] - a;
            EXPECT_GT(edge.x * next.y - next.x * edge.y, 0.0f);
            for (const Vector2& point : points)
                EXPECT_GE(edge.x * (point.y - a.y) - (point.x - a.x) * edge.y, 0.0f);
        }
    }
}

} // namespace mrv
