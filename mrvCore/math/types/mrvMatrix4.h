// mrvCore/math/types/mrvMatrix4.h
// The 4x4 matrix that places things in space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Quaternion;
class RotationMatrix;

/// Four rows of four floats, used with row vectors: `a * b` applies a first, then b; row 3 is the
/// translation, rows 0 to 2 are the images of the axes. See transformPoint.
///
/// Threads: a plain value. Nothing is checked; what cannot be computed runs to infinities and NaN.
class Matrix4
{
public:
    Vector4 _matrix[4];

    MRV_CORE_API static const Matrix4 identity;
    MRV_CORE_API static const Matrix4 nullMatrix;

    static constexpr MemAllocStatId getClassMemoryStatId() { return MemoryStatIds::MaravoShared; }

    /// The identity.
    Matrix4() : Matrix4(identity) {}
    /// The identity, or with false what the memory holds.
    MRV_CORE_API explicit Matrix4(bool isIdentity);
    /// From the elements in row order.
    constexpr Matrix4(float m00, float m01, float m02, float m03, float m10, float m11, float m12, float m13,
                      float m20, float m21, float m22, float m23, float m30, float m31, float m32, float m33)
        : _matrix{
            { m00, m01, m02, m03 }, { m10, m11, m12, m13 }, { m20, m21, m22, m23 }, { m30, m31, m32, m33 }
        }
    {}
    /// From 16 elements in row order, at any address.
    explicit Matrix4(const float* elements) { set(elements); }
    explicit Matrix4(const double* elements) : Matrix4(internal::Uninitialised())
    {
        for (int i = 0; i < 16; ++i)
            floats()[i] = static_cast<float>(elements[i]);
    }
    constexpr Matrix4(const Vector4& row0, const Vector4& row1, const Vector4& row2, const Vector4& row3)
        : _matrix{ row0, row1, row2, row3 }
    {}
    /// All elements set to one value.
    explicit Matrix4(float value) : _matrix{ Vector4(value), Vector4(value), Vector4(value), Vector4(value) }
    {}
    Matrix4& operator=(float value) { return *this = Matrix4(value); }

    /// @{
    /// All elements in row order, at any address.
    void set(float m00, float m01, float m02, float m03, float m10, float m11, float m12, float m13,
             float m20, float m21, float m22, float m23, float m30, float m31, float m32, float m33)
    {
        *this = Matrix4(m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33);
    }
    void set(const float* elements) { __builtin_memcpy(floats(), elements, sizeof(_matrix)); }
    void set(const float (&elements)[4][4]) { set(reinterpret_cast<const float*>(elements)); }
    /// @}

    /// @{
    /// The 16 elements in row order.
    float* floats() { return reinterpret_cast<float*>(_matrix); }
    const float* const_floats() const { return reinterpret_cast<const float*>(_matrix); }
    /// @}

    Vector4& operator[](unsigned int row) { return _matrix[row]; }
    const Vector4& operator[](unsigned int row) const { return _matrix[row]; }
    /// Copies a column; the index is not checked.
    void column(unsigned int index, Vector4& out) const
    {
        out = Vector4(_matrix[0][index], _matrix[1][index], _matrix[2][index], _matrix[3][index]);
    }

    /// @{
    /// Rows 0 to 3 without their last element.
    Vector3 right() const { return rowAsVector(0); }
    Vector3 up() const { return rowAsVector(1); }
    Vector3 dir() const { return rowAsVector(2); }
    Vector3 position() const { return rowAsVector(3); }
    /// @}
    /// Writes the translation and leaves the last element of its row.
    void setPosition(const Vector3& position) { setRow(3, position); }

    /// Stretches along the own axes: rows 0 to 2 times x, y and z.
    void addScale(const Vector3& factors)
    {
        for (unsigned int row = 0; row < 3; ++row)
            setRow(row, rowAsVector(row) * factors[row]);
    }
    /// The lengths of rows 0 to 2.
    Vector3 computeScale() const { return Vector3(right().norm(), up().norm(), dir().norm()); }

    /// Of the whole matrix.
    MRV_CORE_API float GetDeterminant() const;

    /// Writes the 3x3 block element by element and leaves row 3 and column 3. Such a matrix applies the
    /// inverse rotation in transformPoint, since RotationMatrix acts on column vectors and this one on
    /// rows, whereas rotationAxis applies the direct one. Callers rely on both.
    MRV_CORE_API void setRotation(const Quaternion& rotation);
    MRV_CORE_API void setRotation(const RotationMatrix& rotation);

    Matrix4& operator+=(const Matrix4& other) { return *this = *this + other; }

    /// The other matrix, or this one, with rows and columns exchanged.
    void transpose(const Matrix4& source)
    {
        internal::Float4 row0 = internal::load(&source[0]);
        internal::Float4 row1 = internal::load(&source[1]);
        internal::Float4 row2 = internal::load(&source[2]);
        internal::Float4 row3 = internal::load(&source[3]);
        internal::transpose(row0, row1, row2, row3);
        *this = Matrix4(Vector4(row0), Vector4(row1), Vector4(row2), Vector4(row3));
    }
    void transpose() { transpose(*this); }

    /// True if every element differs by at most `tolerance`.
    MRV_CORE_API static bool approxEqual(const Matrix4& a, const Matrix4& b, float tolerance);

    // Builders; each writes the whole matrix.

    /// A projection with the depth range -1 to 1; `fovY` in degrees.
    MRV_CORE_API void perspective(float fovY, float aspect, float nearDistance, float farDistance);
    /// The same by the sides of the near rectangle.
    MRV_CORE_API void frustum(float left, float right, float bottom, float top, float nearDistance,
                              float farDistance);
    /// A projection with the depth range 0 to 1, unlike those above; callers rely on it.
    MRV_CORE_API void ortho(float left, float right, float bottom, float top, float nearDistance,
                            float farDistance);
    /// A placement at `eye` whose row 2 points to the target.
    MRV_CORE_API void lookAt(const Vector3& eye, const Vector3& target, const Vector3& up);
    /// @{
    /// A view matrix, in which the eye looks along -z. Both names are one operation.
    MRV_CORE_API void lookAtLH(const Vector3& eye, const Vector3& target, const Vector3& up);
    MRV_CORE_API void lookAtRH(const Vector3& eye, const Vector3& target, const Vector3& up);
    /// @}
    /// A rotation about an axis of any length but 0.
    MRV_CORE_API void rotationAxis(const Vector3& axis, Angle angle);
    /// A move by an offset.
    MRV_CORE_API void translation(const Vector3& offset);
    /// A stretch along the axes.
    MRV_CORE_API void scale(const Vector3& factors);

    /// Writes the inverse of `source`, which may be this matrix, and returns the determinant of the part
    /// that was inverted: of the whole matrix, or with `affine` of the 3x3 block, the source's last column
    /// being taken as (0, 0, 0, 1). A singular matrix gives infinities or NaN.
    MRV_CORE_API float inverse(const Matrix4& source, bool affine);

    friend Matrix4 operator+(const Matrix4& left, const Matrix4& right)
    {
        return Matrix4(left[0] + right[0], left[1] + right[1], left[2] + right[2], left[3] + right[3]);
    }
    friend Matrix4 operator-(const Matrix4& left, const Matrix4& right)
    {
        return Matrix4(left[0] - right[0], left[1] - right[1], left[2] - right[2], left[3] - right[3]);
    }
    friend Matrix4 operator*(const Matrix4& matrix, float factor)
    {
        return Matrix4(matrix[0] * factor, matrix[1] * factor, matrix[2] * factor, matrix[3] * factor);
    }
    friend Matrix4 operator*(float factor, const Matrix4& matrix) { return matrix * factor; }
    friend Matrix4 operator/(const Matrix4& matrix, float divisor)
    {
        return Matrix4(matrix[0] / divisor, matrix[1] / divisor, matrix[2] / divisor, matrix[3] / divisor);
    }

    /// Each element is summed up along the row of `left`, from the first column on.
    friend Matrix4 operator*(const Matrix4& left, const Matrix4& right)
    {
        using namespace internal;
        const Float4 right0 = load(&right[0]);
        const Float4 right1 = load(&right[1]);
        const Float4 right2 = load(&right[2]);
        const Float4 right3 = load(&right[3]);
        const auto times = [=](const Vector4& vector) {
            const Float4 row = load(&vector);
            return Vector4(splat<0>(row) * right0 + splat<1>(row) * right1 + splat<2>(row) * right2 +
                           splat<3>(row) * right3);
        };
        return Matrix4(times(left[0]), times(left[1]), times(left[2]), times(left[3]));
    }

    /// All 16 floats are exactly equal.
    friend bool operator==(const Matrix4& left, const Matrix4& right)
    {
        return left._matrix[0] == right._matrix[0] && left._matrix[1] == right._matrix[1] &&
               left._matrix[2] == right._matrix[2] && left._matrix[3] == right._matrix[3];
    }
    friend bool operator!=(const Matrix4& left, const Matrix4& right) { return !(left == right); }

private:
    explicit Matrix4(internal::Uninitialised tag)
        : _matrix{ Vector4(tag), Vector4(tag), Vector4(tag), Vector4(tag) }
    {}

    Vector3 rowAsVector(unsigned int row) const
    {
        return Vector3(internal::clearLast(internal::load(&_matrix[row])));
    }
    void setRow(unsigned int row, const Vector3& value)
    {
        _matrix[row].setValues(value.x, value.y, value.z, _matrix[row].w);
    }
};

static_assert(sizeof(Matrix4) == 64, "16 floats in row order");

/// The point as a row vector, with 1 as its fourth component, times the matrix; the fourth component of the
/// result is ignored. Sums run from x to the translation.
inline Vector3 transformPoint(const Vector3& point, const Matrix4& matrix)
{
    using namespace internal;
    const Float4 p = load(&point);
    return Vector3(clearLast(splat<0>(p) * load(&matrix[0]) + splat<1>(p) * load(&matrix[1]) +
                             splat<2>(p) * load(&matrix[2]) + load(&matrix[3])));
}

} // namespace mrv
