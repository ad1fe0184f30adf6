// mrvCore/math/geometry2/mrvCollision2.h
// Whether shapes of the plane meet.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Segment2;
class Triangle2;

/// All tests count touching as meeting. Boxes are given by their lower and upper corners.

/// True unless a gap wider than the tolerance parts the boxes on some axis.
MRV_CORE_API bool mrvAreColliding(const Vector2& min1, const Vector2& max1, const Vector2& min2,
                                  const Vector2& max2, float tolerance);

/// The tolerance is that of the bounding boxes, and of the vertices of a triangle that is a point.
MRV_CORE_API bool areColliding(const Triangle2& a, const Triangle2& b, float tolerance);
/// Without a look at bounding boxes, for triangles that are no points.
MRV_CORE_API bool areCollidingNoDegenerates(const Triangle2& a, const Triangle2& b);

/// A segment inside the box collides with it. The tolerance is that of the bounding boxes, here and below.
MRV_CORE_API bool areColliding(const Segment2& segment, const Vector2& boxMin, const Vector2& boxMax,
                               float tolerance);
MRV_CORE_API bool areColliding(const Triangle2& triangle, const Vector2& boxMin, const Vector2& boxMax,
                               float tolerance);
/// mrvAreColliding() under the common name.
MRV_CORE_API bool areColliding(const Vector2& min1, const Vector2& max1, const Vector2& min2,
                               const Vector2& max2, float tolerance);

/// Triangles p1 q1 r1 and p2 q2 r2, in either turn, by the signs of turns alone (Devillers and Guigue, 2002).
MRV_CORE_API bool tri_tri_overlap_test_2d(const Vector2& p1, const Vector2& q1, const Vector2& r1,
                                          const Vector2& p2, const Vector2& q2, const Vector2& r2);

} // namespace mrv
