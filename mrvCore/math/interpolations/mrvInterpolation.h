// mrvCore/math/interpolations/mrvInterpolation.h
// Interpolation of orientations.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"

namespace mrv {

/// Normalised linear interpolation on the short arc: `a` at t = 0, `b` at 1, or -b, which is the same
/// rotation, where that is nearer. Its speed varies along the arc; see Quaternion::slerp for an even one.
///
/// `t` is not checked: beyond [0, 1] it goes on in a straight line. Two opposite halves, which leave
/// nothing to normalise, give the null quaternion. `out` may be an argument too.
inline void interpolate_noFactorRangeCheck(Quaternion& out, const Quaternion& a, const Quaternion& b, float t)
{
    const Quaternion near = Quaternion::dotProduct(a, b) < 0.0f ? -b : b;
    out = ((1.0f - t) * a + t * near).computeNormalize();
}

} // namespace mrv
