// mrvCore/math/rotations/mrvQuaternion.h
// The working form of a rotation.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// A rotation as x, y, z (the vector part) and w; arithmetic and comparison are in FloatVector.
///
/// The product is the Hamilton product: `a * b` applies b first, then a. What is said of rotations, rows
/// and columns holds for unit length, which nothing checks. Threads: a plain value.
class alignas(16) Quaternion : public internal::FloatVector<Quaternion, 4>
{
public:
    float x;
    float y;
    float z;
    float w;

    /// All zero, w included.
    constexpr Quaternion() : Quaternion(0.0f) {}
    explicit constexpr Quaternion(float value) : Quaternion(value, value, value, value) {}
    constexpr Quaternion(float valueX, float valueY, float valueZ, float valueW)
        : x(valueX)
        , y(valueY)
        , z(valueZ)
        , w(valueW)
    {}
    /// From x, y, z, w at any address.
    explicit Quaternion(const float* values) : Quaternion(values[0], values[1], values[2], values[3]) {}
    /// A rotation about `axis`, taken as it is: it should have unit length.
    MRV_CORE_API Quaternion(Angle angle, const Vector3& axis);
    explicit Quaternion(internal::Float4 lanes) : Quaternion(lanes[0], lanes[1], lanes[2], lanes[3]) {}

    static const Quaternion& getIdentity()
    {
        static constexpr Quaternion identity(0.0f, 0.0f, 0.0f, 1.0f);
        return identity;
    }
    static const Quaternion& getNullVector()
    {
        static constexpr Quaternion null;
        return null;
    }

    void setToIdentity() { *this = getIdentity(); }
    void setValues(float valueX, float valueY, float valueZ, float valueW)
    {
        *this = Quaternion(valueX, valueY, valueZ, valueW);
    }

    // Pure rotations about one axis.
    MRV_CORE_API void setPivotX(Angle angle);
    MRV_CORE_API void setPivotY(Angle angle);
    MRV_CORE_API void setPivotZ(Angle angle);

    /// @{
    /// Scales to unit length by a true square root and division, unlike the vectors: rotations are stored,
    /// and are the same on every processor. The null quaternion stays null.
    void normalizeSelf() { *this = computeNormalize(); }
    Quaternion computeNormalize() const
    {
        return *this * (1.0f / __builtin_sqrtf(norm2() + internal::SMALLEST_NORM2));
    }
    /// @}

    /// @{
    /// The conjugate is (x, y, z, -w), for the rotation the same as (-x, -y, -z, w); what is stored has
    /// this form. It is the inverse too, on the assumption of unit length.
    Quaternion computeConjugate() const { return Quaternion(x, y, z, -w); }
    void conjugateSelf() { w = -w; }
    Quaternion computeInverse() const { return computeConjugate(); }
    void inverseSelf() { conjugateSelf(); }
    /// @}

    using FloatVector::operator*=;
    using FloatVector::operator/=;
    Quaternion& operator*=(const Quaternion& other) { return *this = *this * other; }
    /// As *=, for callers that take the address of an operation.
    void multiplySelfNoReturn(const Quaternion& other) { *this *= other; }

    /// This rotation after the inverse of `divisor`. If this quaternion has not unit length, and is not
    /// nearly null, the result is scaled by the reciprocal of its norm.
    MRV_CORE_API Quaternion operator/(const Quaternion& divisor) const;
    Quaternion& operator/=(const Quaternion& divisor) { return *this = *this / divisor; }

    /// @{
    /// Images of the unit axes: the columns of the rotation matrix.
    Vector3 mulByUnitVectorX() const
    {
        return Vector3(1.0f - 2.0f * y * y - 2.0f * z * z, 2.0f * x * y + 2.0f * w * z,
                       2.0f * x * z - 2.0f * w * y);
    }
    Vector3 mulByUnitVectorY() const
    {
        return Vector3(2.0f * x * y - 2.0f * w * z, 1.0f - 2.0f * x * x - 2.0f * z * z,
                       2.0f * y * z + 2.0f * w * x);
    }
    Vector3 mulByUnitVectorZ() const
    {
        return Vector3(2.0f * x * z + 2.0f * w * y, 2.0f * y * z - 2.0f * w * x,
                       1.0f - 2.0f * x * x - 2.0f * y * y);
    }
    Vector3 getColumnX() const { return mulByUnitVectorX(); }
    Vector3 getColumnY() const { return mulByUnitVectorY(); }
    Vector3 getColumnZ() const { return mulByUnitVectorZ(); }
    /// @}
    // The rows are the columns of the inverse.
    Vector3 getRow0() const { return computeInverse().mulByUnitVectorX(); }
    Vector3 getRow1() const { return computeInverse().mulByUnitVectorY(); }
    Vector3 getRow2() const { return computeInverse().mulByUnitVectorZ(); }

    /// The angle about Z of a rotation that is about Z alone, in [-pi, pi]; for data of the time when
    /// orientations had one angle.
    MRV_CORE_API Angle extractOld2DOrientation() const;

    /// This rotation, then one about the world's Z.
    MRV_CORE_API Quaternion computeRotateZ(Angle angle) const;

    /// Applies the fraction `alpha` of `rotation` first, the short way round; not normalised. At 0 and below
    /// nothing changes, and from 1 on this quaternion is replaced by `rotation`, not multiplied by it.
    MRV_CORE_API void multiplyAlphaQuat(const Quaternion& rotation, float alpha);

    /// Great-circle interpolation (Shoemake, 1985) for t from 0 to 1, without a flip of hemispheres: of
    /// quaternions with a negative dot product it takes the long way round. Nearly equal and nearly
    /// opposite ones give their mean, not normalised; with a dot product of 1 or more in size it is `a`.
    MRV_CORE_API static Quaternion slerp(const Quaternion& a, const Quaternion& b, float t);

    /// Angle of the rotation from `a` to `b`, in [0, pi].
    MRV_CORE_API static Angle angularDistance(const Quaternion& a, const Quaternion& b);

    /// Sum of the products of the components.
    static float dotProduct(const Quaternion& a, const Quaternion& b) { return a.dot(b); }

    /// The shortest rotation that turns one unit vector into the other. Of opposite ones it is a half turn
    /// about an axis at a right angle to `from`.
    MRV_CORE_API static Quaternion getRotationBetweenUnitVectors(const Vector3& from, const Vector3& to);

    /// Writes two quaternions, the real and the dual part of the rotation followed by the translation.
    MRV_CORE_API static void quaternionTranslationToDualQuaternion(const Quaternion& rotation,
                                                                   const Vector3& translation,
                                                                   Quaternion* out);

    /// @{
    /// Rotations and products with an output, which may be an argument too.
    static void mul(Vector3& out, const Quaternion& q, const Vector3& v) { out = q * v; }
    static void mulAdd(Vector3& out, const Vector3& add, const Quaternion& q, const Vector3& v)
    {
        out = add + q * v;
    }
    static void mulSub(Vector3& out, const Vector3& sub, const Quaternion& q, const Vector3& v)
    {
        out = sub - q * v;
    }
    static void mulmul(Quaternion& out, const Quaternion& a, const Quaternion& b, const Quaternion& c)
    {
        out = a * b * c;
    }
    /// @}
    /// Four products at once, element by element; to the bit what the operator gives.
    MRV_CORE_API static void mul_4(Quaternion* out, const Quaternion* a, const Quaternion* b);

    /// The vector rotated: the sum of the axes' images times its components, for any length of `q`.
    friend Vector3 operator*(const Quaternion& q, const Vector3& v)
    {
        using namespace internal;
        const Float4 axis = load(&q);
        const Float4 vector = load(&v);
        const Float4 axisYzx = swizzle<1, 2, 0, 3>(axis);
        // v + w t + axis x t, with t = 2 axis x v; the cross products come out in the order z, x, y.
        const Float4 half = axis * swizzle<1, 2, 0, 3>(vector) - axisYzx * vector;
        const Float4 zxy = half + half;
        const Float4 cross = axis * swizzle<2, 0, 1, 3>(zxy) - axisYzx * swizzle<1, 2, 0, 3>(zxy);
        return Vector3(clearLast(vector + swizzle<1, 2, 0, 3>(splat<3>(axis) * zxy + cross)));
    }

    friend Quaternion operator*(const Quaternion& left, const Quaternion& right)
    {
        using namespace internal;
        const Float4 a = load(&left);
        const Float4 b = load(&right);
        const Float4 crossed = swizzle<2, 0, 1, 0>(a) * swizzle<1, 2, 0, 0>(b);
        const Float4 sum =
            swizzle<3, 3, 3, 1>(a) * swizzle<0, 1, 2, 1>(b) + swizzle<1, 2, 0, 2>(a) * swizzle<2, 0, 1, 2>(b);
        return Quaternion(a * splat<3>(b) - crossed + flipSigns(sum, Bits4{ 0u, 0u, 0u, 0x80000000u }));
    }
};

static_assert(sizeof(Quaternion) == 16, "files and graphics code read arrays of these");

/// A rotation about Z.
MRV_CORE_API Quaternion quaternionFromAngle(float angle);

/// The same as q * v, with an output that may be `v`.
inline void rotateVecByQuat(Vector3& out, const Quaternion& q, const Vector3& v)
{
    out = q * v;
}

/// Writes "(%f,%f,%f,%f)", x first, into a buffer of `size` bytes, cut if need be, and returns the buffer; a
/// text that is not the buffer, and empty, if nothing fits.
MRV_CORE_API const char* toString(const Quaternion& quaternion, char* buffer, size_t size);

} // namespace mrv
