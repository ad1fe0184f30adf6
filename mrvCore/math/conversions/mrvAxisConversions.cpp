// mrvCore/math/conversions/mrvAxisConversions.cpp
#include "mrvCore/math/conversions/mrvAxisConversions.h"

#include "mrvCore/math/conversions/mrvQuaternionConversions.h"

namespace mrv {

namespace {

// `exact` and `near` number the axes that `p` and `q` are the directions of.
Quaternion fromTwoAxes(Axis::Value exact, const Vector3& p, Axis::Value near, const Vector3& q)
{
    Vector3 axes[Axis::END];
    axes[exact] = p;
    axes[near] = q;
    // The right-handed cross product of the two that follow in the cycle.
    const auto rebuild = [&axes](int axis) {
        axes[axis] = axes[(axis + 1) % Axis::END].cross(axes[(axis + 2) % Axis::END]).computeNormalize();
    };
    rebuild(Axis::X + Axis::Y + Axis::Z - exact - near);
    rebuild(near);
    axes[exact].normalizeSelf();

    Quaternion rotation;
    toQuaternion(rotation, axes[Axis::X], axes[Axis::Y], axes[Axis::Z]);
    return rotation;
}

} // namespace

Quaternion Axis_Xy_toQuaternion(const Vector3& x, const Vector3& y)
{
    return fromTwoAxes(Axis::X, x, Axis::Y, y);
}
Quaternion Axis_Xz_toQuaternion(const Vector3& x, const Vector3& z)
{
    return fromTwoAxes(Axis::X, x, Axis::Z, z);
}
Quaternion Axis_Yx_toQuaternion(const Vector3& y, const Vector3& x)
{
    return fromTwoAxes(Axis::Y, y, Axis::X, x);
}
Quaternion Axis_Yz_toQuaternion(const Vector3& y, const Vector3& z)
{
    return fromTwoAxes(Axis::Y, y, Axis::Z, z);
}
Quaternion Axis_Zx_toQuaternion(const Vector3& z, const Vector3& x)
{
    return fromTwoAxes(Axis::Z, z, Axis::X, x);
}
Quaternion Axis_Zy_toQuaternion(const Vector3& z, const Vector3& y)
{
    return fromTwoAxes(Axis::Z, z, Axis::Y, y);
}

void Axis_Zx_toQuaternion(Quaternion& out, const Vector3& z, const Vector3& x)
{
    out = Axis_Zx_toQuaternion(z, x);
}
void Axis_Zy_toQuaternion(Quaternion& out, const Vector3& z, const Vector3& y)
{
    out = Axis_Zy_toQuaternion(z, y);
}

} // namespace mrv
