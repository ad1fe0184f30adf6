// mrvCore/math/delaunay/mrvDelaunay2Insertion.cpp
// How Delaunay2 takes in one vertex after the other.
//
// The order in which triangles are visited, freed and made anew numbers the result, and callers keep
// results: it stays as it is. Small functions are inline here so that they go into the loop that calls them.
#include "mrvCore/math/delaunay/mrvDelaunay2Scouts.h"
#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"
#include "mrvCore/math/delaunay/mrvDistinctPoints.h"
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/memory/mrvLargePages.h"

#include <cmath>

namespace mrv {

namespace {

int nextOf(int slot)
{
    return slot == 2 ? 0 : slot + 1;
}

/// Twice the area, positive if counterclockwise.
double doubleAreaOf(const Vector2& a, const Vector2& b, const Vector2& c)
{
    return (double(b.x) - double(a.x)) * (double(c.y) - double(a.y)) -
           (double(c.x) - double(a.x)) * (double(b.y) - double(a.y));
}

} // namespace

/// As new, and in use. Field by field: a temporary object stalls the processor here.
inline void Delaunay2::Triangle::begin(int v0, int v1, int v2)
{
    for (uint32_t& neighbour : _adj)
        neighbour = _none;
    _vertices[0] = v0;
    _vertices[1] = v1;
    _vertices[2] = v2;
    _time = -1;
    _isComponent = false;
    _onStack = false;
    _inUse = true;
}

/// Clears the links between this triangle and its neighbour; the neighbour's slot, -1 for none.
inline int Delaunay2::Triangle::detachFrom(int slot, uint32_t self, Triangle& neighbour)
{
    _adj[slot] = _none;
    int found = neighbour._adj[1] == self ? 1 : 2;
    found = neighbour._adj[0] == self ? 0 : found;
    if (neighbour._adj[found] != self)
        return -1;
    neighbour._adj[found] = _none;
    return found;
}

/// True if vertex `i` lies in the circumcircle. The supervertices count as infinitely far.
[[gnu::always_inline]] inline bool Delaunay2::Triangle::isInsertionComponent(int i, uint32_t adjacent,
                                                                             const DelaunayQuery2& query,
                                                                             const int supervertices[3])
{
    if (_time == i)
        return _isComponent;
    _time = i;

    const Vector2& point = query.getVertex(i);
    const int firstSuper = supervertices[0];
    // Calls by the full name go round the virtual table: the class is known, and this is the inner loop.
    if (_vertices[0] < firstSuper && _vertices[1] < firstSuper && _vertices[2] < firstSuper)
    {
        _isComponent =
            query.DelaunayQuery2::toCircumcircle(point, _vertices[0], _vertices[1], _vertices[2]) < 0;
        return _isComponent;
    }
    const int j = findFiniteEdge(adjacent, firstSuper);
    _isComponent = query.DelaunayQuery2::toLine(point, _vertices[j], _vertices[nextOf(j)]) < 0;
    return _isComponent;
}

/// The edge that faces the circle of a triangle with supervertices, which is a half-plane: the one without,
/// or else the one that the insertion has yet to come through.
int Delaunay2::Triangle::findFiniteEdge(uint32_t adjacent, int firstSuper) const
{
    int superCount = 0;
    int last = 0;
    for (int slot = 0; slot < 3; ++slot)
    {
        const bool isSuper = _vertices[slot] >= firstSuper;
        superCount += isSuper;
        last = isSuper ? slot : last;
    }
    if (superCount == 1)
        return nextOf(last);
    int j = 0;
    while (j < 3 && (_adj[j] == _none || _adj[j] == adjacent))
        ++j;
    MRV_ASSERT(j < 3);
    return j;
}

/// Rounding can contradict itself where points are almost on one line or on one another. What comes out then
/// may be no triangulation, and only then is all done over with more care.
void Delaunay2::insertVertices()
{
    int notFinite = 0;
    const PODArray<int> order = internal::findDistinctPoints(_sVertices, _supervertices[0], notFinite);
    if (notFinite != 0)
        MRV_LOG(SDK, LOG_WARNING,
                "Delaunay triangulation leaves out " << notFinite << " of " << _supervertices[0]
                                                     << " vertices, which are not finite.");
    _uniqueVerticesCount = static_cast<unsigned int>(order.size());
    if (tryInsert(order) && isTriangulation(order))
        return;
    _isCareful = true;
    MRV_ASSERT(tryInsert(order), "Rounding leaves a Delaunay vertex no triangle that contains it\n");
}

/// False if rounding leaves a vertex without a triangle or without a simple polygon around it.
bool Delaunay2::tryInsert(const PODArray<int>& order)
{
    clearMesh();
    _isLarge = order.size() >= _largeCount;
    internal::VertexGrid grid(_supervertices[0]);
    Scouts scouts(*this, order, grid);
    int last = _supervertices[0];
    for (size_t k = 0; k < order.size(); ++k)
    {
        // Rows, curves and the like go on where the last vertex was.
        const Vector2& point = _sVertices[order[k]];
        const Triangle* start = scouts.next(k);
        const Vector2 fromLast = point - _sVertices[last];
        if (fromLast.norm2() < (point - _sVertices[start->_vertices[0]]).norm2())
            start = triangleAt(last);
        last = order[k];
        if (!update(last, start))
            return false;
        grid.insert(point, last);
    }
    return true;
}

/// The mesh of n vertices and the supervertices has 2n + 1 triangles and never more, so the pool does not
/// grow.
void Delaunay2::clearMesh()
{
    const size_t count = 2 * static_cast<size_t>(_supervertices[0]) + 1;
    _trianglePool.clear();
    _trianglePool.set_capacity(count < 8 ? 8 : count);
    internal::adviseLargePages(_trianglePool.begin(), count * sizeof(Triangle));
    _trianglePool.resize(count);
    _trianglePoolRecycledIndices.clear();
    _trianglePoolFirstAvailableIndex = 0;
    _triStackCache.clear();
    _doubtfulCount = 0;
    _isSuspect = false;
    _vertexTimes.assign(_isCareful ? static_cast<size_t>(_verticesCount) : 0, -1);
    _vertexTriangles.set_capacity(static_cast<size_t>(_verticesCount));
    internal::adviseLargePages(_vertexTriangles.begin(), _vertexTriangles.capacity() * sizeof(uint32_t));
    _vertexTriangles.assign(static_cast<size_t>(_verticesCount), 0u);
    obtainTriangle(_supervertices[0], _supervertices[1], _supervertices[2]);
}

/// False if there is a vertex inside the polygon, which the mesh would lose, or if the polygon is not simple.
bool Delaunay2::update(int i, const Triangle* start)
{
    Triangle* const containing = findTriangle(i, start);
    if (containing == nullptr)
        return false;
    if (_isCareful)
    {
        containing->_time = i;
        for (const int vertex : containing->_vertices)
            _vertexTimes[static_cast<size_t>(vertex)] = i;
    }
    _polygonEdgesCache.clear();
    _triStackCache.push_back(containing);
    containing->_onStack = true;
    while (_triStackCache.any())
    {
        Triangle& triangle = *_triStackCache.back();
        _triStackCache.pop_back();
        triangle._onStack = false;
        for (int slot = 0; slot < 3; ++slot)
            openPolygonEdge(triangle, slot, i, &triangle == containing);
        recycleTriangle(triangle);
    }
    return _polygonEdgesCache.size() == _trianglePoolRecycledIndices.size() + 2 && fillPolygon(i);
}

/// Goes on into the neighbour if its circle holds the vertex; otherwise the edge bounds the polygon.
[[gnu::always_inline]] inline void Delaunay2::openPolygonEdge(Triangle& triangle, int slot, int i,
                                                              bool isContaining)
{
    const int v0 = triangle._vertices[slot];
    const int v1 = triangle._vertices[nextOf(slot)];
    Triangle* const neighbour = const_cast<Triangle*>(neighbourOf(triangle, slot));
    if (neighbour == nullptr)
    {
        if (isSupervertex(v0) && isSupervertex(v1))
            polygonInsertEdge(v0, v1, nullptr, -1);
        return;
    }
    const uint32_t self = slotOf(triangle);
    const int neighbourSlot = triangle.detachFrom(slot, self, *neighbour);
    bool joins = neighbour->isInsertionComponent(i, self, *_query, _supervertices);
    if (_isCareful)
        joins = (joins || (isContaining && _query->toLine(i, v0, v1) >= 0)) &&
                joinsPolygon(*neighbour, neighbourSlot, i);
    if (!joins)
        polygonInsertEdge(v0, v1, neighbour, neighbourSlot);
    else if (!neighbour->_onStack)
    {
        _triStackCache.push_back(neighbour);
        neighbour->_onStack = true;
        if (_isLarge)
            for (int behind = 0; behind < 3; ++behind)
                prefetch(neighbourOf(*neighbour, behind));
    }
}

/// True if the polygon that takes the triangle in stays simple and visible from the vertex: its far corner
/// is not on the polygon yet and both its far edges face the vertex. Without rounding the circle says so.
bool Delaunay2::joinsPolygon(Triangle& triangle, int slot, int i)
{
    const int end = triangle._vertices[slot];
    const int begin = triangle._vertices[nextOf(slot)];
    const int apex = triangle._vertices[nextOf(nextOf(slot))];
    triangle._isComponent = _vertexTimes[static_cast<size_t>(apex)] != i &&
                            _query->toLine(i, begin, apex) < 0 && _query->toLine(i, apex, end) < 0;
    if (triangle._isComponent)
        _vertexTimes[static_cast<size_t>(apex)] = i;
    return triangle._isComponent;
}

inline void Delaunay2::polygonInsertEdge(int v0, int v1, Triangle* owner, int ownerSlot)
{
    Edge& edge = _polygonEdgesCache.addOne();
    edge._verticesValues[0] = v0;
    edge._verticesValues[1] = v1;
    edge._ownerTriangle = owner;
    edge._nullIndex = ownerSlot;
}

/// Every edge of the polygon makes a triangle with the vertex. In a simple polygon each corner begins one
/// edge, so the triangle that it is given here leads from an edge to the one that follows. False if two
/// edges begin at one corner.
bool Delaunay2::fillPolygon(int i)
{
    Triangle* own = nullptr;
    for (Edge& edge : _polygonEdgesCache)
    {
        const int v0 = edge._verticesValues[0];
        Triangle* const added = obtainTriangle(i, v0, edge._verticesValues[1]);
        if (edge._ownerTriangle != nullptr)
        {
            added->_adj[1] = slotOf(*edge._ownerTriangle);
            edge._ownerTriangle->_adj[edge._nullIndex] = slotOf(*added);
        }
        edge._ownerTriangle = added;
        setTriangleAt(v0, added);
        if (own == nullptr || isSupervertex(v0))
            own = added; // what comes next to a vertex of the hull is outside, as a rule
    }
    setTriangleAt(i, own);

    for (const Edge& edge : _polygonEdgesCache)
    {
        Triangle* const following = triangleAt(edge._verticesValues[1]);
        if (following->_vertices[0] != i || following->_adj[0] != _none)
            return false;
        edge._ownerTriangle->_adj[2] = slotOf(*following);
        following->_adj[0] = slotOf(*edge._ownerTriangle);
    }
    return true;
}

inline Delaunay2::Triangle* Delaunay2::obtainTriangle(int v0, int v1, int v2)
{
    uint32_t index = 0;
    if (_trianglePoolRecycledIndices.any())
    {
        index = static_cast<uint32_t>(_trianglePoolRecycledIndices.back());
        _trianglePoolRecycledIndices.pop_back();
    }
    else
        index = _trianglePoolFirstAvailableIndex++;
    Triangle& triangle = _trianglePool[index];
    triangle.begin(v0, v1, v2);
    triangle._isDoubtful = !_query->isTurnSure(v0, v1, v2);
    _doubtfulCount += triangle._isDoubtful;
    return &triangle;
}

inline void Delaunay2::recycleTriangle(Triangle& triangle)
{
    triangle._inUse = false;
    _doubtfulCount -= triangle._isDoubtful;
    _trianglePoolRecycledIndices.push_back(static_cast<int>(slotOf(triangle)));
}

inline bool Delaunay2::hasSupervertex(const Triangle& triangle) const
{
    const int* const v = triangle._vertices;
    return isSupervertex(v[0]) || isSupervertex(v[1]) || isSupervertex(v[2]);
}

/// False if a triangle surely turns clockwise or, where some vertex went to a triangle that does not hold it,
/// if the triangles do not fill the hull.
bool Delaunay2::isTriangulation(const PODArray<int>& order) const
{
    if (_doubtfulCount == 0 && !_isSuspect)
        return true;
    double filled = 0.0;
    for (const Triangle& triangle : _trianglePool)
    {
        if (!triangle._inUse || hasSupervertex(triangle))
            continue;
        const int* const v = triangle._vertices;
        if (_query->toLineForSure(_sVertices[v[0]], v[1], v[2]) > 0)
            return false;
        filled += doubleAreaOf(_sVertices[v[0]], _sVertices[v[1]], _sVertices[v[2]]);
    }
    if (!_isSuspect)
        return true;

    constexpr double tolerance = 2e-6; // slivers along the hull, in the unit square
    Array<Vector2> points;
    points.reserve(order.size());
    for (const int i : order)
        points.push_back(_sVertices[i]);
    ConvexPolygon2 hull;
    hull.computeConvexHull(points);
    for (size_t k = 2; k < hull._vertices.size(); ++k)
        filled -= doubleAreaOf(hull._vertices[0], hull._vertices[k - 1], hull._vertices[k]);
    return std::abs(filled) <= tolerance;
}

void Delaunay2::removeTriangles()
{
    for (Triangle& triangle : _trianglePool)
        triangle._inUse = triangle._inUse && !hasSupervertex(triangle);
}

} // namespace mrv
