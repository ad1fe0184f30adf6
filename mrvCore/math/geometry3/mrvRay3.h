// mrvCore/math/geometry3/mrvRay3.h
// A ray of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

namespace mrv {

/// From the source along the direction, which may have any length: parameters count in directions.
class Ray3
{
public:
    Ray3() = default;
    Ray3(const Vector3& source, const Vector3& direction) : _source(source), _direction(direction) {}

    /// The point at a parameter.
    Vector3 value(float t) const { return _source + _direction * t; }

    /// Parameter of the foot of the perpendicular on the ray's line, and the way from there to the point.
    void project(const Vector3& point, float& t, Vector3& offset) const
    {
        t = (point - _source).dot(_direction) / (_direction.norm2() + internal::SMALLEST_NORM2);
        offset = point - value(t);
    }

    Vector3 _source;
    Vector3 _direction;
};

} // namespace mrv
