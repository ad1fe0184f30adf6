// mrvCore/math/conversions/mrvQuaternionConversions.cpp
#include "mrvCore/math/conversions/mrvQuaternionConversions.h"

#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

// `m[row][column]` is the element of the rotation matrix.
template <typename Elements>
Quaternion fromElements(const Elements& m)
{
    Quaternion q;
    const float trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0f)
    {
        const float s = std::sqrt(trace + 1.0f);
        const float factor = 0.5f / s;
        q.w = s / 2.0f;
        q.x = (m[2][1] - m[1][2]) * factor;
        q.y = (m[0][2] - m[2][0]) * factor;
        q.z = (m[1][0] - m[0][1]) * factor;
        return q;
    }
    unsigned int i = m[1][1] > m[0][0] ? 1 : 0;
    if (m[2][2] > m[i][i])
        i = 2;
    const unsigned int j = (i + 1) % 3;
    const unsigned int k = (j + 1) % 3;
    const float s = std::sqrt(m[i][i] - m[j][j] - m[k][k] + 1.0f);
    q[i] = s / 2.0f;
    q.w = (m[k][j] - m[j][k]) * 0.5f / s;
    q[j] = (m[i][j] + m[j][i]) * 0.5f / s;
    q[k] = (m[i][k] + m[k][i]) * 0.5f / s;
    return q;
}

} // namespace

void toQuaternion(Quaternion& out, const Vector3& x, const Vector3& y, const Vector3& z)
{
    out = fromElements(RotationMatrix(x.x, y.x, z.x, x.y, y.y, z.y, x.z, y.z, z.z));
}

void toQuaternion(Quaternion& out, const RotationMatrix& matrix)
{
    out = fromElements(matrix);
}

void toQuaternion(Quaternion& out, const Matrix4& matrix)
{
    out = fromElements(matrix);
}

void toQuaternion(Quaternion& out, const AxisAngle& axisAngle)
{
    out = Quaternion(axisAngle._angle, axisAngle._axis);
}

void toQuaternion(Quaternion& out, float angle, Axis::Value axis)
{
    if (axis == Axis::X)
        out.setPivotX(angle);
    else if (axis == Axis::Y)
        out.setPivotY(angle);
    else
        out.setPivotZ(angle);
}

void fromQuaternion(RotationMatrix& out, const Quaternion& q)
{
    const float n = q.norm2();
    toRotationMatrix(out, q);
    out = out / n;
}

void fromQuaternion(Matrix4& out, const Quaternion& q)
{
    RotationMatrix rotation;
    fromQuaternion(rotation, q);
    out = Matrix4::identity;
    out.setRotation(rotation);
}

Matrix4 MatrixFromQuaternion(const Quaternion& q)
{
    Matrix4 matrix(false);
    fromQuaternion(matrix, q);
    return matrix;
}

void toAxisAngle(AxisAngle& out, const Quaternion& q)
{
    constexpr float smallSine = 1e-5f;
    Quaternion unit = q;
    if (std::abs(unit.w) > 1.0f)
    {
        unit.normalizeSelf();
        unit.w = std::clamp(unit.w, -1.0f, 1.0f);
    }
    const float sine = std::sqrt(1.0f - unit.w * unit.w);
    out._angle = 2.0f * std::acos(unit.w);
    out._axis =
        sine < smallSine ? Vector3(1.0f, 0.0f, 0.0f) : Vector3(unit.x / sine, unit.y / sine, unit.z / sine);
}

void toRotationMatrix(RotationMatrix& out, const AxisAngle& axisAngle)
{
    const Angle angle = AngleUtils::getModuloValue(axisAngle._angle);
    const float x = axisAngle._axis.x;
    const float y = axisAngle._axis.y;
    const float z = axisAngle._axis.z;
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float t = 1.0f - c;
    out =
        RotationMatrix(x * x * t + c, x * y * t - s * z, x * z * t + s * y, x * y * t + s * z, y * y * t + c,
                       y * z * t - s * x, x * z * t - s * y, y * z * t + s * x, z * z * t + c);
}

} // namespace mrv
