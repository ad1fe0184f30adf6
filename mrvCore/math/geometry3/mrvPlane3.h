// mrvCore/math/geometry3/mrvPlane3.h
// A plane of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

#include <iosfwd>

namespace mrv {

/// The points p with normal . p + d = 0; the normal is a unit and points to the positive side.
class MRV_CORE_API Plane3
{
public:
    /// The ground.
    Plane3() : _normal(Vector3::getZUpVector()) {}
    /// Through three points, which turn counterclockwise as seen from the positive side.
    Plane3(const Vector3& a, const Vector3& b, const Vector3& c);
    /// Through a point; the normal may have any length but 0.
    Plane3(const Vector3& normal, const Vector3& point);
    /// The normal is taken as it is, here and in setNormal().
    Plane3(const Vector3& normal, float constant) : _normal(normal), _d(constant) {}

    const Vector3& getNormal() const { return _normal; }
    void setNormal(const Vector3& normal) { _normal = normal; }
    float getConstant() const { return _d; }
    void setConstant(float constant) { _d = constant; }

    /// Positive on the side of the normal.
    float signedDistance(const Vector3& point) const { return _normal.dot(point) + _d; }
    /// True if the distance is below the tolerance.
    bool contains(const Vector3& point, float tolerance) const;

    /// The foot of the perpendicular.
    Vector3 project(const Vector3& point) const { return point - signedDistance(point) * _normal; }
    /// Along a direction of any length; one that lies in the plane leads far away.
    Vector3 project(const Vector3& point, const Vector3& direction) const;

    /// @{
    /// The point of the plane with the two coordinates given, in the order of the axes. Far away for a plane
    /// along the missing axis.
    Vector3 zCoordinate(float x, float y) const;
    Vector3 zCoordinate(const Vector2& xy) const { return zCoordinate(xy.x, xy.y); }
    Vector3 yCoordinate(float x, float z) const;
    Vector3 yCoordinate(const Vector2& xz) const { return yCoordinate(xz.x, xz.y); }
    Vector3 xCoordinate(float y, float z) const;
    Vector3 xCoordinate(const Vector2& yz) const { return xCoordinate(yz.x, yz.y); }
    /// @}

    bool operator==(const Plane3& other) const { return _normal == other._normal && _d == other._d; }
    bool operator!=(const Plane3& other) const { return !(*this == other); }
    /// For sorted containers: by the constant, then by the normal's x, y and z.
    bool operator<(const Plane3& other) const;

private:
    Vector3 _normal;
    float _d = 0.0f;
};

/// Writes "[(x,y,z),d]".
MRV_CORE_API std::ostream& operator<<(std::ostream& stream, const Plane3& plane);

} // namespace mrv
