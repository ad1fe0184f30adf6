// mrvCore/math/conversions/mrvQuaternionConversions.h
// Between quaternions, matrices, and an axis with an angle.
#pragma once

#include "mrvCore/math/rotations/mrvAxisAngle.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/rotations/mrvRotationMatrix.h"
#include "mrvCore/math/types/mrvMatrix4.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

// toRotationMatrix(RotationMatrix&, const Quaternion&) is in mrvRotationMatrix.h.

/// From the images of the unit axes, which are the columns of the matrix. They should be orthonormal.
MRV_CORE_API void toQuaternion(Quaternion& out, const Vector3& x, const Vector3& y, const Vector3& z);

/// By the trace, or by the greatest diagonal element if that is not positive (Shoemake, 1985).
MRV_CORE_API void toQuaternion(Quaternion& out, const RotationMatrix& matrix);
/// The same of the upper left block, element by element: what fromQuaternion wrote comes back, while a
/// matrix of rotationAxis gives the inverse rotation.
MRV_CORE_API void toQuaternion(Quaternion& out, const Matrix4& matrix);

/// The axis as it is, times the half angle's sine.
MRV_CORE_API void toQuaternion(Quaternion& out, const AxisAngle& axisAngle);
/// About a unit axis; anything but X and Y counts as Z.
MRV_CORE_API void toQuaternion(Quaternion& out, float angle, Axis::Value axis);

/// The matrix of a quaternion of any length but 0; a null one gives NaN.
MRV_CORE_API void fromQuaternion(RotationMatrix& out, const Quaternion& q);
/// The same in the upper left block; row 3 and column 3 are those of the identity. In transformPoint it
/// applies the inverse rotation, as Matrix4::setRotation does.
MRV_CORE_API void fromQuaternion(Matrix4& out, const Quaternion& q);
/// The same as a result.
MRV_CORE_API Matrix4 MatrixFromQuaternion(const Quaternion& q);

/// The angle is in [0, 2 pi]. A rotation too small to show its axis has (1, 0, 0).
MRV_CORE_API void toAxisAngle(AxisAngle& out, const Quaternion& q);

/// Rodrigues' formula, with the angle wrapped and the axis as it is.
MRV_CORE_API void toRotationMatrix(RotationMatrix& out, const AxisAngle& axisAngle);

} // namespace mrv
