// mrvCore/math/rotations/mrvQuaternion.cpp
#include "mrvCore/math/rotations/mrvQuaternion.h"

#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "mrvCore/system/utils/mrvCharOperators.h"

#include <algorithm>
#include <cmath>

namespace mrv {

Quaternion::Quaternion(Angle angle, const Vector3& axis)
    : Quaternion(0.0f, 0.0f, 0.0f, std::cos(angle * 0.5f))
{
    const float sine = std::sin(angle * 0.5f);
    x = axis.x * sine;
    y = axis.y * sine;
    z = axis.z * sine;
}

Quaternion quaternionFromAngle(float angle)
{
    return Quaternion(0.0f, 0.0f, std::sin(angle * 0.5f), std::cos(angle * 0.5f));
}

void Quaternion::setPivotX(Angle angle)
{
    *this = Quaternion(std::sin(angle * 0.5f), 0.0f, 0.0f, std::cos(angle * 0.5f));
}

void Quaternion::setPivotY(Angle angle)
{
    *this = Quaternion(0.0f, std::sin(angle * 0.5f), 0.0f, std::cos(angle * 0.5f));
}

void Quaternion::setPivotZ(Angle angle)
{
    *this = quaternionFromAngle(angle);
}

Quaternion Quaternion::operator/(const Quaternion& b) const
{
    const Quaternion product(x * b.w - w * b.x - (y * b.z - z * b.y), y * b.w - w * b.y - (z * b.x - x * b.z),
                             z * b.w - w * b.z - (x * b.y - y * b.x),
                             w * b.w + (x * b.x + y * b.y + z * b.z));
    const float squaredNorm = norm2();
    return squaredNorm != 1.0f && squaredNorm >= 1e-5f ? product * (1.0f / std::sqrt(squaredNorm)) : product;
}

Angle Quaternion::extractOld2DOrientation() const
{
    return AngleUtils::getModuloValue(2.0f * std::atan2(z, w));
}

Quaternion Quaternion::computeRotateZ(Angle angle) const
{
    return quaternionFromAngle(angle) * *this;
}

void Quaternion::multiplyAlphaQuat(const Quaternion& rotation, float alpha)
{
    constexpr float nearIdentity = 0.9999f;
    if (alpha <= 0.0f)
        return;
    if (alpha >= 1.0f)
    {
        *this = rotation;
        return;
    }
    float weightOfIdentity = 1.0f - alpha;
    float weightOfRotation = alpha;
    const float cosine = std::abs(rotation.w);
    if (cosine < nearIdentity)
    {
        const float theta = std::acos(cosine);
        weightOfIdentity = std::sin(weightOfIdentity * theta) / std::sin(theta);
        weightOfRotation = std::sin(alpha * theta) / std::sin(theta);
    }
    if (rotation.w < 0.0f)
        weightOfRotation = -weightOfRotation;
    Quaternion fraction = weightOfRotation * rotation;
    fraction.w += weightOfIdentity;
    *this *= fraction;
}

Quaternion Quaternion::slerp(const Quaternion& a, const Quaternion& b, float t)
{
    constexpr float smallSine = 0.001f;
    const float cosine = dotProduct(a, b);
    if (std::abs(cosine) >= 1.0f)
        return a;
    const float theta = std::acos(cosine);
    const float sine = std::sqrt(1.0f - cosine * cosine);
    if (std::abs(sine) < smallSine)
        return 0.5f * a + 0.5f * b;
    return (std::sin((1.0f - t) * theta) / sine * a + std::sin(t * theta) / sine * b).computeNormalize();
}

Angle Quaternion::angularDistance(const Quaternion& a, const Quaternion& b)
{
    return 2.0f * std::acos(std::min(std::abs(dotProduct(a, b)), 1.0f));
}

Quaternion Quaternion::getRotationBetweenUnitVectors(const Vector3& from, const Vector3& to)
{
    constexpr float parallel = 0.999999f;
    constexpr float nearX = 0.001f;
    constexpr float cosineOfQuarterTurn = -4.371139e-8f; // of HALF_PI_ANGLE, in float
    const float cosine = from.dot(to);
    if (cosine >= parallel)
        return getIdentity();
    if (cosine >= -parallel)
    {
        const Vector3 axis = from.cross(to);
        return Quaternion(axis.x, axis.y, axis.z, cosine + 1.0f).computeNormalize();
    }
    Vector3 axis(0.0f, 0.0f, 1.0f);
    if (std::abs(std::abs(from.x) - 1.0f) > nearX)
        axis = Vector3(0.0f, from.z, -from.y).computeNormalize();
    return Quaternion(axis.x, axis.y, axis.z, cosineOfQuarterTurn);
}

void Quaternion::quaternionTranslationToDualQuaternion(const Quaternion& rotation, const Vector3& translation,
                                                       Quaternion* out)
{
    const Quaternion q = rotation;
    const Vector3 t = translation;
    out[0] = q;
    out[1] =
        Quaternion(0.5f * (q.w * t.x + q.y * t.z - q.z * t.y), 0.5f * (q.w * t.y + q.z * t.x - q.x * t.z),
                   0.5f * (q.w * t.z + q.x * t.y - q.y * t.x), -0.5f * (q.x * t.x + q.y * t.y + q.z * t.z));
}

void Quaternion::mul_4(Quaternion* out, const Quaternion* a, const Quaternion* b)
{
    using internal::Float4;
    Float4 ax = internal::load(a);
    Float4 ay = internal::load(a + 1);
    Float4 az = internal::load(a + 2);
    Float4 aw = internal::load(a + 3);
    internal::transpose(ax, ay, az, aw);
    Float4 bx = internal::load(b);
    Float4 by = internal::load(b + 1);
    Float4 bz = internal::load(b + 2);
    Float4 bw = internal::load(b + 3);
    internal::transpose(bx, by, bz, bw);

    Float4 x = (ax * bw - az * by) + (aw * bx + ay * bz);
    Float4 y = (ay * bw - ax * bz) + (aw * by + az * bx);
    Float4 z = (az * bw - ay * bx) + (aw * bz + ax * by);
    Float4 w = (aw * bw - ax * bx) - (ay * by + az * bz);
    internal::transpose(x, y, z, w);
    out[0] = Quaternion(x);
    out[1] = Quaternion(y);
    out[2] = Quaternion(z);
    out[3] = Quaternion(w);
}

const char* toString(const Quaternion& quaternion, char* buffer, size_t size)
{
    const int length = sprintfSafe(buffer, size, "(%f,%f,%f,%f)", static_cast<double>(quaternion.x),
                                   static_cast<double>(quaternion.y), static_cast<double>(quaternion.z),
                                   static_cast<double>(quaternion.w));
    return length < 1 ? "" : buffer;
}

} // namespace mrv
