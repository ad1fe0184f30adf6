// mrvCore/math/delaunay/mrvDelaunay2Location.cpp
// In which triangle Delaunay2 puts a vertex.
#include "mrvCore/math/delaunay/mrvDelaunay2Mesh.h"
#include "mrvCore/math/geometry/mrvDistance.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <algorithm>
#include <limits>

namespace mrv {

using internal::nextOf;
using internal::noTriangle;

// A triangle that holds the vertex strictly, beyond doubt, is the only one while no other is in doubt itself.
// So a walk may begin anywhere. In all other cases it is the walk from the first triangle of the pool that
// decides, say, between the two triangles at an edge that the vertex lies on: results depend on that.
Delaunay2::Triangle* Delaunay2::findTriangle(int i, const Triangle* start)
{
    const Triangle* triangle = nullptr;
    if (_isCareful)
        triangle = findTriangleCarefully(i, start);
    else if (_doubtfulCount == 0)
        triangle = walkForSure(_sVertices[i], start);
    if (triangle == nullptr)
    {
        triangle = getContainingTriangle(i);
        _isSuspect = _isSuspect || triangle == nullptr || !holds(*triangle, i);
    }
    return const_cast<Triangle*>(triangle);
}

// Any triangle that holds the vertex will do, or else the closest.
const Delaunay2::Triangle* Delaunay2::findTriangleCarefully(int i, const Triangle* start) const
{
    for (const Triangle* from : { start, static_cast<const Triangle*>(_trianglePool) })
    {
        const Triangle* const triangle = walk(i, from);
        if (triangle != nullptr && holds(*triangle, i))
            return triangle;
    }
    return findClosest(i);
}

// Null if the point is not strictly inside where the walk ends, or if that is in doubt.
inline const Delaunay2::Triangle* Delaunay2::walkForSure(const Vector2& point, const Triangle* start) const
{
    uint32_t former = noTriangle;
    const Triangle* triangle = start;
    for (uint32_t step = 0; step < _trianglePoolFirstAvailableIndex && triangle != nullptr; ++step)
    {
        bool isSure = true;
        int slot = 0;
        for (; slot < 3; ++slot)
        {
            if (triangle->_adj[slot] == former && former != noTriangle)
                continue; // the edge that the walk came over, so its side is sure
            const int side = triangle->toLineForSure(point, slot);
            if (side > 0)
                break;
            isSure = isSure && side < 0;
        }
        if (slot == 3)
            return isSure ? triangle : nullptr;
        former = slotOf(*triangle);
        triangle = neighbourOf(*triangle, slot);
    }
    return nullptr;
}

const Delaunay2::Triangle* Delaunay2::getContainingTriangle(int i) const
{
    const Triangle* const triangle = walk(i, _trianglePool);
    if (triangle == nullptr)
        MRV_LOG(SDK, LOG_ERROR, "Delaunay vertices must lie in some triangle\n");
    return triangle;
}

// Null if the walk leaves the mesh or goes round in it.
const Delaunay2::Triangle* Delaunay2::walk(int i, const Triangle* start) const
{
    const Triangle* triangle = start;
    for (uint32_t step = 0; step < _trianglePoolFirstAvailableIndex && triangle != nullptr; ++step)
    {
        int slot = 0;
        while (slot < 3 && triangle->toLine(_sVertices[i], slot) <= 0)
            ++slot;
        if (slot == 3)
            return triangle;
        triangle = neighbourOf(*triangle, slot);
    }
    return nullptr;
}

// The sides of a flat triangle say nothing about what lies on its line, so the bounds have a say too.
bool Delaunay2::holds(const Triangle& triangle, int i) const
{
    const Vector2& point = _sVertices[i];
    const Vector2& v0 = _sVertices[triangle._vertices[0]];
    const Vector2& v1 = _sVertices[triangle._vertices[1]];
    const Vector2& v2 = _sVertices[triangle._vertices[2]];
    const auto isWithin = [](float value, std::initializer_list<float> bounds) {
        return value >= std::min(bounds) && value <= std::max(bounds);
    };
    return isWithin(point.x, { v0.x, v1.x, v2.x }) && isWithin(point.y, { v0.y, v1.y, v2.y }) &&
           _query->toTriangle(point, triangle._vertices[0], triangle._vertices[1], triangle._vertices[2]) <=
               0;
}

// By looking at all triangles in use; what misses a vertex by rounding is close to it.
const Delaunay2::Triangle* Delaunay2::findClosest(int i) const
{
    const Triangle* closest = nullptr;
    float least = std::numeric_limits<float>::max();
    for (uint32_t place = 0; place < _trianglePoolFirstAvailableIndex; ++place)
    {
        const Triangle& triangle = _trianglePool[place];
        if (!triangle._inUse)
            continue;
        if (holds(triangle, i))
            return &triangle;
        for (int slot = 0; slot < 3; ++slot)
        {
            const Segment2 edge(_sVertices[triangle._vertices[slot]],
                                _sVertices[triangle._vertices[nextOf(slot)]]);
            const float measure = distance2(_sVertices[i], edge);
            if (measure < least)
            {
                least = measure;
                closest = &triangle;
            }
        }
    }
    return closest;
}

} // namespace mrv
