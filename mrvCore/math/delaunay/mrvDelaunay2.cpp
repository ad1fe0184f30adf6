// mrvCore/math/delaunay/mrvDelaunay2.cpp
#include "mrvCore/math/delaunay/mrvDelaunay2Mesh.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/memory/mrvLargePages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace mrv {

namespace {

int* allocateInts(size_t count)
{
    int* const ints = static_cast<int*>(std::malloc(count * sizeof(int)));
    internal::adviseLargePages(ints, count * sizeof(int));
    return ints;
}

/// Gives back what is behind the first `count`; null for none.
int* shrinkInts(int* ints, size_t count)
{
    if (count == 0)
    {
        std::free(ints);
        return nullptr;
    }
    void* const shrunk = std::realloc(ints, count * sizeof(int));
    return shrunk != nullptr ? static_cast<int*>(shrunk) : ints;
}

/// The multiplier that the coordinates of the unit square get, so that exact arithmetic finds whole numbers.
float multiplierOf(DelaunayQuery::Type::Values queryType)
{
    switch (queryType)
    {
    case DelaunayQuery::Type::INT64:
        return 65536.0f;
    case DelaunayQuery::Type::INTEGER:
        return 1048576.0f;
    default:
        return 1.0f;
    }
}

} // namespace

Delaunay2::Delaunay2(unsigned int verticesCount, Vector2* vertices, float epsilon,
                     DelaunayQuery::Type::Values queryType)
    : Delaunay(static_cast<int>(verticesCount), epsilon, queryType)
    , _vertices(vertices)
{
    Information info;
    getInformation(verticesCount, vertices, epsilon, info);
    _dimension = info._dimension;
    if (_dimension == 1)
    {
        _lineOrigin = info._origin;
        _lineDirection = info._direction[0];
    }
    if (_dimension != 2)
        return;

    prepareWorkingVertices(info);
    MRV_ASSERT(_query != nullptr, "Only the query type REAL has predicates\n");
    insertVertices();
    numberTriangles();
    _verticesCount = _supervertices[0];
    releaseConstructionData();
}

Delaunay2::~Delaunay2()
{
    delete _query;
    internal::freeBlock(_sVertices);
    std::free(_path);
    delete[] _vertices;
}

void Delaunay2::prepareWorkingVertices(const Information& info)
{
    const int count = _verticesCount;
    _verticesCount += 3;
    _sVertices = static_cast<Vector2*>(internal::allocateBlock(size_t(_verticesCount), sizeof(Vector2)));
    internal::adviseLargePages(_sVertices, size_t(_verticesCount) * sizeof(Vector2));
    for (int i = 0; i < 3; ++i)
        _supervertices[i] = count + i;
    Vector2* const super = _sVertices + count;

    if (_queryType == DelaunayQuery::Type::RATIONAL || _queryType == DelaunayQuery::Type::FILTERED)
    {
        const Vector2 min(info._min[0], info._min[1]);
        const Vector2 max(info._max[0], info._max[1]);
        const Vector2 delta = max - min;
        std::copy(_vertices, _vertices + count, _sVertices);
        super[0] = min - delta;
        super[1] = Vector2(max.x + 3.0f * delta.x, min.y - delta.y);
        super[2] = Vector2(min.x - delta.x, max.y + 3.0f * delta.y);
        return;
    }

    _min = Vector2(info._min[0], info._min[1]);
    _scale = 1.0f / info._maxRange;
    const float multiplier = multiplierOf(_queryType);
    for (int i = 0; i < count; ++i)
        _sVertices[i] = (_vertices[i] - _min) * _scale * multiplier;
    super[0] = Vector2(-1.0f, -1.0f) * multiplier;
    super[1] = Vector2(4.0f, -1.0f) * multiplier;
    super[2] = Vector2(-1.0f, 4.0f) * multiplier;
    _scale *= multiplier;
    if (_queryType == DelaunayQuery::Type::REAL)
        _query = new DelaunayQuery2(_verticesCount, _sVertices);
}

/// In one walk over the pool, each triangle is copied to where the next one in use goes.
void Delaunay2::numberTriangles()
{
    const size_t slotCount = _trianglePoolFirstAvailableIndex;
    PODArray<int> numbers(slotCount);
    internal::adviseLargePages(numbers.begin(), numbers.size() * sizeof(int));
    _indices = allocateInts(3 * (slotCount + 1));
    MRV_ASSERT(_indices != NULL);
    _adjacencies = allocateInts(3 * (slotCount + 1));
    MRV_ASSERT(_adjacencies != NULL);
    size_t count = 0;
    for (size_t slot = 0; slot < slotCount; ++slot)
    {
        // Without branches: whether a triangle is in use is hard to foretell.
        const Triangle& triangle = _trianglePool[slot];
        const bool isInUse = triangle._inUse & !hasSupervertex(triangle);
        std::memcpy(_indices + 3 * count, triangle._vertices, sizeof(triangle._vertices));
        std::memcpy(_adjacencies + 3 * count, triangle._adj, sizeof(triangle._adj));
        numbers[slot] = isInUse ? static_cast<int>(count) : -1;
        count += isInUse;
    }
    _simplicesCount = static_cast<int>(count);
    _indices = shrinkInts(_indices, 3 * count);
    _adjacencies = shrinkInts(_adjacencies, 3 * count);
    if (count == 0)
        return;
    for (size_t k = 0; k < 3 * count; ++k)
    {
        const uint32_t neighbour = static_cast<uint32_t>(_adjacencies[k]);
        _adjacencies[k] = neighbour == internal::noTriangle ? -1 : numbers[neighbour];
    }
    _path = allocateInts(count + 1);
    MRV_ASSERT(_path != NULL);
}

void Delaunay2::releaseConstructionData()
{
    internal::freeBlock(_trianglePoolBlock);
    _trianglePoolBlock = nullptr;
    _trianglePoolRecycledIndices.set_capacity(0);
    _polygonEdgesCache.set_capacity(0);
    _polygonCornersCache.set_capacity(0);
    _triStackCache.set_capacity(0);
    _vertexTimes.set_capacity(0);
}

} // namespace mrv
