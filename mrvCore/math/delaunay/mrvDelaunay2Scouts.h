// mrvCore/math/delaunay/mrvDelaunay2Scouts.h
// Walks ahead of the insertions of Delaunay2. Internal.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunay2.h"
#include "mrvCore/math/delaunay/mrvVertexGrid.h"

namespace mrv {

/// Goes out for the vertices that are due next, so that what their insertion reads is on its way into the
/// caches by then. The steps are guesses: without a branch that could be mispredicted, on a mesh that will
/// have changed a little.
class Delaunay2::Scouts
{
public:
    /// The mesh holds its enclosing triangle; `order` are the vertices to come.
    Scouts(const Delaunay2& mesh, const PODArray<int>& order, const internal::VertexGrid& grid)
        : _mesh(mesh)
        , _order(order)
        , _grid(grid)
    {}

    /// A triangle close to vertex `k` of the order; for a large mesh asked for once for each k in turn.
    const Triangle* next(size_t k)
    {
        if (!_mesh._isLarge)
            return triangleInCell(k);
        prefetchCell(k + _steps + 4);
        prefetchVertex(k + _steps + 2);
        start(k + _steps);
        for (size_t ahead = _steps; ahead > 0; --ahead)
            step(k + ahead);
        const Triangle* const scout = _scouts[k % _ringSize];
        return scout != nullptr ? scout : triangleInCell(k);
    }

private:
    static constexpr size_t _steps = 4; ///< from the grid's vertex it takes about as many
    static constexpr size_t _ringSize = 8;

    const Vector2& pointOf(size_t k) const { return _mesh._sVertices[_order[k]]; }
    const Triangle* triangleInCell(size_t k) const { return _mesh.triangleAt(_grid.getVertex(pointOf(k))); }
    void prefetchCell(size_t k) const
    {
        if (k < _order.size())
            _grid.prefetch(pointOf(k));
    }
    void prefetchVertex(size_t k) const
    {
        if (k < _order.size())
            __builtin_prefetch(&_mesh._vertexTriangles[static_cast<size_t>(_grid.getVertex(pointOf(k)))]);
    }
    void start(size_t k)
    {
        if (k >= _order.size())
            return;
        _scouts[k % _ringSize] = triangleInCell(k);
        Delaunay2::prefetch(_scouts[k % _ringSize]);
    }

    void step(size_t k)
    {
        const Triangle*& scout = _scouts[k % _ringSize];
        if (k >= _order.size() || scout == nullptr)
            return;
        const uint32_t* const adj = scout->_adj;
        const int* const v = scout->_vertices;
        const Vector2& point = pointOf(k);
        const Vector2 to0 = _mesh._sVertices[v[0]] - point;
        const Vector2 to1 = _mesh._sVertices[v[1]] - point;
        const Vector2 to2 = _mesh._sVertices[v[2]] - point;
        uint32_t next = _none;
        next = to2.x * to0.y < to0.x * to2.y ? adj[2] : next;
        next = to1.x * to2.y < to2.x * to1.y ? adj[1] : next;
        next = to0.x * to1.y < to1.x * to0.y ? adj[0] : next;
        for (int slot = 0; slot < 3; ++slot)
            Delaunay2::prefetch(_mesh.neighbourOf(*scout, slot));
        scout = next != _none ? _mesh._trianglePool.begin() + next : scout;
    }

    const Delaunay2& _mesh;
    const PODArray<int>& _order;
    const internal::VertexGrid& _grid;
    const Triangle* _scouts[_ringSize] = {};
};

} // namespace mrv
