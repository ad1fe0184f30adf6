// mrvCore/math/geometry3/mrvRayBoxSlopes.h
// The slope test of ray against box that the box classes share. Internal.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

namespace mrv {

class ClassifiedRay3;

namespace internal {

/// True if the ray, which starts outside, meets the box from `min` to `max`.
bool intersectsBox(const ClassifiedRay3& ray, const Vector3& min, const Vector3& max);

/// The same with the parameter of entry, which is 3.4028235e38 for a miss; one below 0 is a miss too.
bool intersectsBox(const ClassifiedRay3& ray, const Vector3& min, const Vector3& max, float& t);

} // namespace internal
} // namespace mrv
