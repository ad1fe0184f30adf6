// mrvCore/math/types/mrvBarycentrics.h
// Weights of a point between the corners of a triangle or a tetrahedron.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Weights x, y, z of the corners a, b, c of a triangle.
///
/// A degenerate triangle counts as its longest edge, with 0 for the third corner, and one without an edge
/// worth naming gives three thirds. The weights always add up to 1, within rounding.
MRV_CORE_API void computeBarycentricsCoordinates(const Vector2& point, const Vector2& a, const Vector2& b,
                                                 const Vector2& c, Vector3& out);

/// Weights x, y, z, w of the corners a, b, c, d: the volumes of the point with the other three, over the
/// whole. A flat tetrahedron yields infinities or NaN.
MRV_CORE_API void computeTetrahedronBarcentricCoords(Vector4& out, const Vector3& a, const Vector3& b,
                                                     const Vector3& c, const Vector3& d,
                                                     const Vector3& point);

} // namespace mrv
