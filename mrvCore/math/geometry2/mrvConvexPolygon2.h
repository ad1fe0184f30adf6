// mrvCore/math/geometry2/mrvConvexPolygon2.h
// A convex polygon of the plane, and the convex hull of points.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"

namespace mrv {

/// Vertices in order, and what is known about their turn.
class MRV_CORE_API ConvexPolygon2
{
public:
    /// INVALID is no convex polygon.
    struct MrvPolygonStatus
    {
        enum Value { INVALID = 0, UNKNOWN = 1, CW = 2, CCW = 3, END = 4 };
    };

    ConvexPolygon2() = default;

    /// The caller vouches for the status.
    void setVertices(const Array<Vector2>& vertices, MrvPolygonStatus::Value status);

    /// The stored status; found out anew with `force`, or where it is UNKNOWN and `computeIfUnknown` is set.
    ///
    /// Finding out checks each turn against the status so far: a polygon that was INVALID stays so, one whose
    /// turn contradicts the stored one becomes so, and one without any turn keeps what is stored.
    MrvPolygonStatus::Value getStatus(bool force, bool computeIfUnknown);

    /// Becomes the hull of the points, counterclockwise and without collinear vertices; empty for fewer than
    /// three points. Points that are no number are left out. Monotone chain (Andrew, 1979).
    void computeConvexHull(Array<Vector2> points);

    Array<Vector2> _vertices;
    int _status = MrvPolygonStatus::UNKNOWN;
};

} // namespace mrv
