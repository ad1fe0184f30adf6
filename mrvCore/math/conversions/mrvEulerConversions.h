// mrvCore/math/conversions/mrvEulerConversions.h
// Between quaternions and Euler angles, in all orders of the axes.
#pragma once

#include "mrvCore/math/rotations/mrvEulerAngles.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

// One set of formulas serves all orders, with the components exchanged. For XYZ, YZX and ZXY it is the
// product of the three rotations, heading's on the left. For XZY, YXZ and ZYX it is not: the signs stay those
// of the other three. The conversions only have to be inverse to one another, and files hold their results.
// There is no toQuaternionYXZ.

MRV_CORE_API void toQuaternionXYZ(Quaternion& out, const EulerAngles& angles);
MRV_CORE_API void toQuaternionXZY(Quaternion& out, const EulerAngles& angles);
MRV_CORE_API void toQuaternionYZX(Quaternion& out, const EulerAngles& angles);
MRV_CORE_API void toQuaternionZXY(Quaternion& out, const EulerAngles& angles);
MRV_CORE_API void toQuaternionZYX(Quaternion& out, const EulerAngles& angles);

// Angles of a unit quaternion: heading and bank in [-pi, pi], attitude in [-pi/2, pi/2]. At a pole, to 1e-5,
// bank is 0 and heading takes the whole turn; it is then in [-2 pi, 2 pi]. Returns where it stands.

MRV_CORE_API EulerPolesStatus::Value toEulerAnglesXYZ(EulerAngles& out, const Quaternion& q);
MRV_CORE_API EulerPolesStatus::Value toEulerAnglesXZY(EulerAngles& out, const Quaternion& q);
MRV_CORE_API EulerPolesStatus::Value toEulerAnglesYXZ(EulerAngles& out, const Quaternion& q);
MRV_CORE_API EulerPolesStatus::Value toEulerAnglesYZX(EulerAngles& out, const Quaternion& q);
MRV_CORE_API EulerPolesStatus::Value toEulerAnglesZXY(EulerAngles& out, const Quaternion& q);
MRV_CORE_API EulerPolesStatus::Value toEulerAnglesZYX(EulerAngles& out, const Quaternion& q);

/// Only the heading of toEulerAnglesZYX.
MRV_CORE_API EulerPolesStatus::Value toEulerHeadingZYX(float& heading, const Quaternion& q);

/// Heading about Z and attitude about Y that turn the X axis into a unit direction.
MRV_CORE_API void extractHeadingAndAttitudeFromWorldDirection(const Vector3& direction, Angle& heading,
                                                              Angle& attitude);

} // namespace mrv
