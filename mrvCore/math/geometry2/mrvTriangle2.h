// mrvCore/math/geometry2/mrvTriangle2.h
// A triangle of the plane.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class RandomNumberGenerator;
class Segment2;

/// Three vertices in either turn. Edge i runs from vertex i to the next, the last back to the first.
/// Tolerances are inclusive.
class MRV_CORE_API Triangle2
{
public:
    /// All vertices at the origin.
    Triangle2() = default;
    Triangle2(const Vector2& v0, const Vector2& v1, const Vector2& v2) : _vertices{ v0, v1, v2 } {}

    static const Triangle2& getNullTriangle();

    /// An index above 2 is fatal, here and in computeHeight().
    void computeEdge(unsigned int i, Segment2& edge) const;
    /// The mean of the vertices; `refine` adds the mean of what they are off it, for precision far from the
    /// origin.
    void computeBarycenter(Vector2& result, bool refine) const;
    /// Distance of vertex i from the line through the others, or from them where they are one point.
    float computeHeight(unsigned int i) const;
    /// The area, without a sign.
    float computeSurface() const;

    /// True if no coordinate of the other vertices differs from vertex 0's by more than the tolerance.
    bool isPoint(float tolerance) const;
    /// True if two edges are collinear in the sense of areCollinear().
    bool isDegenerated(float tolerance) const;

    /// Not uniform: the weight of vertex 0 is drawn first, and 1 as likely as 0, so points crowd near it.
    void computeRandomPosition(RandomNumberGenerator& rng, Vector2& result) const;

    void getBoundingBox(Vector2& min, Vector2& max) const;

    Vector2 _vertices[3];
};

} // namespace mrv
