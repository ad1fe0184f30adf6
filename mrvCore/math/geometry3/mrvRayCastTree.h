// mrvCore/math/geometry3/mrvRayCastTree.h
// The search structure behind the rays of a pin mesh. Internal.
#pragma once

#include "mrvCore/math/geometry3/mrvAABB.h"
#include "mrvCore/math/geometry3/mrvRayCastVertex.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv::internal {

/// A hit at origin + `t` direction. `slot` is the place of the triangle's first index.
struct RayHit
{
    float t;
    int slot;
};

/// Boxes in fours over triangles in fours, in the order of a Morton curve (Lauterbach et al., 2009).
///
/// Finds what a loop over all triangles finds, to the bit: boxes are widened by what rounding can do, and of
/// hits with equal t the one with the least slot counts, which is the first one of such a loop. A ray through
/// an edge or a corner that triangles share hits one of them: where rounding in float could have pushed it
/// out of all, the sides of the edges are asked in double.
/// Threads: built by one, then read by any number. A search allocates nothing, but for its result.
class RayCastTree
{
public:
    void clear();

    /// Triangle i has the slot 3 i.
    void build(const RayCastVertex* vertices, const PODArray<AABBTriangle>& triangles);

    /// The nearest hit with 0 <= t < `hit.t`; false, with `hit` as it was, if there is none. Vertices and
    /// indices are those that the tree was built over.
    bool findNearest(const Vector3& origin, const Vector3& direction, const RayCastVertex* vertices,
                     const int* indices, RayHit& hit) const;
    /// Appends all hits with 0 <= t < `reach`, in no order.
    void findAll(const Vector3& origin, const Vector3& direction, const RayCastVertex* vertices,
                 const int* indices, float reach, PODArray<RayHit>& hits) const;

private:
    static constexpr unsigned int _width = 4;

    /// A child is a node, or a packet if it is negative: ~child is its place. Boxes of no child are inverted.
    struct Node
    {
        Float4 bounds[6]; ///< lower x, y, z, then upper x, y, z
        int children[_width];
    };

    /// Unused lanes have null edges, which no ray hits.
    struct Packet
    {
        Float4 a[3];
        Float4 edge1[3];
        Float4 edge2[3];
        Float4 greatest; ///< component of the two edges, in size
        int slots[_width];
    };

    struct Builder;
    struct Ray;
    struct Nearest;
    struct All;

    template <class Visitor>
    void walk(const Ray& ray, Visitor& visitor) const;
    template <class Visitor>
    static void visit(const Packet& packet, const Ray& ray, Visitor& visitor);
    static bool isInside(const Ray& ray, int slot);

    PODArray<Node> _nodes;
    PODArray<Packet> _packets;
    int _root = 0;
    Vector3 _min;
    Vector3 _max;
};

} // namespace mrv::internal
