// mrvCore/math/geometry3/mrvPlane3.cpp
#include "mrvCore/math/geometry3/mrvPlane3.h"

#include <cmath>
#include <ostream>

namespace mrv {

namespace {

// Keeps a plane along the asked axis from dividing by 0.
constexpr float smallest = internal::SMALLEST_NORM2;

} // namespace

Plane3::Plane3(const Vector3& a, const Vector3& b, const Vector3& c)
    : _normal((b - a).cross(c - a).computeNormalize())
    , _d(-_normal.dot(a))
{}

Plane3::Plane3(const Vector3& normal, const Vector3& point)
    : _normal(normal.computeNormalize())
    , _d(-_normal.dot(point))
{}

bool Plane3::contains(const Vector3& point, float tolerance) const
{
    return std::abs(signedDistance(point)) < tolerance;
}

Vector3 Plane3::project(const Vector3& point, const Vector3& direction) const
{
    return point - direction * (signedDistance(point) / (_normal.dot(direction) + smallest));
}

Vector3 Plane3::zCoordinate(float x, float y) const
{
    return Vector3(x, y, -(_normal.x * x + _normal.y * y + _d) / (_normal.z + smallest));
}

Vector3 Plane3::yCoordinate(float x, float z) const
{
    return Vector3(x, -(_normal.x * x + _normal.z * z + _d) / (_normal.y + smallest), z);
}

Vector3 Plane3::xCoordinate(float y, float z) const
{
    return Vector3(-(_normal.y * y + _normal.z * z + _d) / (_normal.x + smallest), y, z);
}

bool Plane3::operator<(const Plane3& other) const
{
    return _d != other._d ? _d < other._d : _normal < other._normal;
}

std::ostream& operator<<(std::ostream& stream, const Plane3& plane)
{
    return stream << '[' << plane.getNormal() << ',' << plane.getConstant() << ']';
}

} // namespace mrv
