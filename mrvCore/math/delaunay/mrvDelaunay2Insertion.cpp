// mrvCore/math/delaunay/mrvDelaunay2Insertion.cpp
// How Delaunay2 takes in one vertex after the other.
//
// The order in which triangles are visited, freed and made anew numbers the result, and callers keep
// results: it stays as it is. Small functions are inline here so that they go into the loop that calls them.
#include "mrvCore/math/delaunay/mrvDelaunay2Scouts.h"
#include "mrvCore/math/delaunay/mrvDistinctPoints.h"
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/memory/mrvLargePages.h"

#include <cmath>
#include <memory>

#include <emmintrin.h>

namespace mrv {

using internal::nextOf;
using internal::noTriangle;

namespace {

/// Twice the area, positive if counterclockwise.
double doubleAreaOf(const Vector2& a, const Vector2& b, const Vector2& c)
{
    return (double(b.x) - double(a.x)) * (double(c.y) - double(a.y)) -
           (double(c.x) - double(a.x)) * (double(b.y) - double(a.y));
}

} // namespace

inline void Delaunay2::Triangle::begin(int v0, const Vector2& point, const Edge& edge)
{
    for (uint32_t& neighbour : _adj)
        neighbour = noTriangle;
    _vertices[0] = v0;
    _vertices[1] = edge._verticesValues[0];
    _vertices[2] = edge._verticesValues[1];
    _points[0] = point;
    _points[1] = edge._points[0];
    _points[2] = edge._points[1];
    _time = -1;
    _isComponent = false;
    _onStack = false;
    _inUse = true;
    _isDoubtful = !DelaunayQuery2::isTurnSure(point, _vertices[1], _vertices[2], _points[1], _points[2]);
}

inline int Delaunay2::Triangle::detachFrom(int slot, uint32_t self, Triangle& neighbour)
{
    _adj[slot] = noTriangle;
    int found = neighbour._adj[1] == self ? 1 : 2;
    found = neighbour._adj[0] == self ? 0 : found;
    if (neighbour._adj[found] != self)
        return -1;
    neighbour._adj[found] = noTriangle;
    return found;
}

[[gnu::always_inline]] inline bool
Delaunay2::Triangle::isInsertionComponent(int i, const Vector2& point, uint32_t adjacent, int firstSuper)
{
    if (_time == i)
        return _isComponent;
    _time = i;
    if (_vertices[0] < firstSuper && _vertices[1] < firstSuper && _vertices[2] < firstSuper)
        _isComponent = DelaunayQuery2::toCircumcircle(point, _points) < 0;
    else
        _isComponent = toLine(point, findFiniteEdge(adjacent, firstSuper)) < 0;
    return _isComponent;
}

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
    while (j < 3 && (_adj[j] == noTriangle || _adj[j] == adjacent))
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
    internal::TriangleGrid grid;
    Scouts scouts(*this, order, grid);
    for (size_t k = 0; k < order.size(); ++k)
    {
        // Rows, curves and the like go on where the last vertex was.
        const Vector2& point = _sVertices[order[k]];
        const Triangle* start = scouts.next(k);
        if ((point - _lastTriangle->_points[0]).norm2() < (point - start->_points[0]).norm2())
            start = _lastTriangle;
        if (!update(order[k], start))
            return false;
        grid.insert(point, slotOf(*_lastTriangle));
    }
    return true;
}

/// The mesh of n vertices and the supervertices has 2n + 1 triangles and never more, so the pool does not
/// grow.
void Delaunay2::clearMesh()
{
    const size_t count = 2 * static_cast<size_t>(_supervertices[0]) + 1;
    if (_trianglePoolBlock == nullptr)
    {
        _trianglePoolBlock = internal::allocateBlock(count + 1, sizeof(Triangle));
        internal::adviseLargePages(_trianglePoolBlock, (count + 1) * sizeof(Triangle));
        size_t room = (count + 1) * sizeof(Triangle);
        void* aligned = _trianglePoolBlock;
        _trianglePool =
            static_cast<Triangle*>(std::align(alignof(Triangle), count * sizeof(Triangle), aligned, room));
    }
    _trianglePoolRecycledIndices.clear();
    _trianglePoolFirstAvailableIndex = 0;
    _triStackCache.clear();
    _doubtfulCount = 0;
    _isSuspect = false;
    _vertexTimes.assign(_isCareful ? static_cast<size_t>(_verticesCount) : 0, -1);
    const int* const super = _supervertices;
    const Edge edge = {
        noTriangle, -1, { super[1], super[2] }, { _sVertices[super[1]], _sVertices[super[2]] }
    };
    _lastTriangle = &obtainTriangle(super[0], edge);
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
    Triangle* triangle = containing;
    for (;;)
    {
        triangle->_onStack = false;
        // Three calls, so that each knows its slot when it is compiled.
        openPolygonEdge(*triangle, 0, i, triangle == containing);
        openPolygonEdge(*triangle, 1, i, triangle == containing);
        openPolygonEdge(*triangle, 2, i, triangle == containing);
        recycleTriangle(*triangle);
        if (_triStackCache.empty())
            break;
        triangle = _triStackCache.back();
        _triStackCache.pop_back();
    }
    return _polygonEdgesCache.size() == _trianglePoolRecycledIndices.size() + 2 && fillPolygon(i);
}

/// Goes on into the neighbour if its circle holds the vertex; otherwise the edge bounds the polygon.
[[gnu::always_inline]] inline void Delaunay2::openPolygonEdge(Triangle& triangle, int slot, int i,
                                                              bool isContaining)
{
    const int next = nextOf(slot);
    const int v0 = triangle._vertices[slot];
    const int v1 = triangle._vertices[next];
    // In place: a temporary object stalls the processor here.
    const auto insertEdge = [&](uint32_t owner, int ownerSlot) {
        if (_polygonEdgesCache.size() < _fewEdges)
            _fewCorners[_polygonEdgesCache.size()] = v0;
        Edge& edge = _polygonEdgesCache.addOne();
        edge._ownerTriangle = owner;
        edge._nullIndex = ownerSlot;
        edge._verticesValues[0] = v0;
        edge._verticesValues[1] = v1;
        edge._points[0] = triangle._points[slot];
        edge._points[1] = triangle._points[next];
    };
    const uint32_t neighbourIndex = triangle._adj[slot];
    if (neighbourIndex == noTriangle)
    {
        if (isSupervertex(v0) && isSupervertex(v1))
            insertEdge(noTriangle, -1);
        return;
    }
    Triangle* const neighbour = _trianglePool + neighbourIndex;
    const uint32_t self = slotOf(triangle);
    const int neighbourSlot = triangle.detachFrom(slot, self, *neighbour);
    const Vector2& point = _sVertices[i];
    bool joins = neighbour->isInsertionComponent(i, point, self, _supervertices[0]);
    if (_isCareful)
        joins = (joins || (isContaining && triangle.toLine(point, slot) >= 0)) &&
                joinsPolygon(*neighbour, neighbourSlot, i);
    if (!joins)
        insertEdge(neighbourIndex, neighbourSlot);
    else if (!neighbour->_onStack)
    {
        _triStackCache.push_back(neighbour);
        neighbour->_onStack = true;
        if (_isLarge)
            prefetchNeighbours(*neighbour);
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

/// Every edge of the polygon makes a triangle with the vertex. In a simple polygon each corner begins one
/// edge. False if another number of edges begins at one.
bool Delaunay2::fillPolygon(int i)
{
    _lastTriangle = nullptr;
    for (Edge& edge : _polygonEdgesCache)
    {
        Triangle& added = obtainTriangle(i, edge);
        const uint32_t slot = slotOf(added);
        if (edge._ownerTriangle != noTriangle)
        {
            added._adj[1] = edge._ownerTriangle;
            _trianglePool[edge._ownerTriangle]._adj[edge._nullIndex] = slot;
        }
        edge._ownerTriangle = slot;
        if (_lastTriangle == nullptr || isSupervertex(edge._verticesValues[0]))
            _lastTriangle = &added; // what comes next to a vertex of the hull is outside, as a rule
    }

    // Most polygons have so few edges that a look at all of them is sooner done than a table.
    if (_polygonEdgesCache.size() <= _fewEdges)
        return linkFewTriangles();
    if (!fillCornersCache())
        return false;
    for (const Edge& edge : _polygonEdgesCache)
        if (!linkTriangles(edge._ownerTriangle, _polygonCornersCache[placeOfCorner(edge._verticesValues[1])]))
            return false;
    return true;
}

/// False where there is no following one.
inline bool Delaunay2::linkTriangles(uint32_t triangle, uint32_t following)
{
    if (following == noTriangle)
        return false;
    _trianglePool[triangle]._adj[2] = following;
    _trianglePool[following]._adj[0] = triangle;
    return true;
}

bool Delaunay2::linkFewTriangles()
{
    const unsigned int count = static_cast<unsigned int>(_polygonEdgesCache.size());
    for (const Edge& edge : _polygonEdgesCache)
    {
        // Edge k begins at this one's end where the bit k is set.
        const unsigned int following = findFewCorners(edge._verticesValues[1]) & ((1u << count) - 1);
        if (following == 0 || (following & (following - 1)) != 0)
            return false;
        const size_t k = static_cast<size_t>(__builtin_ctz(following));
        linkTriangles(edge._ownerTriangle, _polygonEdgesCache[k]._ownerTriangle);
    }
    return true;
}

/// A bit for each place of the vertex in _fewCorners.
inline unsigned int Delaunay2::findFewCorners(int vertex) const
{
    static_assert(_fewEdges == 16, "four comparisons of four corners");
    const __m128i wanted = _mm_set1_epi32(vertex);
    const auto compare = [&](size_t place) {
        return _mm_cmpeq_epi32(_mm_load_si128(reinterpret_cast<const __m128i*>(_fewCorners + place)), wanted);
    };
    const __m128i equal =
        _mm_packs_epi16(_mm_packs_epi32(compare(0), compare(4)), _mm_packs_epi32(compare(8), compare(12)));
    return static_cast<unsigned int>(_mm_movemask_epi8(equal));
}

/// False if two edges begin at one corner.
bool Delaunay2::fillCornersCache()
{
    size_t placeCount = 16;
    while (placeCount < 2 * _polygonEdgesCache.size())
        placeCount *= 2;
    _polygonCornersCache.assign(placeCount, noTriangle);
    for (const Edge& edge : _polygonEdgesCache)
    {
        uint32_t& place = _polygonCornersCache[placeOfCorner(edge._verticesValues[0])];
        if (place != noTriangle)
            return false;
        place = edge._ownerTriangle;
    }
    return true;
}

/// Where the corner is in the cache, or else where it has room.
inline size_t Delaunay2::placeOfCorner(int vertex) const
{
    const size_t mask = _polygonCornersCache.size() - 1;
    size_t place = (static_cast<uint64_t>(vertex) * 0x9e3779b97f4a7c15u >> 32) & mask;
    while (_polygonCornersCache[place] != noTriangle &&
           _trianglePool[_polygonCornersCache[place]]._vertices[1] != vertex)
        place = (place + 1) & mask;
    return place;
}

inline Delaunay2::Triangle& Delaunay2::obtainTriangle(int v0, const Edge& edge)
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
    triangle.begin(v0, _sVertices[v0], edge);
    _doubtfulCount += triangle._isDoubtful;
    return triangle;
}

inline void Delaunay2::recycleTriangle(Triangle& triangle)
{
    triangle._inUse = false;
    _doubtfulCount -= triangle._isDoubtful;
    _trianglePoolRecycledIndices.push_back(static_cast<int>(slotOf(triangle)));
}

/// False if a triangle surely turns clockwise or, where some vertex went to a triangle that does not hold it,
/// if the triangles do not fill the hull.
bool Delaunay2::isTriangulation(const PODArray<int>& order) const
{
    if (_doubtfulCount == 0 && !_isSuspect)
        return true;
    double filled = 0.0;
    for (uint32_t slot = 0; slot < _trianglePoolFirstAvailableIndex; ++slot)
    {
        const Triangle& triangle = _trianglePool[slot];
        if (!triangle._inUse || hasSupervertex(triangle))
            continue;
        const Vector2* const points = triangle._points;
        if (triangle.toLineForSure(points[0], 1) > 0)
            return false;
        filled += doubleAreaOf(points[0], points[1], points[2]);
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

} // namespace mrv
