// mrvCore/math/conversions/mrvEulerConversions.cpp
#include "mrvCore/math/conversions/mrvEulerConversions.h"

#include <cmath>

namespace mrv {

namespace {

// Components of a quaternion along the axes of an order.
template <Axis::Value First, Axis::Value Second, Axis::Value Third>
struct EulerOrder
{
    explicit EulerOrder(const Quaternion& q) : a(q[First]), b(q[Second]), c(q[Third]), w(q.w) {}

    static Quaternion fromAngles(const EulerAngles& angles)
    {
        const float ch = std::cos(angles.heading * 0.5f);
        const float sh = std::sin(angles.heading * 0.5f);
        const float ca = std::cos(angles.attitude * 0.5f);
        const float sa = std::sin(angles.attitude * 0.5f);
        const float cb = std::cos(angles.bank * 0.5f);
        const float sb = std::sin(angles.bank * 0.5f);
        Quaternion q;
        q[First] = sh * ca * cb + ch * sa * sb;
        q[Second] = ch * sa * cb - sh * ca * sb;
        q[Third] = ch * ca * sb + sh * sa * cb;
        q.w = ch * ca * cb - sh * sa * sb;
        return q;
    }

    EulerPolesStatus::Value status() const
    {
        constexpr float tolerance = 1e-5f;
        const float test = a * c + b * w;
        if (std::abs(test - 0.5f) <= tolerance)
            return EulerPolesStatus::NORTH;
        return std::abs(test + 0.5f) <= tolerance ? EulerPolesStatus::SOUTH : EulerPolesStatus::NONE;
    }

    Angle heading(EulerPolesStatus::Value pole) const
    {
        switch (pole)
        {
        case EulerPolesStatus::NORTH:
            return 2.0f * std::atan2(c, w);
        case EulerPolesStatus::SOUTH:
            return -2.0f * std::atan2(c, w);
        default:
            return std::atan2(2.0f * a * w - 2.0f * c * b, 1.0f - 2.0f * a * a - 2.0f * b * b);
        }
    }

    EulerPolesStatus::Value toAngles(EulerAngles& out) const
    {
        const EulerPolesStatus::Value pole = status();
        out.heading = heading(pole);
        out.attitude = pole == EulerPolesStatus::NORTH ? HALF_PI_ANGLE : -HALF_PI_ANGLE;
        out.bank = 0.0f;
        if (pole == EulerPolesStatus::NONE)
        {
            out.attitude = std::asin(2.0f * b * w + 2.0f * a * c);
            out.bank = std::atan2(2.0f * c * w - 2.0f * a * b, 1.0f - 2.0f * c * c - 2.0f * b * b);
        }
        return pole;
    }

    float a;
    float b;
    float c;
    float w;
};

using OrderXYZ = EulerOrder<Axis::X, Axis::Y, Axis::Z>;
using OrderXZY = EulerOrder<Axis::X, Axis::Z, Axis::Y>;
using OrderYXZ = EulerOrder<Axis::Y, Axis::X, Axis::Z>;
using OrderYZX = EulerOrder<Axis::Y, Axis::Z, Axis::X>;
using OrderZXY = EulerOrder<Axis::Z, Axis::X, Axis::Y>;
using OrderZYX = EulerOrder<Axis::Z, Axis::Y, Axis::X>;

} // namespace

void toQuaternionXYZ(Quaternion& out, const EulerAngles& angles)
{
    out = OrderXYZ::fromAngles(angles);
}
void toQuaternionXZY(Quaternion& out, const EulerAngles& angles)
{
    out = OrderXZY::fromAngles(angles);
}
void toQuaternionYZX(Quaternion& out, const EulerAngles& angles)
{
    out = OrderYZX::fromAngles(angles);
}
void toQuaternionZXY(Quaternion& out, const EulerAngles& angles)
{
    out = OrderZXY::fromAngles(angles);
}
void toQuaternionZYX(Quaternion& out, const EulerAngles& angles)
{
    out = OrderZYX::fromAngles(angles);
}

EulerPolesStatus::Value toEulerAnglesXYZ(EulerAngles& out, const Quaternion& q)
{
    return OrderXYZ(q).toAngles(out);
}
EulerPolesStatus::Value toEulerAnglesXZY(EulerAngles& out, const Quaternion& q)
{
    return OrderXZY(q).toAngles(out);
}
EulerPolesStatus::Value toEulerAnglesYXZ(EulerAngles& out, const Quaternion& q)
{
    return OrderYXZ(q).toAngles(out);
}
EulerPolesStatus::Value toEulerAnglesYZX(EulerAngles& out, const Quaternion& q)
{
    return OrderYZX(q).toAngles(out);
}
EulerPolesStatus::Value toEulerAnglesZXY(EulerAngles& out, const Quaternion& q)
{
    return OrderZXY(q).toAngles(out);
}
EulerPolesStatus::Value toEulerAnglesZYX(EulerAngles& out, const Quaternion& q)
{
    return OrderZYX(q).toAngles(out);
}

EulerPolesStatus::Value toEulerHeadingZYX(float& heading, const Quaternion& q)
{
    const OrderZYX order(q);
    const EulerPolesStatus::Value pole = order.status();
    heading = order.heading(pole);
    return pole;
}

void extractHeadingAndAttitudeFromWorldDirection(const Vector3& direction, Angle& heading, Angle& attitude)
{
    constexpr float vertical = 0.9999f;
    heading = std::atan2(direction.y, direction.x);
    if (direction.z > vertical)
        heading = HALF_PI_ANGLE;
    else if (direction.z < -vertical)
        heading = -HALF_PI_ANGLE;

    const Vector2 turned = direction.projectZ().rotate(std::cos(heading), std::sin(-heading));
    if (turned.y > vertical)
        attitude = HALF_PI_ANGLE;
    else if (turned.y < -vertical)
        attitude = -HALF_PI_ANGLE;
    else
        attitude = -std::atan2(direction.z, turned.x);
}

} // namespace mrv
