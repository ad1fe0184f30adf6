// mrvCore/math/conversions/mrvAxisConversions.h
// Rotations that are given by the directions of two of their axes.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// @{
/// Axis_Pq_toQuaternion: the rotation whose axis P has the direction of the first argument, and whose axis Q
/// comes as near to the second as it can. Neither has to be normalised; parallel ones give no rotation.
MRV_CORE_API Quaternion Axis_Xy_toQuaternion(const Vector3& x, const Vector3& y);
MRV_CORE_API Quaternion Axis_Xz_toQuaternion(const Vector3& x, const Vector3& z);
MRV_CORE_API Quaternion Axis_Yx_toQuaternion(const Vector3& y, const Vector3& x);
MRV_CORE_API Quaternion Axis_Yz_toQuaternion(const Vector3& y, const Vector3& z);
MRV_CORE_API Quaternion Axis_Zx_toQuaternion(const Vector3& z, const Vector3& x);
MRV_CORE_API Quaternion Axis_Zy_toQuaternion(const Vector3& z, const Vector3& y);
MRV_CORE_API void Axis_Zx_toQuaternion(Quaternion& out, const Vector3& z, const Vector3& x);
MRV_CORE_API void Axis_Zy_toQuaternion(Quaternion& out, const Vector3& z, const Vector3& y);
/// @}

} // namespace mrv
