// tests/math/delaunay/mrvDelaunayQuery2Test.cpp
#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace mrv {

namespace {

/// By counting the pairs in the wrong order.
bool isEven(const std::vector<int>& values)
{
    int swaps = 0;
    for (size_t i = 0; i < values.size(); ++i)
        for (size_t j = i + 1; j < values.size(); ++j)
            swaps += values[i] > values[j];
    return swaps % 2 == 0;
}

bool sortAll(std::vector<int>& v)
{
    if (v.size() == 2)
        return DelaunayQuery::sort(v[0], v[1]);
    return v.size() == 3 ? DelaunayQuery::sort(v[0], v[1], v[2])
                         : DelaunayQuery::sort(v[0], v[1], v[2], v[3]);
}

} // namespace

TEST(DelaunayQueryTest, sortTellsTheParityOfEachPermutation)
{
    for (size_t count = 2; count <= 4; ++count)
    {
        std::vector<int> permutation(count);
        std::iota(permutation.begin(), permutation.end(), 5);
        const std::vector<int> ascending = permutation;
        do
        {
            std::vector<int> sorted = permutation;
            EXPECT_EQ(sortAll(sorted), isEven(permutation)) << testing::PrintToString(permutation);
            EXPECT_EQ(sorted, ascending);
            for (size_t k = 0; k + 1 < count; ++k)
            {
                std::vector<int> repeated = permutation;
                std::replace(repeated.begin(), repeated.end(), ascending[k], ascending[k + 1]);
                EXPECT_FALSE(sortAll(repeated));
                EXPECT_TRUE(std::is_sorted(repeated.begin(), repeated.end()));
            }
        } while (std::next_permutation(permutation.begin(), permutation.end()));
    }
}

TEST(DelaunayQuery2Test, sidesOfLinesTrianglesAndCircles)
{
    const Vector2 vertices[] = { { 0, 0 }, { 4, 0 }, { 0, 4 }, { 4, 4 } };
    const DelaunayQuery2 query(4, vertices);
    struct Case
    {
        Vector2 point;
        int line01, triangle, circle;
    };
    const Case cases[] = {
        { { 1, 1 }, -1, -1, -1 }, { { 2, 0 }, 0, 0, -1 }, { { 2, -0.5f }, 1, 1, -1 }, { { 3, 3 }, -1, 1, -1 },
        { { 4, 4 }, -1, 1, 0 },   { { 9, 0 }, 0, 1, 1 },  { { 2, 2 }, -1, 0, -1 },    { { -1, -1 }, 1, 1, 1 },
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(query.toLine(c.point, 0, 1), c.line01);
        EXPECT_EQ(query.toLine(c.point, 1, 0), -c.line01);
        EXPECT_EQ(query.toTriangle(c.point, 0, 1, 2), c.triangle);
        EXPECT_EQ(query.toCircumcircle(c.point, 0, 1, 2), c.circle);
        EXPECT_EQ(query.toCircumcircle(c.point, 0, 2, 1), -c.circle);
    }
    EXPECT_EQ(query.toLine(3, 1, 2), 1);
    EXPECT_EQ(query.toTriangle(3, 0, 1, 2), 1);
    EXPECT_EQ(query.toCircumcircle(3, 0, 1, 2), 0);
    EXPECT_EQ(query.getType(), DelaunayQuery::Type::REAL);
}

// Also where rounding decides: the vertices are a few steps of float resolution apart.
TEST(DelaunayQuery2Test, answersDoNotDependOnTheOrderOfTheCorners)
{
    std::mt19937 engine(1);
    int notSure = 0;
    for (int round = 0; round < 2000; ++round)
    {
        Vector2 vertices[4];
        for (Vector2& vertex : vertices)
            vertex = Vector2(0.3f, 0.7f) + Vector2(float(engine() % 9), float(engine() % 9)) * 0x1p-24f;
        const DelaunayQuery2 query(4, vertices);
        EXPECT_EQ(query.toLine(3, 0, 1), -query.toLine(3, 1, 0));
        EXPECT_EQ(query.toCircumcircle(3, 0, 1, 2), query.toCircumcircle(3, 1, 2, 0));
        EXPECT_EQ(query.toCircumcircle(3, 0, 1, 2), -query.toCircumcircle(3, 1, 0, 2));
        const int sure = query.toLineForSure(vertices[3], 0, 1);
        const double exact =
            (double(vertices[3].x) - double(vertices[0].x)) *
                (double(vertices[1].y) - double(vertices[0].y)) -
            (double(vertices[1].x) - double(vertices[0].x)) * (double(vertices[3].y) - double(vertices[0].y));
        notSure += sure == 0;
        EXPECT_EQ(sure, sure == 0 ? 0 : (exact > 0) - (exact < 0));
    }
    EXPECT_GT(notSure, 0);
    EXPECT_LT(notSure, 2000);
}

} // namespace mrv
