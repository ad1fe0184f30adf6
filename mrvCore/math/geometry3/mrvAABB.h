// mrvCore/math/geometry3/mrvAABB.h
// A hierarchy of boxes along the axes over the triangles of a mesh, and rays that search it.
#pragma once

#include "mrvCore/math/types/mrvFloat4.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstdlib>
#include <limits>
#include <utility>

namespace mrv {

/// A node of the hierarchy. Children stand before their parents, so the root is the last one.
template <typename Vector>
struct AABB
{
    Vector _AABBmin;
    Vector _AABBmax;
    int _left = -1; ///< child node, -1 for none
    int _right = -1;
    int _firstIndex = 0; ///< of a leaf: its range of vertex indices, three a triangle
    int _indexCount = 0;
};

namespace internal {

/// What building looks at, in one place, so that it need not follow indices. Each fourth lane holds one of
/// the triangle's vertex indices.
struct alignas(16) AABBTriangle
{
    float min[3];
    int index0;
    float max[3];
    int index1;
    float sum[3]; ///< of the three corners
    int index2;
};

static_assert(sizeof(AABBTriangle) == 48, "three registers");

template <typename Vertex>
AABBTriangle gatherAABBTriangle(const Vertex* vertices, const int* indices)
{
    AABBTriangle triangle;
    const Vector3& a = vertices[indices[0]]._position;
    const Vector3& b = vertices[indices[1]]._position;
    const Vector3& c = vertices[indices[2]]._position;
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        const float low = b[axis] < a[axis] ? b[axis] : a[axis];
        const float high = b[axis] > a[axis] ? b[axis] : a[axis];
        triangle.min[axis] = c[axis] < low ? c[axis] : low;
        triangle.max[axis] = c[axis] > high ? c[axis] : high;
        triangle.sum[axis] = a[axis] + b[axis] + c[axis];
    }
    triangle.index0 = indices[0];
    triangle.index1 = indices[1];
    triangle.index2 = indices[2];
    return triangle;
}

/// Where a triangle's sum of corners is compared: three times the centre of the box.
inline Vector3 tripleCentre(const Vector3& min, const Vector3& max)
{
    return (min + max) * 0.5f * 3.0f;
}

} // namespace internal

/// The axis on which the box's centre parts the triangles most evenly, -1 for `count` indices that are not
/// worth parting. Of equal axes x comes before y, and z last.
inline int computeBestAxis(const internal::AABBTriangle* triangles, int count, const Vector3& min,
                           const Vector3& max)
{
    constexpr int leafIndexCount = 48;
    if (count < leafIndexCount)
        return -1;
    using Signs = int __attribute__((vector_size(16)));
    const Vector3 centre = internal::tripleCentre(min, max);
    const internal::Float4 centres = internal::load(&centre);
    Signs balance = {};
    for (int i = 0; i < count / 3; ++i)
    {
        const internal::Float4 sum = internal::load(triangles[i].sum);
        balance += (sum < centres) - (sum > centres); // a true lane is -1
    }
    int best = std::abs(balance[0]) <= std::abs(balance[1]) ? 0 : 1;
    if (std::abs(balance[2]) < std::abs(balance[best]))
        best = 2;
    return best;
}

/// Moves the triangles whose centroid is strictly below the centre of the box on the axis to the front, and
/// returns how many indices they have. The triangle that is met last stays behind unexamined.
inline int splitIndices(internal::AABBTriangle* triangles, int count, int axis, const Vector3& min,
                        const Vector3& max)
{
    const float centre = internal::tripleCentre(min, max)[static_cast<unsigned int>(axis)];
    int front = 0;
    int back = count / 3 - 1;
    while (front < back)
        if (triangles[front].sum[axis] < centre)
            ++front;
        else
            std::swap(triangles[front], triangles[back--]);
    return 3 * front;
}

/// Appends the hierarchy over `count` indices, three a triangle, to the nodes and returns its root; -1 if
/// there is no triangle. `first` is the place of the first one among all indices. Boxes are narrowed on the
/// split axis only.
inline int computeAABBHierarchy(internal::AABBTriangle* triangles, int first, int count, int depth,
                                Array<AABB<Vector3>>& nodes, const Vector3& min, const Vector3& max)
{
    constexpr int greatestDepth = 19;
    if (count < 1)
        return -1;
    AABB<Vector3> node;
    node._AABBmin = min;
    node._AABBmax = max;
    const int axis = depth <= greatestDepth ? computeBestAxis(triangles, count, min, max) : -1;
    if (axis < 0)
    {
        node._firstIndex = first;
        node._indexCount = count;
    }
    else
    {
        const auto addChild = [&](int begin, int size) {
            float low = std::numeric_limits<float>::max();
            float high = std::numeric_limits<float>::lowest();
            for (int i = begin / 3; i < (begin + size) / 3; ++i)
            {
                low = triangles[i].min[axis] < low ? triangles[i].min[axis] : low;
                high = triangles[i].max[axis] > high ? triangles[i].max[axis] : high;
            }
            Vector3 childMin = min;
            Vector3 childMax = max;
            childMin[static_cast<unsigned int>(axis)] = low;
            childMax[static_cast<unsigned int>(axis)] = high;
            return computeAABBHierarchy(triangles + begin / 3, first + begin, size, depth + 1, nodes,
                                        childMin, childMax);
        };
        const int front = splitIndices(triangles, count, axis, min, max);
        node._left = addChild(0, front);
        node._right = addChild(front, count - front);
    }
    nodes.push_back(node);
    return static_cast<int>(nodes.size()) - 1;
}

/// The same over vertices and their indices, which are permuted a triangle at a time.
template <typename Vertex>
int computeAABBHierarchy(const Vertex* vertices, int* indices, int first, int count, int depth,
                         Array<AABB<Vector3>>& nodes, const Vector3& min, const Vector3& max)
{
    PODArray<internal::AABBTriangle> triangles;
    triangles.reserve(static_cast<size_t>(count > 0 ? count / 3 : 0));
    for (int i = 0; i + 2 < count; i += 3)
        triangles.push_back(internal::gatherAABBTriangle(vertices, indices + first + i));
    const int root = computeAABBHierarchy(triangles.begin(), first, count, depth, nodes, min, max);
    int* out = indices + first;
    for (const internal::AABBTriangle& triangle : triangles)
    {
        *out++ = triangle.index0;
        *out++ = triangle.index1;
        *out++ = triangle.index2;
    }
    return root;
}

/// The slab test: true if the ray's line, from its origin on, meets the box. A direction component of about
/// 0 makes its axis a question of where the origin lies.
template <typename Vector>
bool intersectRayAABoxT(const Vector& origin, const Vector& direction, const Vector& min, const Vector& max)
{
    constexpr float parallel = 1.1920929e-7f;
    float entry = std::numeric_limits<float>::lowest();
    float exit = std::numeric_limits<float>::max();
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        if (direction[axis] >= -parallel && direction[axis] <= parallel)
        {
            if (origin[axis] < min[axis] || origin[axis] > max[axis])
                return false;
            continue;
        }
        float near = (min[axis] - origin[axis]) / direction[axis];
        float far = (max[axis] - origin[axis]) / direction[axis];
        if (near > far)
            std::swap(near, far);
        entry = near > entry ? near : entry;
        exit = far < exit ? far : exit;
        if (entry > exit || exit < 0.0f)
            return false;
    }
    return true;
}

namespace internal {

/// The ray against one triangle, both faces counting (Möller and Trumbore, 1997); true if its inside is hit.
/// A determinant under 1e-6 counts as parallel, so a small triangle needs a long direction.
inline bool hitsTriangle(const Vector3& origin, const Vector3& direction, const Vector3& a,
                         const Vector3& edge1, const Vector3& edge2, float& t)
{
    constexpr float parallel = 1e-6f;
    const Vector3 p = direction.cross(edge2);
    const float determinant = edge1.dot(p);
    if (determinant > -parallel && determinant < parallel)
        return false;
    const Vector3 s = origin - a;
    const float u = s.dot(p) / determinant;
    const Vector3 q = s.cross(edge1);
    const float v = direction.dot(q) / determinant;
    t = edge2.dot(q) / determinant;
    return u >= 0.0f && u <= 1.0f && v >= 0.0f && u + v <= 1.0f;
}

} // namespace internal

/// Searches below a node for the first hit with 0 <= t < `bestT`; what it finds replaces `bestT` and
/// `bestIndex`, the place of the triangle's first index. Of equal hits the first one in the indices stays.
template <typename Vertex>
void hierarchicalRaycast(const Vector3& origin, const Vector3& direction, int& bestIndex, float& bestT,
                         int node, const Array<AABB<Vector3>>& nodes, const Vertex* vertices,
                         const int* indices)
{
    const AABB<Vector3>& box = nodes[static_cast<size_t>(node)];
    if (!intersectRayAABoxT(origin, direction, box._AABBmin, box._AABBmax))
        return;
    for (const int child : { box._left, box._right })
        if (child != -1)
            hierarchicalRaycast(origin, direction, bestIndex, bestT, child, nodes, vertices, indices);
    for (int i = box._firstIndex; i < box._firstIndex + box._indexCount; i += 3)
    {
        const Vector3& a = vertices[indices[i]]._position;
        float t = 0.0f;
        if (internal::hitsTriangle(origin, direction, a, vertices[indices[i + 1]]._position - a,
                                   vertices[indices[i + 2]]._position - a, t) &&
            t >= 0.0f && t < bestT)
        {
            bestT = t;
            bestIndex = i;
        }
    }
}

} // namespace mrv
