// tests/math/delaunay/mrvDelaunay2Test.cpp
#include "tests/math/delaunay/mrvPlainDelaunay.h"
#include "tests/math/delaunay/mrvPointSets.h"

#include "mrvCore/math/geometry/mrvDistance.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "tests/math/types/mrvMathTesting.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

namespace mrv {

namespace {

/// What rounding does to a set.
enum class Rounding {
    HARMLESS,
    CONTRADICTORY, ///< plain insertion ends, or leaves triangles that turn clockwise
    ALL            ///< and circles mean nothing
};

struct PointSet
{
    const char* name;
    std::function<Points()> make;
    Rounding rounding;
};

const PointSet pointSets[] = {
    { "three", [] { return makeUniform(3, 1); }, Rounding::HARMLESS },
    { "four", [] { return makeUniform(4, 2); }, Rounding::HARMLESS },
    { "random", [] { return makeUniform(2000, 3); }, Rounding::HARMLESS },
    { "randomBeyondTheCaches", [] { return makeUniform(40000, 4); }, Rounding::HARMLESS },
    { "square", [] { return makeGrid(2, 0.0f); }, Rounding::HARMLESS },
    { "grid", [] { return makeGrid(60, 0.0f); }, Rounding::HARMLESS },
    { "smallTurnedGrid", [] { return makeGrid(10, 0.5f); }, Rounding::HARMLESS },
    { "turnedGrid", [] { return makeGrid(40, 0.1f); }, Rounding::CONTRADICTORY },
    { "gridOnItsCorner", [] { return makeGrid(40, 0.785398f); }, Rounding::CONTRADICTORY },
    { "circleInOrder", [] { return makeCircle(1000, 1); }, Rounding::HARMLESS },
    { "circleAcross", [] { return makeCircle(2000, 919); }, Rounding::HARMLESS },
    { "polygon", [] { return makeCircle(12, 5); }, Rounding::HARMLESS },
    { "smallLattice", [] { return makeLattice(500, 9, 5); }, Rounding::HARMLESS },
    { "lattice", [] { return makeLattice(3000, 64, 6); }, Rounding::HARMLESS },
    { "kinkedLine", [] { return makeKinkedLine(500, 0.01f); }, Rounding::CONTRADICTORY },
    { "kinkedFarLine", [] { return makeKinkedLine(2000, 1.0f); }, Rounding::CONTRADICTORY },
    { "lineWithOneOff", [] { return makeLineWithOneOff(500); }, Rounding::CONTRADICTORY },
    { "nearlyCoincident", [] { return makeNearlyCoincident(1000, 7); }, Rounding::ALL },
    { "allTwice",
      [] {
          Points points = makeUniform(300, 8);
          points.insert(points.end(), points.begin(), points.begin() + 300);
          return points;
      },
      Rounding::HARMLESS },
};

class Delaunay2Sets : public testing::TestWithParam<PointSet>
{};

/// Exact: products of two differences of working coordinates lose nothing that could turn the sign.
bool turnsClockwise(const Vector2& a, const Vector2& b, const Vector2& c)
{
    return (double(b.x) - double(a.x)) * (double(c.y) - double(a.y)) <
           (double(c.x) - double(a.x)) * (double(b.y) - double(a.y));
}

bool anyTurnsClockwise(const Points& points, const std::vector<int>& indices)
{
    for (size_t entry = 0; entry < indices.size(); entry += 3)
        if (turnsClockwise(points[static_cast<size_t>(indices[entry])],
                           points[static_cast<size_t>(indices[entry + 1])],
                           points[static_cast<size_t>(indices[entry + 2])]))
            return true;
    return false;
}

} // namespace

TEST_P(Delaunay2Sets, isDelaunayByGeometryAlone)
{
    const Triangulation result = toTriangulation(*triangulate(GetParam().make()));
    EXPECT_TRUE(GetParam().rounding == Rounding::ALL ? isTriangulation(result)
                                                     : isDelaunayTriangulation(result));
}

// Hints, the set of points seen, the grid and the scouts must not show. Where plain insertion comes to grief,
// the library goes on alone.
TEST_P(Delaunay2Sets, isNumberedAsPlainInsertionDoes)
{
    const Points points = GetParam().make();
    const Points working = toWorkingPoints(points);
    const PlainDelaunay plain(working);
    const bool isContradictory = plain.hasFailed() || anyTurnsClockwise(working, plain.indices);
    ASSERT_EQ(isContradictory, GetParam().rounding != Rounding::HARMLESS);
    if (isContradictory)
        return;
    const Triangulation result = toTriangulation(*triangulate(points));
    EXPECT_EQ(result.indices, plain.indices);
    EXPECT_EQ(result.adjacencies, plain.adjacencies);
}

TEST_P(Delaunay2Sets, theHullIsOneClosedConvexRing)
{
    const auto delaunay = triangulate(GetParam().make());
    unsigned int count = 0;
    int* edges = nullptr;
    ASSERT_TRUE(delaunay->getHull(count, edges));
    std::map<int, int> next;
    for (unsigned int k = 0; k < count; ++k)
        next[edges[2 * k]] = edges[2 * k + 1];
    EXPECT_EQ(next.size(), count); // no vertex begins two edges
    unsigned int length = 1;
    for (int vertex = next[edges[0]]; vertex != edges[0] && length <= count; vertex = next[vertex])
        ++length;
    EXPECT_EQ(length, count);
    std::free(edges);
}

TEST_P(Delaunay2Sets, searchesFindATriangleThatHoldsThePoint)
{
    const auto delaunay = triangulate(GetParam().make());
    Delaunay2::Information info;
    Delaunay2::getInformation(static_cast<unsigned int>(delaunay->getVerticesCount()),
                              delaunay->getVertices(), 0.0f, info);
    PointDraw draw(11);
    for (int k = 0; k < 200; ++k)
    {
        // The barycenter of any triangle lies in the hull, or next to it.
        Triangle2 triangle;
        ASSERT_TRUE(delaunay->getVertexSet(draw.below(delaunay->getSimplicesCount()), triangle._vertices));
        Vector2 point;
        triangle.computeBarycenter(point, true);
        const int found = delaunay->getContainingTriangle(point);
        if (!delaunay->getVertexSet(found, triangle._vertices))
        {
            int v0, v1;
            ASSERT_TRUE(delaunay->getHullClosestEdge(point, v0, v1));
            const Segment2 edge(delaunay->getVertices()[v0], delaunay->getVertices()[v1]);
            EXPECT_LT(std::sqrt(distance2(point, edge)), 1e-6f * info._maxRange) << "point " << k;
            continue;
        }
        EXPECT_LT(distance(triangle, point), 1e-6f * info._maxRange) << "point " << k;
        EXPECT_EQ(delaunay->getPath()[delaunay->getPathLast()], found);
        EXPECT_EQ(delaunay->getContainingTriangle(point), found);
        EXPECT_EQ(delaunay->getPathLast(), 0) << "the search did not begin where the last one ended";
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Delaunay2Sets, testing::ValuesIn(pointSets),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Delaunay2Test, theFourthCornerOfASquareIsNotInTheCircle)
{
    const auto delaunay = triangulate({ { 2, 2 }, { 4, 2 }, { 2, 4 }, { 4, 4 }, { 4, 2 } });
    EXPECT_EQ(delaunay->getVerticesCount(), 5);
    EXPECT_EQ(delaunay->getUniqueVerticesCount(), 4u);
    ASSERT_EQ(delaunay->getSimplicesCount(), 2);
    int shared = 0;
    for (int k = 0; k < 2; ++k)
    {
        int v[3];
        int neighbours[3];
        ASSERT_TRUE(delaunay->getIndexSet(k, v));
        ASSERT_TRUE(delaunay->getAdjacentSet(k, neighbours));
        for (int j = 0; j < 3; ++j)
            if (neighbours[j] != -1)
            {
                EXPECT_EQ(neighbours[j], 1 - k);
                EXPECT_EQ(v[j] + v[(j + 1) % 3], 3) << "the diagonal is that of the first three points";
                EXPECT_NE(v[j] * v[(j + 1) % 3], 0);
                ++shared;
            }
    }
    EXPECT_EQ(shared, 2);
}

TEST(Delaunay2Test, searchesOutsideNameTheEdgeThatTheyLeftOver)
{
    const auto delaunay = triangulate({ { 0, 0 }, { 10, 0 }, { 0, 10 } });
    struct Case
    {
        Vector2 point;
        int found;
        int edge[4]; ///< both ends, opposite vertex, its place
    };
    const int first = *delaunay->getIndices(); // the triangle may begin with any corner
    const auto placeOf = [first](int vertex) { return (vertex - first + 3) % 3; };
    const Case cases[] = {
        { { 2, 2 }, 0, { -1, -1, -1, -1 } },         { { 0, 0 }, 0, { -1, -1, -1, -1 } },
        { { 5, -1 }, -1, { 0, 1, 2, placeOf(2) } },  { { 9, 9 }, -1, { 1, 2, 0, placeOf(0) } },
        { { -1, 5 }, -1, { 2, 0, 1, placeOf(1) } },  { { notANumber, 1 }, -1, { -1, -1, -1, -1 } },
        { { 1, infinity }, -1, { -1, -1, -1, -1 } }, { { 3e38f, 3e38f }, -1, { 1, 2, 0, placeOf(0) } },
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(delaunay->getContainingTriangle(c.point), c.found)
            << testing::PrintToString(floatsOf(c.point));
        int v0, v1, opposite;
        EXPECT_EQ(delaunay->getLastEdge(v0, v1, opposite), c.edge[3]);
        EXPECT_EQ(v0, c.edge[0]);
        EXPECT_EQ(v1, c.edge[1]);
        EXPECT_EQ(opposite, c.edge[2]);
    }
}

TEST(Delaunay2Test, closestThingsAreTheFirstOfEquallyCloseOnes)
{
    const auto delaunay = triangulate({ { 0, 0 }, { 4, 0 }, { 4, 4 }, { 0, 4 }, { 4, 0 } });
    EXPECT_EQ(delaunay->getClosestVertex({ 5, 0 }), 1);
    EXPECT_EQ(delaunay->getClosestVertex({ 2, 5 }), 2);
    EXPECT_EQ(delaunay->getClosestVertex({ notANumber, 0 }), -1);
    int v0 = -1, v1 = -1;
    ASSERT_TRUE(delaunay->getHullClosestEdge({ 2, 3 }, v0, v1));
    EXPECT_EQ(v0, 2);
    EXPECT_EQ(v1, 3);
    EXPECT_FALSE(delaunay->getHullClosestEdge({ 2, infinity }, v0, v1));
    EXPECT_EQ(v0, 2);
}

TEST(Delaunay2Test, setsOfTrianglesThatDoNotExistWriteNothing)
{
    const auto delaunay = triangulate({ { 0, 0 }, { 1, 0 }, { 0, 1 } });
    const auto line = triangulate({ { 0, 0 }, { 1, 1 }, { 2, 2 } });
    for (const auto& [triangulation, index] : { std::pair(&*delaunay, -1), { &*delaunay, 1 }, { &*line, 0 } })
    {
        Vector2 corners[3];
        int numbers[3] = { 7, 7, 7 };
        float weights[3] = { 7, 7, 7 };
        EXPECT_FALSE(triangulation->getVertexSet(index, corners));
        EXPECT_FALSE(triangulation->getIndexSet(index, numbers));
        EXPECT_FALSE(triangulation->getAdjacentSet(index, numbers));
        EXPECT_FALSE(triangulation->getBarycentricSet(index, Vector2(), weights));
        EXPECT_EQ(corners[0], Vector2());
        EXPECT_EQ(numbers[0], 7);
        EXPECT_EQ(weights[0], 7.0f);
    }
    float weights[3];
    ASSERT_TRUE(delaunay->getBarycentricSet(0, { 0.25f, 0.5f }, weights));
    const int* const v = delaunay->getIndices();
    for (int j = 0; j < 3; ++j)
        EXPECT_EQ(weights[j], v[j] == 2 ? 0.5f : 0.25f);
}

TEST(Delaunay2Test, dimensionTellsDegenerateSets)
{
    constexpr float denormal = 1e-40f;
    struct Case
    {
        const char* name;
        Points points;
        float epsilon;
        int dimension, simplices;
        unsigned int unique;
    };
    const Case cases[] = {
        { "one", { { 3, 3 } }, 1e-6f, 0, 0, 0 },
        { "oneTwice", { { 3, 3 }, { 3, 3 } }, 1e-6f, 0, 0, 0 },
        { "rangeBelowEpsilon", { { 3, 3 }, { 3.25f, 3 }, { 3, 3.25f } }, 0.5f, 0, 0, 0 },
        { "rangeIsEpsilon", { { 3, 3 }, { 3.5f, 3 }, { 3, 3.5f } }, 0.5f, 2, 1, 3 },
        { "two", { { 0, 0 }, { 1, 2 } }, 1e-6f, 1, 0, 0 },
        { "collinear", { { 0, 0 }, { 1, 1 }, { 5, 5 }, { 3, 3 } }, 1e-6f, 1, 0, 0 },
        { "almostCollinear", { { 0, 0 }, { 8, 0.0625f }, { 16, 0 } }, 0.01f, 1, 0, 0 },
        { "notQuiteCollinear", { { 0, 0 }, { 8, 0.25f }, { 16, 0 } }, 0.01f, 2, 1, 3 },
        { "oneWithoutEpsilon", { { 3, 3 } }, 0.0f, 2, 0, 0 },
        { "twoWithoutEpsilon", { { 3, 3 }, { 4, 5 } }, 0.0f, 2, 0, 2 },
        { "collinearWithoutEpsilon", { { 0, 0 }, { 1, 1 }, { 4, 4 } }, 0.0f, 2, 0, 3 },
        { "noNumbers", { { notANumber, 0 }, { 0, infinity }, { -infinity, 3 } }, 1e-6f, 0, 0, 0 },
        { "noNumberAmongThree", { { 0, 0 }, { notANumber, 1 }, { 1, 0 }, { 0, 1 } }, 1e-6f, 2, 1, 3 },
        { "huge", { { 0, 0 }, { 1e18f, 0 }, { 0, 1e18f } }, 1e-6f, 2, 1, 3 },
        { "rangeIsNoFloat", { { -3e38f, 0 }, { 3e38f, 0 }, { 0, 3e38f } }, 1e-6f, 1, 0, 0 },
        { "tiny", { { 0, 0 }, { 1e-15f, 0 }, { 0, 1e-15f } }, 1e-16f, 2, 1, 3 },
        { "scaleIsNoFloat", { { 0, 0 }, { denormal, 0 }, { 0, denormal } }, 0.0f, 2, 0, 0 },
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        const auto delaunay = triangulate(c.points, c.epsilon);
        EXPECT_EQ(delaunay->getDimension(), c.dimension);
        EXPECT_EQ(delaunay->getSimplicesCount(), c.simplices);
        EXPECT_EQ(delaunay->getUniqueVerticesCount(), c.unique);
        EXPECT_EQ(delaunay->getVerticesCount(), static_cast<int>(c.points.size()));
        EXPECT_EQ(delaunay->getContainingTriangle(c.points[0]), c.simplices == 0 ? -1 : 0);
    }
}

TEST(Delaunay2Test, aLineBeginsAtTheFirstExtremeOfTheLongerAxis)
{
    const auto delaunay = triangulate({ { 1, 4 }, { 0, 0 }, { 2, 8 }, { 2, 8 } });
    EXPECT_EQ(delaunay->getLineOrigin(), Vector2(0, 0));
    EXPECT_TRUE(isNear(delaunay->getLineDirection(), Vector2(2, 8) / std::sqrt(68.0f)));

    const Vector2 points[] = { { 1, 1 }, { 5, 2 }, { 5, 0 }, { 0, 1 }, { 0, 2 }, { 2, -1 } };
    Delaunay2::Information info;
    Delaunay2::getInformation(6, points, 1e-6f, info);
    EXPECT_EQ(info._dimension, 2);
    EXPECT_EQ(info._maxRange, 5.0f);
    EXPECT_EQ(info._extreme[0], 3);
    EXPECT_EQ(info._extreme[1], 1);
    EXPECT_EQ(info._extreme[2], 5);
    EXPECT_FALSE(info._extremeCCW);
    EXPECT_EQ(info._min[1], -1.0f);
    EXPECT_EQ(info._max[1], 2.0f);
    EXPECT_EQ(info._direction[1], Vector2(-info._direction[0].y, info._direction[0].x));
}

// Small sets of few different coordinates reach the corners of the predicates; some are not finite.
TEST(Delaunay2Test, anySmallSetGivesATriangulationOrNone)
{
    const float odd[] = { 0.0f,  1.0f,   1.0f + 0x1p-23f, 0.5f,       0x1p-24f,
                          3e38f, -3e38f, 1e-40f,          notANumber, infinity };
    PointDraw draw(12);
    for (int round = 0; round < 3000; ++round)
    {
        const int kinds = 3 + draw.below(8); // the worse kinds come later
        Points points;
        for (int i = 1 + draw.below(12); i > 0; --i)
        {
            const float x = odd[draw.below(kinds)];
            points.emplace_back(x, odd[draw.below(kinds)]);
        }
        const auto delaunay = triangulate(points, round % 2 == 0 ? 0.0f : 1e-6f);
        const bool isOrdinary = kinds <= 5 && delaunay->getSimplicesCount() > 0;
        EXPECT_TRUE(!isOrdinary || isTriangulation(toTriangulation(*delaunay))) << "round " << round;
        const int found = delaunay->getContainingTriangle(points[0]);
        EXPECT_LT(found, std::max(1, delaunay->getSimplicesCount()));
    }
}

TEST(Delaunay2DeathTest, callersFaultsEndTheProcess)
{
    const auto construct = [](unsigned int count, float epsilon, DelaunayQuery::Type::Values type) {
        Delaunay2(count, new Vector2[4]{ { 0, 0 }, { 1, 0 }, { 0, 1 }, { 1, 1 } }, epsilon, type);
    };
    const auto line = triangulate({ { 0, 0 }, { 1, 1 } });
    const auto flat = triangulate({ { 0, 0 }, { 1, 1 } }, 0.0f);
    unsigned int count = 0;
    int* indices = nullptr;
    int v0, v1;
    const auto trap = testing::KilledBySignal(SIGTRAP);
    EXPECT_EXIT(construct(0, 0.0f, DelaunayQuery::Type::REAL), trap, "Invalid inputs");
    EXPECT_EXIT(construct(4, -1.0f, DelaunayQuery::Type::REAL), trap, "_verticesCount > 0 && _epsilon >= 0");
    for (const auto type : { DelaunayQuery::Type::INT64, DelaunayQuery::Type::INTEGER,
                             DelaunayQuery::Type::RATIONAL, DelaunayQuery::Type::FILTERED })
        EXPECT_EXIT(construct(4, 0.0f, type), trap, "Only the query type REAL");
    EXPECT_EXIT(line->getHull(count, indices), trap, "The dimension must be 2");
    EXPECT_EXIT(line->getHullClosestEdge(Vector2(), v0, v1), trap, "_dimension == 2");
    EXPECT_EXIT(flat->getHull(count, indices), trap, "There must be at least one triangle");
}

} // namespace mrv
