// mrvCore/math/rotations/mrvRotationMatrix.h
// The 3x3 matrix of a rotation.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Quaternion;

/// Three rows of three floats, used with column vectors: `m * v` rotates v, the columns are the images of
/// the unit axes, and `a * b` applies b first. Matrix4 is used the other way round. Threads: a plain value.
class RotationMatrix
{
public:
    Vector3 _matrix[3];

    /// The nine elements stay as the memory was.
    RotationMatrix()
        : _matrix{ Vector3(internal::Uninitialised()), Vector3(internal::Uninitialised()),
                   Vector3(internal::Uninitialised()) }
    {}
    /// From the elements in row order.
    constexpr RotationMatrix(float m00, float m01, float m02, float m10, float m11, float m12, float m20,
                             float m21, float m22)
        : _matrix{ { m00, m01, m02 }, { m10, m11, m12 }, { m20, m21, m22 } }
    {}

    /// Sets all nine elements to one value.
    RotationMatrix& operator=(float value)
    {
        return *this = RotationMatrix(value, value, value, value, value, value, value, value, value);
    }

    void setIdentity() { *this = RotationMatrix(1.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 1.0f); }

    Vector3& operator[](unsigned int row) { return _matrix[row]; }
    const Vector3& operator[](unsigned int row) const { return _matrix[row]; }
    /// Copies a column; the index is not checked.
    void column(unsigned int index, Vector3& out) const
    {
        out = Vector3(_matrix[0][index], _matrix[1][index], _matrix[2][index]);
    }

    /// Rows and columns exchanged: the inverse of a rotation.
    RotationMatrix transpose() const
    {
        return RotationMatrix(_matrix[0].x, _matrix[1].x, _matrix[2].x, _matrix[0].y, _matrix[1].y,
                              _matrix[2].y, _matrix[0].z, _matrix[1].z, _matrix[2].z);
    }

    /// The inverse by cofactors, of any matrix; all zero if the determinant is at most 1e-6 in size.
    MRV_CORE_API RotationMatrix inverse() const;

    /// This matrix times the diagonal one: column j times component j.
    RotationMatrix timesDiagonal(const Vector3& diagonal) const
    {
        RotationMatrix result = *this;
        for (Vector3& row : result._matrix)
            row.mulSelf(diagonal);
        return result;
    }

    /// Columns x, y, z of a right-handed frame: `z` gives the direction of its axis, `y` what its axis is
    /// nearest to. Neither has to be normalised.
    MRV_CORE_API void setAxis_Zy(const Vector3& z, const Vector3& y);

    /// True if every element differs by at most `tolerance`.
    MRV_CORE_API static bool approxEqual(const RotationMatrix& a, const RotationMatrix& b, float tolerance);

    friend RotationMatrix operator+(const RotationMatrix& left, const RotationMatrix& right)
    {
        return fromRows(left[0] + right[0], left[1] + right[1], left[2] + right[2]);
    }
    friend RotationMatrix operator-(const RotationMatrix& left, const RotationMatrix& right)
    {
        return fromRows(left[0] - right[0], left[1] - right[1], left[2] - right[2]);
    }
    friend RotationMatrix operator*(const RotationMatrix& matrix, float factor)
    {
        return fromRows(matrix[0] * factor, matrix[1] * factor, matrix[2] * factor);
    }
    friend RotationMatrix operator*(float factor, const RotationMatrix& matrix) { return matrix * factor; }
    friend RotationMatrix operator/(const RotationMatrix& matrix, float divisor)
    {
        return fromRows(matrix[0] / divisor, matrix[1] / divisor, matrix[2] / divisor);
    }
    friend Vector3 operator*(const RotationMatrix& matrix, const Vector3& vector)
    {
        return Vector3(matrix[0].dot(vector), matrix[1].dot(vector), matrix[2].dot(vector));
    }
    friend RotationMatrix operator*(const RotationMatrix& left, const RotationMatrix& right)
    {
        return fromRows(left[0].x * right[0] + left[0].y * right[1] + left[0].z * right[2],
                        left[1].x * right[0] + left[1].y * right[1] + left[1].z * right[2],
                        left[2].x * right[0] + left[2].y * right[1] + left[2].z * right[2]);
    }
    friend bool operator==(const RotationMatrix& left, const RotationMatrix& right)
    {
        return left[0] == right[0] && left[1] == right[1] && left[2] == right[2];
    }
    friend bool operator!=(const RotationMatrix& left, const RotationMatrix& right)
    {
        return !(left == right);
    }

private:
    static RotationMatrix fromRows(const Vector3& row0, const Vector3& row1, const Vector3& row2)
    {
        RotationMatrix result;
        result._matrix[0] = row0;
        result._matrix[1] = row1;
        result._matrix[2] = row2;
        return result;
    }
};

static_assert(sizeof(RotationMatrix) == 48, "three rows of 16 bytes");

/// The matrix of a unit quaternion; any other length is squared into its elements (see fromQuaternion).
MRV_CORE_API void toRotationMatrix(RotationMatrix& out, const Quaternion& q);

} // namespace mrv
