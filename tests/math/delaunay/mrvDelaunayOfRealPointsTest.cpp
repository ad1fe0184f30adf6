// tests/math/delaunay/mrvDelaunayOfRealPointsTest.cpp
// Point sets that others made, some of them because they broke a triangulation; counts beside CGAL's.
#include "tests/math/delaunay/mrvPointSets.h"

#include <filesystem>
#include <fstream>
#include <string>

// CGAL shifts negative numbers, which the sanitizers stop at.
#if __has_include(<CGAL/Delaunay_triangulation_2.h>) && !defined(__SANITIZE_ADDRESS__)
#    pragma GCC optimize("rounding-math") // CGAL's interval arithmetic needs it
#    define CGAL_DISABLE_GMP 1
#    include <CGAL/Delaunay_triangulation_2.h>
#    include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#    define MRV_TEST_CGAL 1
#endif

namespace mrv {

namespace {

const std::string folder = MRV_EXTRA_DATA "/data/points";

const char* const names[] = {
    "cdt_sweden_duplicates", "delaunator_issue44",    "delaunator_robustness2",
    "delaunator_ukraine",    "poly2tri_diamond",      "poly2tri_nazca_heron",
    "us_zipcodes",           "usgs_earthquakes_week",
};

Points readPoints(const std::string& file)
{
    std::ifstream stream(file);
    stream.imbue(std::locale::classic());
    std::string heading;
    std::getline(stream, heading);
    Points points;
    double x, y;
    char comma;
    while (stream >> x >> comma >> y)
        points.emplace_back(static_cast<float>(x), static_cast<float>(y));
    return points;
}

/// Triangles but for the flat ones that we leave along a straight hull. Exact: products of differences of
/// working coordinates lose nothing that could make them equal.
[[maybe_unused]] size_t countSolid(const Delaunay2& delaunay, const Points& working)
{
    size_t count = 0;
    for (int k = 0; k < delaunay.getSimplicesCount(); ++k)
    {
        const int* const v = delaunay.getIndices() + 3 * k;
        const Vector2& a = working[static_cast<size_t>(v[0])];
        const Vector2& b = working[static_cast<size_t>(v[1])];
        const Vector2& c = working[static_cast<size_t>(v[2])];
        count += (double(b.x) - double(a.x)) * (double(c.y) - double(a.y)) >
                 (double(c.x) - double(a.x)) * (double(b.y) - double(a.y));
    }
    return count;
}

class DelaunayOfRealPoints : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(folder))
            GTEST_SKIP() << "there is no folder " << folder;
        _points = readPoints(folder + '/' + GetParam() + ".csv");
        ASSERT_GE(_points.size(), 10u);
        _delaunay = triangulate(_points);
    }

    Points _points;
    std::unique_ptr<Delaunay2> _delaunay;
};

} // namespace

TEST_P(DelaunayOfRealPoints, isDelaunayByGeometryAlone)
{
    const Triangulation result = toTriangulation(*_delaunay);
    EXPECT_TRUE(isDelaunayTriangulation(result));
    // All corners are points seen, and all points seen are corners.
    EXPECT_EQ(countCorners(result), _delaunay->getUniqueVerticesCount());
}

TEST_P(DelaunayOfRealPoints, hasAsManyCornersAndTrianglesAsCgalFinds)
{
#ifdef MRV_TEST_CGAL
    CGAL::Delaunay_triangulation_2<CGAL::Exact_predicates_inexact_constructions_kernel> exact;
    const Points working = toWorkingPoints(_points);
    std::vector<decltype(exact)::Point> points;
    for (const Vector2& point : working)
        points.emplace_back(point.x, point.y);
    exact.insert(points.begin(), points.end());
    EXPECT_EQ(_delaunay->getUniqueVerticesCount(), exact.number_of_vertices());
    EXPECT_EQ(countSolid(*_delaunay, working), exact.number_of_faces());
#else
    GTEST_SKIP() << "built without CGAL";
#endif
}

INSTANTIATE_TEST_SUITE_P(Table, DelaunayOfRealPoints, testing::ValuesIn(names),
                         [](const auto& row) { return std::string(row.param); });

} // namespace mrv
