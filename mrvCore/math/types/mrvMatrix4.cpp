// mrvCore/math/types/mrvMatrix4.cpp
#include "mrvCore/math/types/mrvMatrix4.h"

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/rotations/mrvRotationMatrix.h"

#include <cmath>

namespace mrv {

namespace {

using internal::Float4;

// Lanes 1 and 3, and lanes 0 and 2.
constexpr unsigned int sign = 0x80000000u;
constexpr internal::Bits4 oddLanes = { 0u, sign, 0u, sign };
constexpr internal::Bits4 evenLanes = { sign, 0u, sign, 0u };

float invertWhole(Matrix4& out, const Matrix4& source)
{
    // Columns of rows 1, 0, 3, 2: lane i of the result belongs to the minors that leave row i out.
    Float4 c0 = internal::load(&source[1]);
    Float4 c1 = internal::load(&source[0]);
    Float4 c2 = internal::load(&source[3]);
    Float4 c3 = internal::load(&source[2]);
    internal::transpose(c0, c1, c2, c3);

    // The 2x2 minors of two columns, of rows 2 and 3 in the first two lanes, of rows 0 and 1 in the others.
    const auto minor = [](Float4 p, Float4 q) {
        return internal::swizzle<3, 3, 1, 1>(p) * internal::swizzle<2, 2, 0, 0>(q) -
               internal::swizzle<2, 2, 0, 0>(p) * internal::swizzle<3, 3, 1, 1>(q);
    };
    const Float4 minor01 = minor(c0, c1);
    const Float4 minor02 = minor(c0, c2);
    const Float4 minor03 = minor(c0, c3);
    const Float4 minor12 = minor(c1, c2);
    const Float4 minor13 = minor(c1, c3);
    const Float4 minor23 = minor(c2, c3);

    // The determinant from the minors of both pairs of rows (Laplace): it is ready while the cofactors are
    // still being summed up.
    const auto otherRows = [](Float4 rows) { return internal::swizzle<2, 3, 0, 1>(rows); };
    const Float4 halves =
        minor01 * otherRows(minor23) - minor02 * otherRows(minor13) + minor03 * otherRows(minor12);
    const float determinant = halves[0] + halves[2];

    // The transposed cofactors, whose signs alternate, times the factor.
    const Float4 factor = internal::broadcast(1.0f / determinant);
    const Float4 evenRow = internal::flipSigns(factor, oddLanes);
    const Float4 oddRow = internal::flipSigns(factor, evenLanes);
    internal::store(&out[0], (c1 * minor23 - c2 * minor13 + c3 * minor12) * evenRow);
    internal::store(&out[1], (c0 * minor23 - c2 * minor03 + c3 * minor02) * oddRow);
    internal::store(&out[2], (c0 * minor13 - c1 * minor03 + c3 * minor01) * evenRow);
    internal::store(&out[3], (c0 * minor12 - c1 * minor02 + c2 * minor01) * oddRow);
    return determinant;
}

float invertAffine(Matrix4& out, const Matrix4& source)
{
    const Vector3 row0 = source.right();
    const Vector3 row1 = source.up();
    const Vector3 row2 = source.dir();
    const Vector3 offset = source.position();

    // The cofactors of a row of the block are the cross product of the two others.
    const Vector3 cofactors0 = row1.cross(row2);
    const float determinant = row0.dot(cofactors0);
    const Float4 factor = internal::broadcast(1.0f / determinant);
    Float4 column0 = internal::load(&cofactors0) * factor;
    const Vector3 cofactors1 = row2.cross(row0);
    Float4 column1 = internal::load(&cofactors1) * factor;
    const Vector3 cofactors2 = row0.cross(row1);
    Float4 column2 = internal::load(&cofactors2) * factor;
    Float4 column3 = internal::broadcast(0.0f);
    internal::transpose(column0, column1, column2, column3);

    Float4 row3 = -(internal::broadcast(offset.x) * column0 + internal::broadcast(offset.y) * column1 +
                    internal::broadcast(offset.z) * column2);
    row3[3] = 1.0f;
    internal::store(&out[0], column0);
    internal::store(&out[1], column1);
    internal::store(&out[2], column2);
    internal::store(&out[3], row3);
    return determinant;
}

Matrix4 fromRows(const Vector3& row0, const Vector3& row1, const Vector3& row2, const Vector3& row3)
{
    return Matrix4(row0.x, row0.y, row0.z, 0.0f, row1.x, row1.y, row1.z, 0.0f, row2.x, row2.y, row2.z, 0.0f,
                   row3.x, row3.y, row3.z, 1.0f);
}

// Right-handed axes of which z is given and normalised, y the nearest to `up`.
struct Frame
{
    Frame(const Vector3& axisZ, const Vector3& up)
        : z(axisZ)
        , x(up.computeNormalize().cross(z).computeNormalize())
        , y(z.cross(x).computeNormalize())
    {}
    Vector3 z;
    Vector3 x;
    Vector3 y;
};

} // namespace

// clang-format off
const Matrix4 Matrix4::identity(1.0f, 0.0f, 0.0f, 0.0f,
                                0.0f, 1.0f, 0.0f, 0.0f,
                                0.0f, 0.0f, 1.0f, 0.0f,
                                0.0f, 0.0f, 0.0f, 1.0f);
// clang-format on
const Matrix4 Matrix4::nullMatrix(Vector4(0.0f), Vector4(0.0f), Vector4(0.0f), Vector4(0.0f));

// Out of line: inlined, the start of the object's life would void what the memory held.
Matrix4::Matrix4(bool isIdentity) : Matrix4(internal::Uninitialised())
{
    if (isIdentity)
        *this = identity;
}

float Matrix4::GetDeterminant() const
{
    Matrix4 unused(false);
    return unused.inverse(*this, false);
}

void Matrix4::setRotation(const Quaternion& rotation)
{
    RotationMatrix matrix;
    toRotationMatrix(matrix, rotation);
    setRotation(matrix);
}

void Matrix4::setRotation(const RotationMatrix& rotation)
{
    for (unsigned int row = 0; row < 3; ++row)
        setRow(row, rotation[row]);
}

bool Matrix4::approxEqual(const Matrix4& a, const Matrix4& b, float tolerance)
{
    for (int i = 0; i < 16; ++i)
    {
        if (!(std::abs(a.const_floats()[i] - b.const_floats()[i]) <= tolerance))
            return false;
    }
    return true;
}

void Matrix4::perspective(float fovY, float aspect, float nearDistance, float farDistance)
{
    const float top = std::tan(fovY * PI_ANGLE / 360.0f) * nearDistance;
    frustum(-aspect * top, aspect * top, -top, top, nearDistance, farDistance);
}

void Matrix4::frustum(float left, float right, float bottom, float top, float nearDistance, float farDistance)
{
    *this = nullMatrix;
    Matrix4& m = *this;
    m[0][0] = 2.0f * nearDistance / (right - left);
    m[1][1] = 2.0f * nearDistance / (top - bottom);
    m[2][0] = (right + left) / (right - left);
    m[2][1] = (top + bottom) / (top - bottom);
    m[2][2] = (-farDistance - nearDistance) / (farDistance - nearDistance);
    m[2][3] = -1.0f;
    m[3][2] = -2.0f * nearDistance * farDistance / (farDistance - nearDistance);
}

void Matrix4::ortho(float left, float right, float bottom, float top, float nearDistance, float farDistance)
{
    *this = nullMatrix;
    Matrix4& m = *this;
    m[0][0] = 2.0f / (right - left);
    m[1][1] = 2.0f / (top - bottom);
    m[2][2] = 1.0f / (farDistance - nearDistance);
    m[3][0] = (right + left) / (left - right);
    m[3][1] = (top + bottom) / (bottom - top);
    m[3][2] = nearDistance / (nearDistance - farDistance);
    m[3][3] = 1.0f;
}

void Matrix4::lookAt(const Vector3& eye, const Vector3& target, const Vector3& up)
{
    const Frame frame((target - eye).computeNormalize(), up);
    *this = fromRows(frame.x, frame.y, frame.z, eye);
}

void Matrix4::lookAtLH(const Vector3& eye, const Vector3& target, const Vector3& up)
{
    const Frame frame((eye - target).computeNormalize(), up);
    *this = fromRows(frame.x, frame.y, frame.z, Vector3());
    transpose();
    setPosition(Vector3(-frame.x.dot(eye), -frame.y.dot(eye), -frame.z.dot(eye)));
}

void Matrix4::lookAtRH(const Vector3& eye, const Vector3& target, const Vector3& up)
{
    lookAtLH(eye, target, up);
}

void Matrix4::rotationAxis(const Vector3& axis, Angle angle)
{
    const Vector3 unit = axis / axis.norm();
    const float x = unit.x;
    const float y = unit.y;
    const float z = unit.z;
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float t = 1.0f - c;
    *this = fromRows(Vector3(x * x * t + c, x * y * t + s * z, x * z * t - s * y),
                     Vector3(x * y * t - s * z, y * y * t + c, y * z * t + s * x),
                     Vector3(x * z * t + s * y, y * z * t - s * x, z * z * t + c), Vector3());
}

void Matrix4::translation(const Vector3& offset)
{
    *this = identity;
    setPosition(offset);
}

void Matrix4::scale(const Vector3& factors)
{
    *this = fromRows(Vector3(factors.x, 0.0f, 0.0f), Vector3(0.0f, factors.y, 0.0f),
                     Vector3(0.0f, 0.0f, factors.z), Vector3());
}

float Matrix4::inverse(const Matrix4& source, bool affine)
{
    return affine ? invertAffine(*this, source) : invertWhole(*this, source);
}

} // namespace mrv
