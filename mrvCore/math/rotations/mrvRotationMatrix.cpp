// mrvCore/math/rotations/mrvRotationMatrix.cpp
#include "mrvCore/math/rotations/mrvRotationMatrix.h"

#include "mrvCore/math/rotations/mrvQuaternion.h"

#include <cmath>

namespace mrv {

RotationMatrix RotationMatrix::inverse() const
{
    constexpr float singular = 1e-6f;
    // The cofactors of a row are the cross product of the two others.
    const Vector3 cofactors0 = _matrix[1].cross(_matrix[2]);
    const Vector3 cofactors1 = _matrix[2].cross(_matrix[0]);
    const Vector3 cofactors2 = _matrix[0].cross(_matrix[1]);
    const float determinant = _matrix[0].dot(cofactors0);
    if (std::abs(determinant) <= singular)
        return RotationMatrix(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f);
    return fromRows(cofactors0, cofactors1, cofactors2).transpose() * (1.0f / determinant);
}

void RotationMatrix::setAxis_Zy(const Vector3& z, const Vector3& y)
{
    const Vector3 axisX = y.cross(z).computeNormalize();
    const Vector3 axisY = z.cross(axisX).computeNormalize();
    const Vector3 axisZ = z.computeNormalize();
    *this = fromRows(axisX, axisY, axisZ).transpose();
}

bool RotationMatrix::approxEqual(const RotationMatrix& a, const RotationMatrix& b, float tolerance)
{
    for (unsigned int row = 0; row < 3; ++row)
    {
        for (unsigned int column = 0; column < 3; ++column)
        {
            if (!(std::abs(a[row][column] - b[row][column]) <= tolerance))
                return false;
        }
    }
    return true;
}

void toRotationMatrix(RotationMatrix& out, const Quaternion& q)
{
    const float x = q.x;
    const float y = q.y;
    const float z = q.z;
    const float w = q.w;
    out = RotationMatrix(x * x - y * y - z * z + w * w, 2.0f * (x * y - z * w), 2.0f * (x * z + y * w),
                         2.0f * (x * y + z * w), -x * x + y * y - z * z + w * w, 2.0f * (y * z - x * w),
                         2.0f * (x * z - y * w), 2.0f * (y * z + x * w), -x * x - y * y + z * z + w * w);
}

} // namespace mrv
