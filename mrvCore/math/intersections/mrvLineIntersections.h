// mrvCore/math/intersections/mrvLineIntersections.h
// Where lines and segments of the plane cross.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Segment2;

/// True if the segments meet, ends included. Parallel ones meet if they lie on one line and overlap in x,
/// or in y if the first is vertical: a first segment that is a point counts as vertical.
MRV_CORE_API bool intersection(const Segment2& a, const Segment2& b);

/// The point where the line through p1 and p2 crosses the one through p3 and p4. False, and nothing
/// written, for parallel lines.
MRV_CORE_API bool intersection(const Vector2& p1, const Vector2& p2, const Vector2& p3, const Vector2& p4,
                               Vector2& point);

} // namespace mrv
