// mrvCore/math/delaunay/mrvDelaunay2Mesh.h
// Triangles of Delaunay2 while it takes in vertices. Internal.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunay2.h"
#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"

#include <algorithm>

namespace mrv {

namespace internal {

/// No triangle, among slots of the pool.
constexpr uint32_t noTriangle = ~uint32_t(0);

inline int nextOf(int slot)
{
    return slot == 2 ? 0 : slot + 1;
}

} // namespace internal

/// All that a walk and an insertion read of a triangle, in one line of memory: of a large mesh, most of the
/// time goes into fetching lines, wherever the points go in.
///
/// But for the triangle of the supervertices, the first vertex is the newest of those that are none.
struct alignas(64) Delaunay2::Triangle
{
    uint32_t _adj[3]; ///< across the edge from vertex j to the next
    int _vertices[3];
    Vector2 _points[3]; ///< the vertices in working coordinates
    int _time;          ///< the last insertion that classified it
    bool _isComponent;
    bool _onStack;
    bool _inUse;
    bool _isDoubtful; ///< may turn clockwise, by rounding

    /// As new, and in use. Field by field: a temporary object stalls the processor here.
    void begin(int v0, const Vector2& point, const Edge& edge);
    /// Clears the links between this triangle and its neighbour; the neighbour's slot, -1 for none.
    int detachFrom(int slot, uint32_t self, Triangle& neighbour);
    /// True if vertex `i` lies in the circumcircle. The supervertices count as infinitely far.
    bool isInsertionComponent(int i, const Vector2& point, uint32_t adjacent, int firstSuper);
    /// The edge that faces the circle of a triangle with supervertices, which is a half-plane: the one
    /// without, or else the one that the insertion has yet to come through.
    int findFiniteEdge(uint32_t adjacent, int firstSuper) const;

    /// The predicates of an edge.
    int toLine(const Vector2& point, int slot) const
    {
        const int next = internal::nextOf(slot);
        return DelaunayQuery2::toLine(point, _vertices[slot], _vertices[next], _points[slot], _points[next]);
    }
    int toLineForSure(const Vector2& point, int slot) const
    {
        const int next = internal::nextOf(slot);
        return DelaunayQuery2::toLineForSure(point, _vertices[slot], _vertices[next], _points[slot],
                                             _points[next]);
    }
};

/// A directed edge of the insertion polygon.
struct Delaunay2::Edge
{
    uint32_t _ownerTriangle; ///< outside the polygon at first, then the new one inside
    int _nullIndex;          ///< slot of the outer owner that the edge was cut from
    int _verticesValues[2];
    Vector2 _points[2];
};

inline uint32_t Delaunay2::slotOf(const Triangle& triangle) const
{
    return static_cast<uint32_t>(&triangle - _trianglePool);
}

inline const Delaunay2::Triangle* Delaunay2::neighbourOf(const Triangle& triangle, int slot) const
{
    const uint32_t neighbour = triangle._adj[slot];
    return neighbour == internal::noTriangle ? nullptr : _trianglePool + neighbour;
}

/// Without asking for null, which would cost a search for the page that is not there.
inline void Delaunay2::prefetchNeighbours(const Triangle& triangle) const
{
    for (const uint32_t neighbour : triangle._adj)
        __builtin_prefetch(neighbour == internal::noTriangle ? &triangle : _trianglePool + neighbour);
}

/// Without branches, which would be hard to foretell.
inline bool Delaunay2::hasSupervertex(const Triangle& triangle) const
{
    const int* const v = triangle._vertices;
    return isSupervertex(std::max(v[0], std::max(v[1], v[2])));
}

} // namespace mrv
