// mrvCore/math/geometry/mrvContainment.h
// Whether a shape of the plane holds a point.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"

#include <cstddef>

namespace mrv {

class Box2;
class Circle2;
class ConvexPolygon2;
class Triangle2;

/// A point on the outline is in, and so is one outside whose distance is at most the tolerance.

MRV_CORE_API bool contains(const Circle2& circle, const Vector2& point, float tolerance);
/// The tolerance applies to each side, so the grown box has square corners.
MRV_CORE_API bool contains(const Box2& box, const Vector2& point, float tolerance);
/// In either turn. A degenerate triangle is the segment or the point that it looks like.
MRV_CORE_API bool contains(const Triangle2& triangle, const Vector2& point, float tolerance);
/// In either turn, whatever status is stored; no point is in a polygon of fewer than three vertices.
MRV_CORE_API bool contains(const ConvexPolygon2& polygon, const Vector2& point, float tolerance);

/// Any polygon without crossings, in either turn, by counting crossings to the right: an exact outline point
/// may be in or out.
MRV_CORE_API bool contains(const Array<Vector2>& points, const Vector2& point);
/// The same for points in memory.
MRV_CORE_API bool mrvContainsInPolygon(const Vector2* points, size_t count, const Vector2& point);
/// The same, or at most `tolerance` from the outline.
MRV_CORE_API bool containsInPolygon(const Vector2* points, size_t count, const Vector2& point,
                                    float tolerance);

} // namespace mrv
