// mrvCore/math/delaunay/mrvDelaunay2.h
// Delaunay triangulation of points of the plane, and searches in it.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunay.h"
#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstdint>

namespace mrv {

class DelaunayQuery2;

/// Incremental insertion into a triangle that encloses all points (Bowyer, 1981; Watson, 1981).
///
/// Triangles turn counterclockwise. Points go in in the caller's order, repeated ones once, and their order
/// decides the numbering of the triangles. The hull is convex as far as float arithmetic can tell. Points
/// that are not finite, or that the scaling to the unit square makes so, are left out with a warning.
/// All computation is in float, in the unit square: points closer than its resolution fall together.
///
/// Degenerate input is no error: see getDimension(). What the predicates cannot make a triangulation of, as
/// their rounding contradicts itself, ends the process.
/// Threads: one search at a time per object, see getContainingTriangle(); all else is read-only.
class MRV_CORE_API Delaunay2 : public Delaunay
{
public:
    /// Extent and dimension of a set of points.
    struct Information
    {
        int _dimension = 0;
        float _min[2] = {};
        float _max[2] = {};
        float _maxRange = 0.0f;   ///< the longer side of the bounding box
        Vector2 _origin;          ///< the first extreme point
        Vector2 _direction[2];    ///< along the points and across, counterclockwise; null in dimension 0
        int _extreme[3] = {};     ///< the two ends of the longer axis, and the point farthest from their line
        bool _extremeCCW = false; ///< turn of the three; meaningful in dimension 2
    };

    /// Takes `vertices` over, an array from new[] of `verticesCount` points; at least one.
    /// `epsilon`, at least 0, decides the dimension alone: the points are one if their range is below it, and
    /// a line if they leave it by less than epsilon times the range. Any type but REAL is fatal in dimension
    /// 2, since it has no predicates.
    Delaunay2(unsigned int verticesCount, Vector2* vertices, float epsilon,
              DelaunayQuery::Type::Values queryType);
    ~Delaunay2() override;

    /// Points that are not finite are passed over; without any other all is 0.
    static void getInformation(unsigned int count, const Vector2* points, float epsilon, Information& info);

    const Vector2* getVertices() const { return _vertices; }
    /// Distinct points among the finite ones, in dimension 2; else 0.
    unsigned int getUniqueVerticesCount() const { return _uniqueVerticesCount; }
    /// The line that the points lie on, in dimension 1.
    const Vector2& getLineOrigin() const { return _lineOrigin; }
    const Vector2& getLineDirection() const { return _lineDirection; }

    /// Triangles that the last search came through, up to the entry getPathLast(), -1 for none.
    const int* getPath() const { return _path; }
    int getPathLast() const { return _pathLast; }

    /// The edges of the hull, a pair of vertices each, counterclockwise but not in the order of the hull.
    /// `indices` is the caller's, from malloc. No triangles, or another dimension than 2, are fatal.
    bool getHull(unsigned int& count, int*& indices) const;
    /// The edge of the hull that is closest to the point, the first of equally close ones. False without
    /// triangles; another dimension than 2 is fatal.
    bool getHullClosestEdge(const Vector2& point, int& v0, int& v1) const;

    /// The triangle that holds the point, or -1. The walk starts where the last one ended, so near points
    /// take few steps. It writes path and last edge, const or not: one thread at a time.
    int getContainingTriangle(const Vector2& point) const;
    /// The edge of the hull that the last search left over, with the vertex opposite to it, and as result the
    /// place of that vertex in its triangle. All are -1 if the search found its triangle or gave up.
    int getLastEdge(int& v0, int& v1, int& opposite) const;

    /// The first of the closest points, found by looking at all; -1 if no distance is a number.
    int getClosestVertex(const Vector2& point) const;

    /// Corners, their indices, neighbours and a point's weights in one triangle. False, and nothing written,
    /// for a triangle that does not exist.
    bool getVertexSet(int index, Vector2 out[3]) const;
    bool getIndexSet(int index, int out[3]) const;
    bool getAdjacentSet(int index, int out[3]) const;
    bool getBarycentricSet(int index, const Vector2& point, float out[3]) const;

private:
    struct Triangle;
    struct Edge;
    class Scouts;

    /// Of vertices; the caches hold the mesh of fewer.
    static constexpr size_t _largeCount = 32768;
    /// Of a polygon.
    static constexpr size_t _fewEdges = 16;

    void prepareWorkingVertices(const Information& info);
    void insertVertices();
    void numberTriangles();
    void releaseConstructionData();

    bool tryInsert(const PODArray<int>& order);
    void clearMesh();
    bool update(int i, const Triangle* start);
    void openPolygonEdge(Triangle& triangle, int slot, int i, bool isContaining);
    bool joinsPolygon(Triangle& triangle, int slot, int i);
    bool fillPolygon(int i);
    bool linkTriangles(uint32_t triangle, uint32_t following);
    bool linkFewTriangles();
    unsigned int findFewCorners(int vertex) const;
    bool fillCornersCache();
    size_t placeOfCorner(int vertex) const;
    Triangle& obtainTriangle(int v0, const Edge& edge);
    void recycleTriangle(Triangle& triangle);
    bool isTriangulation(const PODArray<int>& order) const;

    Triangle* findTriangle(int i, const Triangle* start);
    const Triangle* walkForSure(const Vector2& point, const Triangle* start) const;
    const Triangle* getContainingTriangle(int i) const;
    const Triangle* walk(int i, const Triangle* start) const;
    const Triangle* findTriangleCarefully(int i, const Triangle* start) const;
    const Triangle* findClosest(int i) const;
    bool holds(const Triangle& triangle, int i) const;

    bool isSupervertex(int vertex) const { return vertex >= _supervertices[0]; }
    bool hasSupervertex(const Triangle& triangle) const;
    bool hasTriangle(int index) const { return _dimension == 2 && index >= 0 && index < _simplicesCount; }
    uint32_t slotOf(const Triangle& triangle) const;
    const Triangle* neighbourOf(const Triangle& triangle, int slot) const;
    void prefetchNeighbours(const Triangle& triangle) const;

    Vector2* _vertices;
    Triangle* _trianglePool = nullptr;
    PODArray<int> _trianglePoolRecycledIndices;
    uint32_t _trianglePoolFirstAvailableIndex = 0;
    unsigned int _uniqueVerticesCount = 0;
    int _supervertices[3] = { -1, -1, -1 };
    Vector2 _lineOrigin;
    Vector2 _lineDirection;
    int* _path = nullptr;
    mutable int _pathLast = -1;
    Vector2* _sVertices = nullptr; ///< the points in working coordinates, then the three enclosing ones
    DelaunayQuery2* _query = nullptr;
    Vector2 _min;
    float _scale = 1.0f;
    PODArray<Edge> _polygonEdgesCache;
    alignas(16) int _fewCorners[_fewEdges] = {}; ///< where the first edges of the polygon begin
    PODArray<uint32_t> _polygonCornersCache; ///< new triangles by the vertex that their outer edge begins at
    PODArray<Triangle*> _triStackCache;
    PODArray<int> _vertexTimes;              ///< the last insertion whose polygon had the vertex
    const Triangle* _lastTriangle = nullptr; ///< at the last vertex
    mutable int _lastEdgeV0 = -1;
    mutable int _lastEdgeV1 = -1;
    mutable int _lastEdgeOpposite = -1;
    mutable int _lastEdgeOppositeIndex = -1;
    void* _trianglePoolBlock = nullptr; ///< what the pool lies in, along lines of memory
    int _doubtfulCount = 0;             ///< of the triangles in use
    bool _isLarge = false;              ///< memory has to be asked for what is needed soon
    bool _isCareful = false;            ///< keeps every polygon simple and visible from its vertex
    bool _isSuspect = false;            ///< some vertex went to a triangle that does not hold it
};

} // namespace mrv
