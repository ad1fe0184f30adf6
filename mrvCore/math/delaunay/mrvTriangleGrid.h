// mrvCore/math/delaunay/mrvTriangleGrid.h
// Some triangle close to a point, to begin a search from. Internal.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv::internal {

/// A grid over the unit square that remembers the last triangle that was made in each cell.
///
/// By slots of the pool, which new triangles nearby take over, so that none goes stale; some drift away.
/// Cells are cut in four as triangles come in: more of them than these would be left to drift for longer.
class TriangleGrid
{
public:
    /// The first triangle is handed out as long as there is no other.
    TriangleGrid() : _triangles(1, 0u) {}

    void insert(const Vector2& point, uint32_t triangle)
    {
        if (++_count > _insertionsPerCell * _triangles.size())
            refine();
        _triangles[cellOf(point)] = triangle;
    }

    uint32_t getTriangle(const Vector2& point) const { return _triangles[cellOf(point)]; }
    void prefetch(const Vector2& point) const { __builtin_prefetch(_triangles.begin() + cellOf(point)); }

private:
    static constexpr size_t _insertionsPerCell = 8;
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

    PODArray<uint32_t> _triangles;
    int _side = 1;
    size_t _count = 0;
};

} // namespace mrv::internal
