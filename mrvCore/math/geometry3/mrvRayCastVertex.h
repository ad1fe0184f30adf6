// mrvCore/math/geometry3/mrvRayCastVertex.h
// A corner of a mesh that rays are cast on.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

namespace mrv {

/// One corner of one triangle: corners that triangles share are stored once for each.
struct RayCastVertex
{
    Vector3 _position;
    Vector3 _normal;     ///< smoothed, a unit
    int _faceIndex = -1; ///< the triangle, -1 until it is set
};

static_assert(sizeof(RayCastVertex) == 48, "a triangle lies in as few cache lines as it can");

} // namespace mrv
