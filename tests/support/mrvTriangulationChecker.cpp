// tests/support/mrvTriangulationChecker.cpp
#include "tests/support/mrvTriangulationChecker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace mrv {

namespace {

struct Point
{
    double x, y;
    bool operator<(const Point& other) const { return x != other.x ? x < other.x : y < other.y; }
};

/// Rounding of a coordinate of the unit square to float, with room for the arithmetic behind it.
constexpr double resolution = 4.0 / (1 << 24);

double cross(const Point& o, const Point& a, const Point& b)
{
    return (a.x - o.x) * (b.y - o.y) - (b.x - o.x) * (a.y - o.y);
}

double distance(const Point& a, const Point& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

class Checker
{
public:
    explicit Checker(const Triangulation& triangulation) : _t(triangulation)
    {
        Point min = { INFINITY, INFINITY };
        double range = 0.0;
        for (const Vector2& p : _t.points)
            min = { std::min(min.x, double(p.x)), std::min(min.y, double(p.y)) };
        for (const Vector2& p : _t.points)
            range = std::max({ range, double(p.x) - min.x, double(p.y) - min.y });
        for (const Vector2& p : _t.points)
            _points.push_back({ (double(p.x) - min.x) / range, (double(p.y) - min.y) / range });
    }

    testing::AssertionResult check() const
    {
        for (size_t entry = 0; entry < _t.indices.size(); ++entry)
        {
            if (_t.indices[entry] < 0 || static_cast<size_t>(_t.indices[entry]) >= _points.size())
                return testing::AssertionFailure() << "entry " << entry << " is no point";
            if (!isLinked(entry))
                return testing::AssertionFailure() << "edge " << entry << " and its neighbour disagree";
        }
        double area = 0.0;
        for (size_t entry = 0; entry < _t.indices.size(); entry += 3)
        {
            if (doubleArea(entry) < -areaTolerance(entry))
                return testing::AssertionFailure() << "triangle " << entry / 3 << " turns clockwise";
            area += doubleArea(entry);
        }
        const double hull = doubleHullArea();
        if (std::abs(area - hull) > 8.0 * resolution)
            return testing::AssertionFailure() << "the triangles cover " << area << " of " << hull;
        if (eulerNumber() != 1)
            return testing::AssertionFailure() << "the triangles are no disc: " << eulerNumber();
        return areAllCorners();
    }

    testing::AssertionResult haveEmptyCircles() const
    {
        for (size_t entry = 0; entry < _t.indices.size(); ++entry)
            if (!isLocallyDelaunay(entry))
                return testing::AssertionFailure() << "the circle at edge " << entry << " is not empty";
        return testing::AssertionSuccess();
    }

private:
    const Point& corner(size_t entry) const { return _points[static_cast<size_t>(_t.indices[entry])]; }
    static size_t next(size_t entry) { return entry % 3 == 2 ? entry - 2 : entry + 1; }

    /// The same edge as the neighbour has it.
    size_t opposite(size_t entry) const
    {
        const size_t first = 3 * static_cast<size_t>(_t.adjacencies[entry]);
        for (size_t other = first; other < first + 3; ++other)
            if (_t.indices[other] == _t.indices[next(entry)] && _t.indices[next(other)] == _t.indices[entry])
                return other;
        return _t.indices.size();
    }

    bool isLinked(size_t entry) const
    {
        const int neighbour = _t.adjacencies[entry];
        if (neighbour == -1)
            return true;
        if (neighbour < 0 || static_cast<size_t>(neighbour) >= _t.indices.size() / 3)
            return false;
        const size_t other = opposite(entry);
        return other < _t.indices.size() && _t.adjacencies[other] == static_cast<int>(entry / 3);
    }

    double doubleArea(size_t entry) const
    {
        return cross(corner(entry), corner(entry + 1), corner(entry + 2));
    }
    double areaTolerance(size_t entry) const
    {
        return resolution * std::max({ distance(corner(entry), corner(entry + 1)),
                                       distance(corner(entry + 1), corner(entry + 2)),
                                       distance(corner(entry + 2), corner(entry)) });
    }

    bool isLocallyDelaunay(size_t entry) const
    {
        if (_t.adjacencies[entry] == -1)
            return true;
        const Point& d = corner(next(next(opposite(entry))));
        std::array<std::array<double, 3>, 3> rows;
        double reach = 0.0;
        for (size_t k = 0; k < 3; ++k)
        {
            const Point& v = corner(entry - entry % 3 + k);
            rows[k] = { v.x - d.x, v.y - d.y, (v.x - d.x) * (v.x - d.x) + (v.y - d.y) * (v.y - d.y) };
            reach = std::max(reach, distance(v, d));
        }
        const auto& [a, b, c] = rows;
        const double determinant = a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                                   a[2] * (b[0] * c[1] - b[1] * c[0]);
        return determinant <= 16.0 * resolution * reach * reach * reach;
    }

    /// Monotone chain.
    double doubleHullArea() const
    {
        std::vector<Point> points = _points;
        std::sort(points.begin(), points.end());
        double area = 0.0;
        for (int side = 0; side < 2; ++side)
        {
            std::vector<Point> chain;
            for (const Point& point : points)
            {
                while (chain.size() > 1 && cross(chain[chain.size() - 2], chain.back(), point) <= 0.0)
                    chain.pop_back();
                chain.push_back(point);
            }
            for (size_t k = 1; k < chain.size(); ++k)
                area += cross(points.front(), chain[k - 1], chain[k]);
            std::reverse(points.begin(), points.end());
        }
        return area;
    }

    int eulerNumber() const
    {
        const long faces = static_cast<long>(_t.indices.size() / 3);
        const long outer = std::count(_t.adjacencies.begin(), _t.adjacencies.end(), -1);
        return static_cast<int>(static_cast<long>(countCorners(_t)) - (3 * faces + outer) / 2 + faces);
    }

    testing::AssertionResult areAllCorners() const
    {
        std::set<Point> corners;
        for (size_t entry = 0; entry < _t.indices.size(); ++entry)
            corners.insert(corner(entry));
        for (size_t i = 0; i < _points.size(); ++i)
        {
            auto near = corners.lower_bound({ _points[i].x - resolution, -INFINITY });
            while (near != corners.end() && near->x <= _points[i].x + resolution &&
                   std::abs(near->y - _points[i].y) > resolution)
                ++near;
            if (near == corners.end() || near->x > _points[i].x + resolution)
                return testing::AssertionFailure() << "point " << i << " is no corner";
        }
        return testing::AssertionSuccess();
    }

    const Triangulation& _t;
    std::vector<Point> _points;
};

} // namespace

testing::AssertionResult isTriangulation(const Triangulation& triangulation)
{
    return Checker(triangulation).check();
}

testing::AssertionResult isDelaunayTriangulation(const Triangulation& triangulation)
{
    const Checker checker(triangulation);
    const testing::AssertionResult result = checker.check();
    return result ? checker.haveEmptyCircles() : result;
}

size_t countCorners(const Triangulation& triangulation)
{
    return std::set<int>(triangulation.indices.begin(), triangulation.indices.end()).size();
}

} // namespace mrv
