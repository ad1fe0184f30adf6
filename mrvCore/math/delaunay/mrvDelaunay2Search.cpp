// mrvCore/math/delaunay/mrvDelaunay2Search.cpp
// What a finished Delaunay2 answers.
#include "mrvCore/math/delaunay/mrvDelaunay2.h"
#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"
#include "mrvCore/math/geometry/mrvDistance.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/types/mrvBarycentrics.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace mrv {

namespace {

/// Position, in the flat arrays, of the vertex after the one at `entry` in its triangle.
int entryAfter(int entry)
{
    return entry % 3 == 2 ? entry - 2 : entry + 1;
}

} // namespace

bool Delaunay2::getHull(unsigned int& count, int*& indices) const
{
    MRV_ASSERT(_dimension == 2, "The dimension must be 2\n");
    const int entryCount = 3 * _simplicesCount;
    unsigned int edgeCount = 0;
    for (int entry = 0; entry < entryCount; ++entry)
        edgeCount += _adjacencies[entry] == -1;
    MRV_ASSERT(edgeCount > 0, "There must be at least one triangle");

    indices = static_cast<int*>(std::malloc(2 * sizeof(int) * edgeCount));
    MRV_ASSERT(indices != NULL);
    int* out = indices;
    for (int entry = 0; entry < entryCount; ++entry)
    {
        if (_adjacencies[entry] != -1)
            continue;
        *out++ = _indices[entry];
        *out++ = _indices[entryAfter(entry)];
    }
    count = edgeCount;
    return true;
}

bool Delaunay2::getHullClosestEdge(const Vector2& point, int& v0, int& v1) const
{
    MRV_ASSERT(_dimension == 2, "The dimension must be 2\n");
    float least = std::numeric_limits<float>::max();
    bool found = false;
    for (int entry = 0; entry < 3 * _simplicesCount; ++entry)
    {
        if (_adjacencies[entry] != -1)
            continue;
        const int begin = _indices[entry];
        const int end = _indices[entryAfter(entry)];
        const float measure = distance2(point, Segment2(_vertices[begin], _vertices[end]));
        if (!(measure < least))
            continue;
        least = measure;
        found = true;
        v0 = begin;
        v1 = end;
    }
    return found;
}

int Delaunay2::getContainingTriangle(const Vector2& point) const
{
    if (_dimension != 2)
        return -1;
    const Vector2 p = (point - _min) * _scale;
    int triangle = _pathLast >= 0 ? _path[_pathLast] : 0;
    _pathLast = -1;
    _lastEdgeV0 = _lastEdgeV1 = _lastEdgeOpposite = _lastEdgeOppositeIndex = -1;
    if (!std::isfinite(p.x) || !std::isfinite(p.y))
        return -1; // to a line it would be neither left nor right
    for (int step = 0; step < _simplicesCount; ++step)
    {
        _path[++_pathLast] = triangle;
        const int* const v = _indices + 3 * triangle;
        int j = 0;
        while (j < 3 && _query->toLine(p, v[j], v[(j + 1) % 3]) <= 0)
            ++j;
        if (j == 3)
            return triangle;
        triangle = _adjacencies[3 * triangle + j];
        if (triangle == -1)
        {
            _lastEdgeV0 = v[j];
            _lastEdgeV1 = v[(j + 1) % 3];
            _lastEdgeOppositeIndex = (j + 2) % 3;
            _lastEdgeOpposite = v[_lastEdgeOppositeIndex];
            return -1;
        }
    }
    return -1;
}

int Delaunay2::getLastEdge(int& v0, int& v1, int& opposite) const
{
    v0 = _lastEdgeV0;
    v1 = _lastEdgeV1;
    opposite = _lastEdgeOpposite;
    return _lastEdgeOppositeIndex;
}

int Delaunay2::getClosestVertex(const Vector2& point) const
{
    int closest = -1;
    float least = std::numeric_limits<float>::infinity();
    for (int i = 0; i < _verticesCount; ++i)
    {
        const float measure = (_vertices[i] - point).norm2();
        if (!(measure < least))
            continue;
        least = measure;
        closest = i;
    }
    return closest;
}

bool Delaunay2::getVertexSet(int index, Vector2 out[3]) const
{
    if (!hasTriangle(index))
        return false;
    for (int j = 0; j < 3; ++j)
        out[j] = _vertices[_indices[3 * index + j]];
    return true;
}

bool Delaunay2::getIndexSet(int index, int out[3]) const
{
    if (!hasTriangle(index))
        return false;
    for (int j = 0; j < 3; ++j)
        out[j] = _indices[3 * index + j];
    return true;
}

bool Delaunay2::getAdjacentSet(int index, int out[3]) const
{
    if (!hasTriangle(index))
        return false;
    for (int j = 0; j < 3; ++j)
        out[j] = _adjacencies[3 * index + j];
    return true;
}

bool Delaunay2::getBarycentricSet(int index, const Vector2& point, float out[3]) const
{
    Vector2 corners[3];
    if (!getVertexSet(index, corners))
        return false;
    Vector3 weights;
    computeBarycentricsCoordinates(point, corners[0], corners[1], corners[2], weights);
    out[0] = weights.x;
    out[1] = weights.y;
    out[2] = weights.z;
    return true;
}

} // namespace mrv
