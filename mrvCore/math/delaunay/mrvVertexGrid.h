// mrvCore/math/delaunay/mrvVertexGrid.h
// Some vertex close to a point, to begin a search from. Internal.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv::internal {

/// A grid over the unit square that remembers the last vertex that came into each cell.
///
/// It is refined as vertices come in: a cell has three at most, on average, and one in which none has come
/// since hands out the vertex of the cell that it was cut from.
class VertexGrid
{
public:
    /// `vertex` is handed out as long as there is no other.
    explicit VertexGrid(int vertex) : _vertices(1, vertex) {}

    void insert(const Vector2& point, int vertex)
    {
        if (++_count > _verticesPerCell * _vertices.size())
            refine();
        _vertices[cellOf(point)] = vertex;
    }

    int getVertex(const Vector2& point) const { return _vertices[cellOf(point)]; }
    void prefetch(const Vector2& point) const { __builtin_prefetch(_vertices.begin() + cellOf(point)); }

private:
    static constexpr size_t _verticesPerCell = 3;
    static constexpr int _longestSide = 8192;

    size_t cellOf(const Vector2& point) const
    {
        return static_cast<size_t>(lineOf(point.y)) * static_cast<size_t>(_side) +
               static_cast<size_t>(lineOf(point.x));
    }
    int lineOf(float coordinate) const
    {
        const int line = static_cast<int>(coordinate * static_cast<float>(_side));
        return line < _side ? line : _side - 1; // the upper border belongs to the square
    }

    void refine();

    PODArray<int> _vertices;
    int _side = 1;
    size_t _count = 0;
};

} // namespace mrv::internal
