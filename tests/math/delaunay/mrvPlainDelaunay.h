// tests/math/delaunay/mrvPlainDelaunay.h
// Incremental insertion written down as plainly as it goes: every search begins at the first triangle, and
// points seen are in a sorted set. The numbering of its result is what the library has to give.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"

#include <array>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace mrv {

class PlainDelaunay
{
public:
    /// Points in working coordinates, which are finite.
    explicit PlainDelaunay(std::vector<Vector2> points)
        : _count(static_cast<int>(points.size()))
        , _points(withSupervertices(std::move(points)))
        , _query(_count + 3, _points.data())
    {
        _triangles.push_back({ { _count, _count + 1, _count + 2 } });
        for (int i = 0; i < _count && !_hasFailed; ++i)
            if (_seen.insert(_points[static_cast<size_t>(i)]).second)
                insert(i);
        if (!_hasFailed)
            number();
    }

    /// True if rounding left some vertex without a place or without a simple insertion polygon.
    bool hasFailed() const { return _hasFailed; }

    std::vector<int> indices;
    std::vector<int> adjacencies;

private:
    static constexpr size_t _none = ~size_t(0);

    struct Triangle
    {
        std::array<int, 3> vertices;
        std::array<size_t, 3> adj = { _none, _none, _none };
        int time = -1;
        bool isComponent = false;
        bool isOnStack = false;
        bool isInUse = true;
    };
    struct Edge
    {
        int v0, v1;
        size_t owner, ownerSlot;
    };

    static std::vector<Vector2> withSupervertices(std::vector<Vector2> points)
    {
        points.insert(points.end(), { Vector2(-1, -1), Vector2(4, -1), Vector2(-1, 4) });
        return points;
    }
    bool isSuper(int vertex) const { return vertex >= _count; }

    size_t find(int i) const
    {
        size_t t = 0;
        for (size_t step = 0; step < _triangles.size() && t != _none; ++step)
        {
            const auto& [a, b, c] = _triangles[t].vertices;
            if (_query.toLine(i, a, b) > 0)
                t = _triangles[t].adj[0];
            else if (_query.toLine(i, b, c) > 0)
                t = _triangles[t].adj[1];
            else if (_query.toLine(i, c, a) > 0)
                t = _triangles[t].adj[2];
            else
                return t;
        }
        return _none;
    }

    bool isComponent(size_t index, int i, size_t adjacent)
    {
        Triangle& t = _triangles[index];
        if (t.time == i)
            return t.isComponent;
        t.time = i;
        const auto& v = t.vertices;
        const int superCount = isSuper(v[0]) + isSuper(v[1]) + isSuper(v[2]);
        if (superCount == 0)
            return t.isComponent = _query.toCircumcircle(i, v[0], v[1], v[2]) < 0;
        size_t j = isSuper(v[0]) ? 1 : isSuper(v[1]) ? 2 : 0;
        if (superCount > 1)
            for (j = 0; j < 3 && (t.adj[j] == _none || t.adj[j] == adjacent);)
                ++j;
        _hasFailed = _hasFailed || j == 3;
        return t.isComponent = j < 3 && _query.toLine(i, v[j], v[(j + 1) % 3]) < 0;
    }

    void insert(int i)
    {
        const size_t first = find(i);
        _hasFailed = first == _none;
        std::vector<size_t> stack(_hasFailed ? 0 : 1, first);
        std::vector<Edge> polygon;
        while (!stack.empty() && !_hasFailed)
        {
            const size_t index = stack.back();
            stack.pop_back();
            _triangles[index].isOnStack = false;
            for (size_t j = 0; j < 3; ++j)
                open(index, j, i, stack, polygon);
            _triangles[index].isInUse = false;
            _recycled.push_back(index);
        }
        _hasFailed = _hasFailed || polygon.size() != _recycled.size() + 2;
        if (!_hasFailed)
            fill(i, polygon);
    }

    void open(size_t index, size_t j, int i, std::vector<size_t>& stack, std::vector<Edge>& polygon)
    {
        const int v0 = _triangles[index].vertices[j];
        const int v1 = _triangles[index].vertices[(j + 1) % 3];
        const size_t other = std::exchange(_triangles[index].adj[j], _none);
        if (other == _none)
        {
            if (isSuper(v0) && isSuper(v1))
                polygon.push_back({ v0, v1, _none, _none });
            return;
        }
        size_t slot = 0;
        while (slot < 2 && _triangles[other].adj[slot] != index)
            ++slot;
        _triangles[other].adj[slot] = _none;
        if (!isComponent(other, i, index))
            polygon.push_back({ v0, v1, other, slot });
        else if (!std::exchange(_triangles[other].isOnStack, true))
            stack.push_back(other);
    }

    void fill(int i, std::vector<Edge>& polygon)
    {
        std::vector<size_t> added;
        for (const Edge& edge : polygon)
        {
            size_t slot = _triangles.size();
            if (_recycled.empty())
                _triangles.emplace_back();
            else
            {
                slot = _recycled.back();
                _recycled.pop_back();
            }
            _triangles[slot] = { { i, edge.v0, edge.v1 }, { _none, edge.owner, _none } };
            if (edge.owner != _none)
                _triangles[edge.owner].adj[edge.ownerSlot] = slot;
            added.push_back(slot);
        }
        for (size_t a = 0; a < polygon.size(); ++a)
        {
            int followers = 0;
            for (size_t b = 0; b < polygon.size(); ++b)
            {
                if (polygon[b].v0 != polygon[a].v1)
                    continue;
                _triangles[added[a]].adj[2] = added[b];
                _triangles[added[b]].adj[0] = added[a];
                ++followers;
            }
            _hasFailed = _hasFailed || followers != 1;
        }
    }

    void number()
    {
        std::vector<int> numbers;
        int count = 0;
        for (Triangle& t : _triangles)
        {
            t.isInUse =
                t.isInUse && !isSuper(t.vertices[0]) && !isSuper(t.vertices[1]) && !isSuper(t.vertices[2]);
            numbers.push_back(t.isInUse ? count++ : -1);
        }
        for (const Triangle& t : _triangles)
            for (size_t j = 0; t.isInUse && j < 3; ++j)
            {
                indices.push_back(t.vertices[j]);
                adjacencies.push_back(t.adj[j] == _none ? -1 : numbers[t.adj[j]]);
            }
    }

    int _count;
    std::vector<Vector2> _points;
    DelaunayQuery2 _query;
    std::vector<Triangle> _triangles;
    std::vector<size_t> _recycled;
    std::set<Vector2> _seen;
    bool _hasFailed = false;
};

} // namespace mrv
