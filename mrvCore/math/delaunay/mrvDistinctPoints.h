// mrvCore/math/delaunay/mrvDistinctPoints.h
// Which points of a set a triangulation takes in. Internal.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv::internal {

/// Indices of the finite points that equal none before them, in order. `notFinite` counts those left out
/// for being infinite or no number.
PODArray<int> findDistinctPoints(const Vector2* points, int count, int& notFinite);

} // namespace mrv::internal
