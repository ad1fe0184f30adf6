// mrvCore/math/geometry3/mrvRayCastTree.cpp
#include "mrvCore/math/geometry3/mrvRayCastTree.h"

#include "mrvCore/system/memory/mrvLargePages.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace mrv::internal {

namespace {

using Mask = int __attribute__((vector_size(16)));

// What a float computation of a few steps may be off by, in units of the greatest product that takes part.
constexpr float roundingShare = 4e-6f;

#if defined(__SSE__)
Float4 least(Float4 a, Float4 b)
{
    return __builtin_ia32_minps(a, b);
}
Float4 greatest(Float4 a, Float4 b)
{
    return __builtin_ia32_maxps(a, b);
}
unsigned int lanesOf(Mask mask)
{
    return static_cast<unsigned int>(__builtin_ia32_movmskps(reinterpret_cast<Float4>(mask)));
}
#else
Float4 least(Float4 a, Float4 b)
{
    return a < b ? a : b;
}
Float4 greatest(Float4 a, Float4 b)
{
    return a > b ? a : b;
}
unsigned int lanesOf(Mask mask)
{
    unsigned int lanes = 0;
    for (unsigned int i = 0; i < 4; ++i)
        lanes |= mask[i] != 0 ? 1u << i : 0u;
    return lanes;
}
#endif

Float4 absolute(Float4 lanes)
{
    constexpr unsigned int noSign = 0x7FFFFFFFu;
    return reinterpret_cast<Float4>(reinterpret_cast<Bits4>(lanes) & Bits4{ noSign, noSign, noSign, noSign });
}

/// The lanes of the first with their sign turned where the second is negative.
Float4 withSignOf(Float4 lanes, Float4 signs)
{
    constexpr unsigned int sign = 0x80000000u;
    return flipSigns(lanes, reinterpret_cast<Bits4>(signs) & Bits4{ sign, sign, sign, sign });
}

float greatestComponent(const Vector3& v)
{
    return std::max({ std::abs(v.x), std::abs(v.y), std::abs(v.z) });
}

/// Ten bits with two zeros before each.
uint32_t spread(uint32_t bits)
{
    bits = (bits | (bits << 16)) & 0x030000FFu;
    bits = (bits | (bits << 8)) & 0x0300F00Fu;
    bits = (bits | (bits << 4)) & 0x030C30C3u;
    return (bits | (bits << 2)) & 0x09249249u;
}

constexpr unsigned int digitBits = 10;
constexpr unsigned int digitCount = 3;

/// By the codes in the upper halves, a digit at a time from the last one on (radix sort).
void sortByCode(PODArray<uint64_t>& keys)
{
    PODArray<uint64_t> other(keys.size(), keys.begin());
    for (unsigned int digit = 0; digit < digitCount; ++digit)
    {
        const unsigned int shift = 32 + digit * digitBits;
        size_t places[(1u << digitBits) + 1] = {};
        for (const uint64_t key : keys)
            ++places[((key >> shift) & ((1u << digitBits) - 1)) + 1];
        for (size_t i = 1; i <= 1u << digitBits; ++i)
            places[i] += places[i - 1];
        for (const uint64_t key : keys)
            other[places[(key >> shift) & ((1u << digitBits) - 1)]++] = key;
        keys.swap(other);
    }
}

/// Room for an array that rays or the build read all over.
template <class T>
void reserveLarge(PODArray<T>& array, size_t count)
{
    array.reserve(count);
    adviseLargePages(array.begin(), count * sizeof(T));
}

uint32_t codeOf(uint64_t key)
{
    return static_cast<uint32_t>(key >> 32);
}

struct DoubleVector
{
    DoubleVector(const Vector3& point, const Vector3& origin)
        : x(static_cast<double>(point.x) - static_cast<double>(origin.x))
        , y(static_cast<double>(point.y) - static_cast<double>(origin.y))
        , z(static_cast<double>(point.z) - static_cast<double>(origin.z))
    {}
    double x, y, z;
};

/// Which side of an edge the ray passes: the opposite, to the bit, for the edge from b to a.
double sideOf(const Vector3& origin, const Vector3& direction, const Vector3& a, const Vector3& b)
{
    if (b < a)
        return -sideOf(origin, direction, b, a);
    const DoubleVector p(a, origin);
    const DoubleVector q(b, origin);
    const DoubleVector d(direction, Vector3());
    return d.x * (p.y * q.z - p.z * q.y) + d.y * (p.z * q.x - p.x * q.z) + d.z * (p.x * q.y - p.y * q.x);
}

} // namespace

struct RayCastTree::Builder
{
    struct Box
    {
        Float4 min = broadcast(std::numeric_limits<float>::infinity());
        Float4 max = broadcast(-std::numeric_limits<float>::infinity());

        void add(Float4 otherMin, Float4 otherMax)
        {
            min = least(otherMin, min);
            max = greatest(otherMax, max);
        }
    };

    struct Range
    {
        size_t first;
        size_t count;
    };

    RayCastTree& tree;
    const RayCastVertex* vertices;
    const PODArray<AABBTriangle>& triangles;
    PODArray<uint64_t> keys; ///< code and triangle

    const AABBTriangle& triangleAt(size_t place) const
    {
        return triangles[static_cast<size_t>(keys[place] & 0xFFFFFFFFu)];
    }

    /// The others are hit by no ray, and would spoil all boxes.
    static bool isFinite(const AABBTriangle& triangle)
    {
        return Vector3(triangle.min).isFinite() && Vector3(triangle.max).isFinite();
    }

    /// Cells are cubes, so that a flat mesh is not parted by height first.
    void sortTriangles()
    {
        Box box;
        for (const AABBTriangle& triangle : triangles)
            if (isFinite(triangle))
                box.add(load(triangle.min), load(triangle.max));
        tree._min = Vector3(box.min[0], box.min[1], box.min[2]);
        tree._max = Vector3(box.max[0], box.max[1], box.max[2]);

        constexpr float last = static_cast<float>((1u << digitBits) - 1);
        const Float4 extent = box.max - box.min;
        const float side = std::max({ extent[0], extent[1], extent[2] });
        const Float4 scale = broadcast(side > 0.0f ? last / (2.0f * side) : 0.0f);
        reserveLarge(keys, triangles.size());
        for (size_t i = 0; i < triangles.size(); ++i)
        {
            const AABBTriangle& triangle = triangles[i];
            if (!isFinite(triangle))
                continue;
            Float4 cell = (load(triangle.min) + load(triangle.max) - 2.0f * box.min) * scale;
            // What is no number counts as 0.
            cell = least(greatest(cell, broadcast(0.0f)), broadcast(last));
            const uint32_t code = spread(static_cast<uint32_t>(cell[0])) << 2 |
                                  spread(static_cast<uint32_t>(cell[1])) << 1 |
                                  spread(static_cast<uint32_t>(cell[2]));
            keys.push_back(static_cast<uint64_t>(code) << 32 | i);
        }
        sortByCode(keys);
    }

    /// Where the highest bit changes that is not common to all codes; the middle if they are equal.
    size_t findSplit(Range range) const
    {
        const uint64_t* const begin = keys.begin() + range.first;
        const uint64_t* const end = begin + range.count;
        const uint32_t different = codeOf(begin[0]) ^ codeOf(end[-1]);
        if (different == 0)
            return range.count / 2;
        const uint32_t bit = 0x80000000u >> __builtin_clz(different);
        const uint64_t* const split =
            std::partition_point(begin, end, [bit](uint64_t key) { return (codeOf(key) & bit) == 0; });
        return static_cast<size_t>(split - begin);
    }

    unsigned int part(Range range, Range* parts) const
    {
        unsigned int count = 0;
        if (range.count <= _width * _width)
        {
            for (size_t i = 0; i < range.count; i += _width)
                parts[count++] = { range.first + i, std::min<size_t>(_width, range.count - i) };
            return count;
        }
        const size_t middle = findSplit(range);
        for (const Range half :
             { Range{ range.first, middle }, Range{ range.first + middle, range.count - middle } })
        {
            const size_t quarter = half.count > _width ? findSplit(half) : half.count;
            parts[count++] = { half.first, quarter };
            if (quarter < half.count)
                parts[count++] = { half.first + quarter, half.count - quarter };
        }
        return count;
    }

    int addPacket(Range range, Box& box)
    {
        Packet packet = {};
        for (unsigned int lane = 0; lane < range.count; ++lane)
        {
            const AABBTriangle& triangle = triangleAt(range.first + lane);
            box.add(load(triangle.min), load(triangle.max));
            const Vector3& a = vertices[triangle.index0]._position;
            const Vector3 edge1 = vertices[triangle.index1]._position - a;
            const Vector3 edge2 = vertices[triangle.index2]._position - a;
            for (unsigned int axis = 0; axis < 3; ++axis)
            {
                packet.a[axis][lane] = a[axis];
                packet.edge1[axis][lane] = edge1[axis];
                packet.edge2[axis][lane] = edge2[axis];
            }
            packet.greatest[lane] = std::max(greatestComponent(edge1), greatestComponent(edge2));
            packet.slots[lane] = static_cast<int>(3 * (&triangle - triangles.begin()));
        }
        tree._packets.push_back(packet);
        return ~static_cast<int>(tree._packets.size() - 1);
    }

    // As deep as codes have bits and then as the logarithm of the count, halved.
    int add(Range range, Box& box)
    {
        if (range.count <= _width)
            return addPacket(range, box);
        const size_t place = tree._nodes.size();
        tree._nodes.push_back(Node());
        Range parts[_width];
        const unsigned int count = part(range, parts);
        Node node = {};
        for (unsigned int lane = 0; lane < _width; ++lane)
        {
            Box child;
            node.children[lane] = lane < count ? add(parts[lane], child) : ~0;
            box.add(child.min, child.max);
            for (unsigned int axis = 0; axis < 3; ++axis)
            {
                node.bounds[axis][lane] = child.min[axis];
                node.bounds[axis + 3][lane] = child.max[axis];
            }
        }
        tree._nodes[place] = node;
        return static_cast<int>(place);
    }
};

struct RayCastTree::Ray
{
    Ray(const RayCastTree& tree, const Vector3& from, const Vector3& along, const RayCastVertex* v,
        const int* i)
        : origin(from)
        , direction(along)
        , vertices(v)
        , indices(i)
    {
        const float distance =
            std::max(greatestComponent(from - tree._min), greatestComponent(from - tree._max));
        slack = broadcast(roundingShare * distance * greatestComponent(along));
        const float padding = roundingShare * std::max(distance, greatestComponent(from));
        for (unsigned int axis = 0; axis < 3; ++axis)
        {
            const bool isBackwards = along[axis] < 0.0f;
            nearBounds[axis] = isBackwards ? axis + 3 : axis;
            inverse[axis] = broadcast(1.0f / (along[axis] + 0.0f)); // of -0 as of 0
            nearOrigin[axis] = broadcast(from[axis] + (isBackwards ? -padding : padding));
            farOrigin[axis] = broadcast(from[axis] - (isBackwards ? -padding : padding));
            source[axis] = broadcast(from[axis]);
            way[axis] = broadcast(along[axis]);
        }
    }

    Float4 source[3];
    Float4 way[3];
    Float4 inverse[3];
    Float4 nearOrigin[3]; ///< moved along, so that boxes begin a little earlier
    Float4 farOrigin[3];  ///< moved back, so that they end a little later
    Float4 slack;         ///< times the size of an edge: what a side of it may be off by
    unsigned int nearBounds[3];
    const Vector3& origin;
    const Vector3& direction;
    const RayCastVertex* vertices;
    const int* indices;
};

struct RayCastTree::Nearest
{
    RayHit hit;

    float getReach() const { return hit.t; }
    void accept(float t, int slot)
    {
        if (t < hit.t || (t == hit.t && slot < hit.slot))
            hit = { t, slot };
    }
};

struct RayCastTree::All
{
    float reach;
    PODArray<RayHit>& hits;

    float getReach() const { return reach; }
    void accept(float t, int slot)
    {
        if (t < reach)
            hits.push_back({ t, slot });
    }
};

void RayCastTree::clear()
{
    _nodes = PODArray<Node>();
    _packets = PODArray<Packet>();
}

void RayCastTree::build(const RayCastVertex* vertices, const PODArray<AABBTriangle>& triangles)
{
    clear();
    if (triangles.empty())
        return;
    Builder builder = { *this, vertices, triangles, PODArray<uint64_t>() };
    builder.sortTriangles();
    reserveLarge(_packets, triangles.size() / 3 + 2);
    reserveLarge(_nodes, triangles.size() / 9 + 1);
    Builder::Box whole;
    builder.addPacket({ 0, 0 }, whole); // behind the children that there are not
    _root = builder.add({ 0, builder.keys.size() }, whole);
}

/// True if no edge of the triangle says that the ray passes it by.
bool RayCastTree::isInside(const Ray& ray, int slot)
{
    const int* const corners = ray.indices + slot;
    bool isLeft = false;
    bool isRight = false;
    for (int i = 0; i < 3; ++i)
    {
        const double side = sideOf(ray.origin, ray.direction, ray.vertices[corners[i]]._position,
                                   ray.vertices[corners[i == 2 ? 0 : i + 1]]._position);
        isLeft = isLeft || !(side <= 0.0);
        isRight = isRight || !(side >= 0.0);
    }
    return isLeft != isRight;
}

// The operations of hitsTriangle() in its order, four at a time. Divisions wait for those lanes that may
// be a hit, which are few.
template <class Visitor>
void RayCastTree::visit(const Packet& packet, const Ray& ray, Visitor& visitor)
{
    const Float4* const d = ray.way;
    const Float4* const e1 = packet.edge1;
    const Float4* const e2 = packet.edge2;
    const Float4 px = d[1] * e2[2] - d[2] * e2[1];
    const Float4 py = d[2] * e2[0] - d[0] * e2[2];
    const Float4 pz = d[0] * e2[1] - d[1] * e2[0];
    const Float4 determinant = e1[0] * px + e1[1] * py + e1[2] * pz;
    const Float4 sx = ray.source[0] - packet.a[0];
    const Float4 sy = ray.source[1] - packet.a[1];
    const Float4 sz = ray.source[2] - packet.a[2];
    const Float4 u = sx * px + sy * py + sz * pz;
    const Float4 qx = sy * e1[2] - sz * e1[1];
    const Float4 qy = sz * e1[0] - sx * e1[2];
    const Float4 qz = sx * e1[1] - sy * e1[0];
    const Float4 v = d[0] * qx + d[1] * qy + d[2] * qz;
    const Float4 t = e2[0] * qx + e2[1] * qy + e2[2] * qz;

    const Float4 size = absolute(determinant);
    const Float4 slack = packet.greatest * ray.slack;
    const Float4 uSigned = withSignOf(u, determinant);
    const Float4 vSigned = withSignOf(v, determinant);
    const Float4 tSigned = withSignOf(t, determinant);
    const Float4 reach = broadcast(visitor.getReach() * 1.000001f) * size;
    const Mask maybe = (size >= broadcast(1e-6f)) & (uSigned >= -slack) & (vSigned >= -slack) &
                       (uSigned + vSigned <= size + 4.0f * slack) & (tSigned >= broadcast(0.0f)) &
                       (tSigned <= reach);
    for (unsigned int lanes = lanesOf(maybe); lanes != 0; lanes &= lanes - 1)
    {
        const int lane = __builtin_ctz(lanes);
        const float tHit = t[lane] / determinant[lane];
        const float uHit = u[lane] / determinant[lane];
        const float vHit = v[lane] / determinant[lane];
        const bool isHit = uHit >= 0.0f && uHit <= 1.0f && vHit >= 0.0f && uHit + vHit <= 1.0f;
        if (isHit || isInside(ray, packet.slots[lane]))
            visitor.accept(tHit, packet.slots[lane]);
    }
}

template <class Visitor>
void RayCastTree::walk(const Ray& ray, Visitor& visitor) const
{
    struct Task
    {
        int child;
        float entry;
    };
    constexpr float outward = 1.00001f; // covers the rounding of what is compared
    Task stack[128];                    // three a level; see Builder::add() for the levels
    unsigned int size = 0;
    Task task = { _root, 0.0f };
    while (true)
    {
        if (task.child < 0)
        {
            const int packet = ~task.child;
            visit(_packets[static_cast<size_t>(packet)], ray, visitor);
        }
        else
        {
            const Node& node = _nodes[static_cast<size_t>(task.child)];
            Float4 entry = broadcast(0.0f);
            Float4 exit = broadcast(visitor.getReach() * outward);
            for (unsigned int axis = 0; axis < 3; ++axis)
            {
                const unsigned int near = ray.nearBounds[axis];
                const unsigned int far = near < 3 ? near + 3 : near - 3;
                // Of a quotient that is no number the other operand stays.
                entry = greatest((node.bounds[near] - ray.nearOrigin[axis]) * ray.inverse[axis], entry);
                exit = least((node.bounds[far] - ray.farOrigin[axis]) * ray.inverse[axis], exit);
            }
            // The farthest child goes deepest into the stack.
            const unsigned int bottom = size;
            for (unsigned int lanes = lanesOf(entry <= exit * outward); lanes != 0; lanes &= lanes - 1)
            {
                const int lane = __builtin_ctz(lanes);
                unsigned int place = size++;
                for (; place > bottom && stack[place - 1].entry < entry[lane]; --place)
                    stack[place] = stack[place - 1];
                stack[place] = { node.children[lane], entry[lane] };
            }
        }
        do
        {
            if (size == 0)
                return;
            task = stack[--size];
        } while (task.entry > visitor.getReach() * outward);
    }
}

bool RayCastTree::findNearest(const Vector3& origin, const Vector3& direction, const RayCastVertex* vertices,
                              const int* indices, RayHit& hit) const
{
    if (_packets.empty())
        return false;
    Nearest nearest = { { hit.t, -1 } };
    walk(Ray(*this, origin, direction, vertices, indices), nearest);
    if (nearest.hit.slot < 0)
        return false;
    hit = nearest.hit;
    return true;
}

void RayCastTree::findAll(const Vector3& origin, const Vector3& direction, const RayCastVertex* vertices,
                          const int* indices, float reach, PODArray<RayHit>& hits) const
{
    if (_packets.empty())
        return;
    All all = { reach, hits };
    walk(Ray(*this, origin, direction, vertices, indices), all);
}

} // namespace mrv::internal
