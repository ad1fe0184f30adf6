// mrvCore/math/rotations/mrvAngleUtils.h
// Wrapping, comparing and measuring of angles.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class RandomNumberGenerator;

/// Angles in radians unless a name says otherwise.
///
/// "Wrapped" is [-pi, pi), the upper end excluded. What is wrapped from some 8 million turns on is what
/// float arithmetic makes of it.
class MRV_CORE_API AngleUtils
{
public:
    /// True if the angle is wrapped.
    static bool isModulo(Angle angle) { return angle >= -PI_ANGLE && angle < PI_ANGLE; }

    /// The angle, wrapped.
    static Angle getModuloValue(Angle angle);
    /// Wraps the angle.
    static void moduloSelf(Angle& angle) { angle = getModuloValue(angle); }
    /// The same for degrees: [-180, 180).
    static float getModuloValueDegree(float degrees);
    /// In [0, 2 pi).
    static Angle getPositiveModuloValue(Angle angle);

    /// True if the angles, wrapped, are at most `tolerance` apart; -pi and pi are neighbours.
    static bool approxEqual(Angle a, Angle b, float tolerance);
    /// @{
    /// The same for each pair of components.
    static bool approxEqual(const Vector3& a, const Vector3& b, float tolerance);
    static bool approxEqual(const Vector4& a, const Vector4& b, float tolerance);
    /// @}
    /// The opposite of approxEqual().
    static bool approxDiff(Angle a, Angle b, float tolerance) { return !approxEqual(a, b, tolerance); }
    static bool approxDiff(const Vector3& a, const Vector3& b, float tolerance)
    {
        return !approxEqual(a, b, tolerance);
    }
    static bool approxDiff(const Vector4& a, const Vector4& b, float tolerance)
    {
        return !approxEqual(a, b, tolerance);
    }

    /// From one wrapped angle to the other, not wrapped again: within (-2 pi, 2 pi), and not always the
    /// short way round.
    static Angle distance(Angle from, Angle to) { return getModuloValue(to) - getModuloValue(from); }

    /// Uniform from `low`, over the distance of the two angles folded into [0, 2 pi).
    static Angle randomAngle(RandomNumberGenerator& rng, Angle low, Angle high);
    /// Uniform over the full circle, from 0 to 2 pi.
    static Angle randomAngle(RandomNumberGenerator& rng);

    /// @{
    /// Conversions by one product; a "d" at the end is for `double`.
    static float radianToDegree(float radians) { return radians * 57.29578f; }
    static double radianToDegreed(double radians) { return radians * 57.29577951308232; }
    static float degreeToRadian(float degrees) { return degrees * 0.017453292f; }
    static double degreeToRadiand(double degrees) { return degrees * 0.017453292519943295; }
    /// @}
};

/// The unsigned angle between two vectors of any length, in [0, pi]; with a null vector it is pi / 2.
MRV_CORE_API Angle angle(const Vector3& u, const Vector3& v);

/// The same with a sign: negative if the turn from u to v runs clockwise as `normal` points at the viewer.
MRV_CORE_API Angle angle(const Vector3& u, const Vector3& v, const Vector3& normal);

/// Writes the nearest of +X, +Y, +Z, -X, -Y, -Z, the first of equally near ones, and returns the angle to it.
MRV_CORE_API Angle findNearestUnitAxis(Vector3& out, const Vector3& v);

} // namespace mrv
