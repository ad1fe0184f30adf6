// mrvCore/math/delaunay/mrvDelaunay2Scouts.h
// Walks ahead of the insertions of Delaunay2. Internal.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunay2Mesh.h"
#include "mrvCore/math/delaunay/mrvTriangleGrid.h"

namespace mrv {

/// Goes out for the vertices that are due next, so that what their insertion reads is on its way into the
/// caches by then. The steps are guesses: without a branch that could be mispredicted, on a mesh that will
/// have changed a little.
class Delaunay2::Scouts
{
public:
    /// The mesh holds its enclosing triangle; `order` are the vertices to come.
    Scouts(const Delaunay2& mesh, const PODArray<int>& order, const internal::TriangleGrid& grid)
        : _mesh(mesh)
        , _order(order)
        , _grid(grid)
    {}

    /// A triangle close to vertex `k` of the order; for a large mesh asked for once for each k in turn.
    const Triangle* next(size_t k)
    {
        if (!_mesh._isLarge)
            return triangleInCell(k);
        prefetchCell(k + _start + 2);
        start(k + _start);
        for (size_t ahead = _start - 1; ahead > 2; --ahead)
            step(k + ahead);
        prefetchNeighbours(k + 2);
        prefetchRing(k + 1);
        const Triangle* const scout = _scouts[k % _ringSize];
        return scout != nullptr ? scout : triangleInCell(k);
    }

private:
    /// Vertices ahead. From the grid's triangle, nine in ten take fewer steps than there is time for; the
    /// last two times are for what lies around the triangle.
    static constexpr size_t _start = 11;
    static constexpr size_t _ringSize = 16;

    const Vector2& pointOf(size_t k) const { return _mesh._sVertices[_order[k]]; }
    const Triangle* triangleInCell(size_t k) const
    {
        return _mesh._trianglePool + _grid.getTriangle(pointOf(k));
    }
    void prefetchCell(size_t k) const
    {
        if (k < _order.size())
            _grid.prefetch(pointOf(k));
    }
    void start(size_t k)
    {
        if (k >= _order.size())
            return;
        _scouts[k % _ringSize] = triangleInCell(k);
        __builtin_prefetch(_scouts[k % _ringSize]);
    }

    void step(size_t k)
    {
        const Triangle*& scout = _scouts[k % _ringSize];
        if (k >= _order.size() || scout == nullptr)
            return;
        const uint32_t* const adj = scout->_adj;
        const Vector2& point = pointOf(k);
        const Vector2 to0 = scout->_points[0] - point;
        const Vector2 to1 = scout->_points[1] - point;
        const Vector2 to2 = scout->_points[2] - point;
        uint32_t next = internal::noTriangle;
        next = to2.x * to0.y < to0.x * to2.y ? adj[2] : next;
        next = to1.x * to2.y < to2.x * to1.y ? adj[1] : next;
        next = to0.x * to1.y < to1.x * to0.y ? adj[0] : next;
        scout = next != internal::noTriangle ? _mesh._trianglePool + next : scout;
        __builtin_prefetch(scout);
    }
    void prefetchNeighbours(size_t k)
    {
        if (_scouts[k % _ringSize] != nullptr)
            _mesh.prefetchNeighbours(*_scouts[k % _ringSize]);
    }
    /// What the neighbours are next to: an insertion seldom reads farther.
    void prefetchRing(size_t k)
    {
        if (_scouts[k % _ringSize] == nullptr)
            return;
        for (const uint32_t t : _scouts[k % _ringSize]->_adj)
            if (t != internal::noTriangle)
                _mesh.prefetchNeighbours(_mesh._trianglePool[t]);
    }

    const Delaunay2& _mesh;
    const PODArray<int>& _order;
    const internal::TriangleGrid& _grid;
    const Triangle* _scouts[_ringSize] = {};
};

} // namespace mrv
