// tests/math/delaunay/mrvPointSets.h
// Seeded sets of points, and their triangulations as plain vectors.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunay2.h"
#include "tests/support/mrvTriangulationChecker.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace mrv {

using Points = std::vector<Vector2>;

/// Draws that are the same everywhere.
class PointDraw
{
public:
    explicit PointDraw(unsigned int seed) : _engine(seed) {}

    int below(int n) { return static_cast<int>(_engine() % static_cast<unsigned int>(n)); }
    float unit() { return static_cast<float>(_engine() >> 8) * 0x1p-24f; }
    Vector2 point()
    {
        const float x = unit();
        return Vector2(x, unit());
    }

private:
    std::mt19937 _engine;
};

inline Points makeUniform(int count, unsigned int seed)
{
    PointDraw draw(seed);
    Points points;
    for (int i = 0; i < count; ++i)
        points.push_back(draw.point());
    return points;
}

inline Points makeGrid(int side, float angle)
{
    Points points;
    for (int i = 0; i < side * side; ++i)
    {
        const Vector2 point(static_cast<float>(i % side), static_cast<float>(i / side));
        points.push_back(angle == 0.0f ? point : point.rotate(angle));
    }
    return points;
}

/// In the order of `stride` steps along the circle, which has no divisor in common with the count.
inline Points makeCircle(int count, int stride)
{
    Points points;
    for (int i = 0; i < count; ++i)
    {
        const double angle = 6.283185307179586 * (i * stride % count) / count;
        points.emplace_back(static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle)));
    }
    return points;
}

/// Whole numbers: most of them repeated, in line or on one circle with others.
inline Points makeLattice(int count, int side, unsigned int seed)
{
    PointDraw draw(seed);
    Points points;
    for (int i = 0; i < count; ++i)
    {
        const float x = static_cast<float>(draw.below(side));
        points.emplace_back(x, static_cast<float>(draw.below(side)));
    }
    return points;
}

/// One long line that goes on in another direction.
inline Points makeKinkedLine(int count, float slope)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(static_cast<float>(i), static_cast<float>(std::max(0, i - count / 2)) * slope);
    return points;
}

/// One point is off a line that float arithmetic cannot hold to.
inline Points makeLineWithOneOff(int count)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(static_cast<float>(i) * 0.3f, static_cast<float>(i) * 0.1f);
    points[points.size() / 2].y += 1.0f;
    return points;
}

/// A few steps of float resolution apart, with one in ten anywhere.
inline Points makeNearlyCoincident(int count, unsigned int seed)
{
    PointDraw draw(seed);
    Points points;
    for (int i = 0; i < count; ++i)
    {
        const Vector2 step(static_cast<float>(draw.below(5)), static_cast<float>(draw.below(5)));
        points.push_back(draw.below(10) == 0 ? draw.point() : Vector2(0.5f, 0.25f) + step * 0x1p-24f);
    }
    return points;
}

inline std::unique_ptr<Delaunay2> triangulate(const Points& points, float epsilon = 1e-6f)
{
    Vector2* const vertices = new Vector2[points.size()];
    std::copy(points.begin(), points.end(), vertices);
    return std::make_unique<Delaunay2>(static_cast<unsigned int>(points.size()), vertices, epsilon,
                                       DelaunayQuery::Type::REAL);
}

inline Triangulation toTriangulation(const Delaunay2& delaunay)
{
    const int* const indices = delaunay.getIndices();
    const int* const adjacencies = delaunay.getAdjacencies();
    const int entries = 3 * delaunay.getSimplicesCount();
    return { { delaunay.getVertices(), delaunay.getVertices() + delaunay.getVerticesCount() },
             { indices, indices + entries },
             { adjacencies, adjacencies + entries } };
}

/// Where the predicates see the points: in the unit square.
inline Points toWorkingPoints(const Points& points)
{
    Delaunay2::Information info;
    Delaunay2::getInformation(static_cast<unsigned int>(points.size()), points.data(), 0.0f, info);
    Points working;
    for (const Vector2& point : points)
        working.push_back((point - Vector2(info._min[0], info._min[1])) * (1.0f / info._maxRange));
    return working;
}

} // namespace mrv
