// mrvCore/math/geometry/mrvDistance.h
// Squared distances between shapes of the plane and of space.
#pragma once

#include "mrvCore/math/geometry/mrvCenteredShapes.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Box2;
class Segment2;
class Segment3;
class Triangle2;
class Triangle3;

/// All distances are squared, but for those named distance(). Shapes are solid: what lies inside, or
/// crosses, is at distance 0. `direction`, where there is one, gets the way from the closest point of the
/// first shape to that of the second. Degenerate shapes count as the segment or the point that they are.

// The plane

/// @{
MRV_CORE_API float distance2(const Vector2& point, const Segment2& segment);
MRV_CORE_API float distance2(const Segment2& a, const Segment2& b);
MRV_CORE_API float distance2(const Vector2& point, const Box2& box);
MRV_CORE_API float distance(const Triangle2& triangle, const Vector2& point);

// Points, segments and triangles of space

MRV_CORE_API float distance2(const Segment3& a, const Segment3& b);
MRV_CORE_API float distance2(const Segment3& a, const Segment3& b, Vector3& direction);
MRV_CORE_API float distance2(const Vector3& point, const Segment3& segment);
MRV_CORE_API float distance2(const Vector3& point, const Segment3& segment, Vector3& direction);
MRV_CORE_API float distance2ClosestPoint(const Vector3& point, const Segment3& segment, Vector3& closest);

/// The triangle v0 v1 v2, by where its plane the point projects to.
MRV_CORE_API float distance2(const Vector3& point, const Vector3& v0, const Vector3& v1, const Vector3& v2,
                             Vector3& closest);
MRV_CORE_API float distance2(const Triangle3& triangle, const Vector3& point, Vector3& closest);
MRV_CORE_API float distance2(const Triangle3& triangle, const Segment3& segment);
MRV_CORE_API float distance2(const Triangle3& triangle, const Segment3& segment, Vector3& direction);
/// Stops at the first pair of an edge and a triangle that meet.
MRV_CORE_API float distance2Optimized(const Triangle3& a, const Triangle3& b);
MRV_CORE_API float distance2Optimized(const Triangle3& a, const Triangle3& b, Vector3& direction);

// Lines, rectangles and boxes. Directions whose squared sine is at most `tolerance` count as parallel.

MRV_CORE_API float distance2(const Vector3& point, const Line& line);
MRV_CORE_API float distance2(const Vector3& point, const CenteredRectangle& rectangle);
MRV_CORE_API float distance2(const Vector3& point, const CenteredBox& box);
MRV_CORE_API float distance2(const Line& a, const Line& b, float tolerance);
MRV_CORE_API float distance2(const Line& line, const CenteredSegment& segment, float tolerance);
MRV_CORE_API float distance2(const CenteredSegment& a, const CenteredSegment& b);
MRV_CORE_API float distance2(const Line& line, const CenteredRectangle& rectangle, float tolerance);
MRV_CORE_API float distance2(const CenteredSegment& segment, const CenteredRectangle& rectangle,
                             float tolerance);
MRV_CORE_API float distance2(const CenteredRectangle& a, const CenteredRectangle& b, float tolerance);
MRV_CORE_API float distance2(const Line& line, const CenteredBox& box);
MRV_CORE_API float distance2(const CenteredSegment& segment, const CenteredBox& box);
MRV_CORE_API float distance2(const CenteredRectangle& rectangle, const CenteredBox& box, float tolerance);
MRV_CORE_API float distance2(const CenteredBox& a, const CenteredBox& b);
/// @}

} // namespace mrv
