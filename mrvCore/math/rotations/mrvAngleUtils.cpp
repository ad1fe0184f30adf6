// mrvCore/math/rotations/mrvAngleUtils.cpp
#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include <cmath>

namespace mrv {

namespace {

// From here on every float is a whole number.
constexpr float wholeNumbers = 8388608.0f;

float roundDown(float turns)
{
    return std::abs(turns) < wholeNumbers ? std::floor(turns) : turns;
}
float roundUp(float turns)
{
    return std::abs(turns) < wholeNumbers ? std::ceil(turns) : turns;
}

float wrap(float value, float half, float full)
{
    if (value < -full)
        value += roundDown(-value / full) * full;
    else if (value > full)
        value -= roundDown(value / full) * full;

    if (value < -half)
        value += full;
    else if (value >= half)
        value -= full;
    return value;
}

bool hasUnitLength(const Vector3& v)
{
    constexpr float tolerance = 1.999989e-5f;
    return std::abs(v.norm2() - 1.0f) <= tolerance;
}

} // namespace

Angle AngleUtils::getModuloValue(Angle angle)
{
    return wrap(angle, PI_ANGLE, TWO_PI_ANGLE);
}

float AngleUtils::getModuloValueDegree(float degrees)
{
    return wrap(degrees, 180.0f, 360.0f);
}

Angle AngleUtils::getPositiveModuloValue(Angle angle)
{
    if (angle < 0.0f)
        angle += roundUp(-angle / TWO_PI_ANGLE) * TWO_PI_ANGLE;
    if (angle >= TWO_PI_ANGLE) // also what a tiny negative angle has become
        angle -= roundDown(angle / TWO_PI_ANGLE) * TWO_PI_ANGLE;
    return angle;
}

bool AngleUtils::approxEqual(Angle a, Angle b, float tolerance)
{
    // One of the two lies on b's side of the seam.
    const Angle fromBelow = getModuloValue(a - tolerance) + tolerance;
    const Angle fromAbove = getModuloValue(a + tolerance) - tolerance;
    if (!isModulo(b))
        b = getModuloValue(b);
    return std::abs(fromBelow - b) <= tolerance || std::abs(fromAbove - b) <= tolerance;
}

bool AngleUtils::approxEqual(const Vector3& a, const Vector3& b, float tolerance)
{
    return approxEqual(a.x, b.x, tolerance) && approxEqual(a.y, b.y, tolerance) &&
           approxEqual(a.z, b.z, tolerance);
}

bool AngleUtils::approxEqual(const Vector4& a, const Vector4& b, float tolerance)
{
    return approxEqual(a.x, b.x, tolerance) && approxEqual(a.y, b.y, tolerance) &&
           approxEqual(a.z, b.z, tolerance) && approxEqual(a.w, b.w, tolerance);
}

Angle AngleUtils::randomAngle(RandomNumberGenerator& rng, Angle low, Angle high)
{
    return rng.frand() * (getPositiveModuloValue(high) - getPositiveModuloValue(low)) + low;
}

// The full circle folds to nothing, so it does not go through the range above.
Angle AngleUtils::randomAngle(RandomNumberGenerator& rng)
{
    return rng.frand() * TWO_PI_ANGLE;
}

Angle angle(const Vector3& u, const Vector3& v)
{
    const bool areUnits = hasUnitLength(u) && hasUnitLength(v);
    const float cosine = areUnits ? u.dot(v) : u.computeNormalize().dot(v.computeNormalize());
    if (cosine >= 1.0f)
        return 0.0f;
    if (cosine <= -1.0f)
        return PI_ANGLE;
    return std::acos(cosine);
}

Angle angle(const Vector3& u, const Vector3& v, const Vector3& normal)
{
    const Angle unsignedAngle = angle(u, v);
    return normal.dot(u.cross(v)) < 0.0f ? -unsignedAngle : unsignedAngle;
}

Angle findNearestUnitAxis(Vector3& out, const Vector3& v)
{
    constexpr Vector3 axes[] = { { 1.0f, 0.0f, 0.0f },  { 0.0f, 1.0f, 0.0f },  { 0.0f, 0.0f, 1.0f },
                                 { -1.0f, 0.0f, 0.0f }, { 0.0f, -1.0f, 0.0f }, { 0.0f, 0.0f, -1.0f } };
    const Vector3 direction = v;
    out = axes[0];
    Angle smallest = angle(direction, axes[0]);
    for (int i = 1; i < 6; ++i)
    {
        const Angle candidate = angle(direction, axes[i]);
        if (candidate < smallest)
        {
            smallest = candidate;
            out = axes[i];
        }
    }
    return smallest;
}

} // namespace mrv
