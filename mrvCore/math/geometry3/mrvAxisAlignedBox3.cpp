// mrvCore/math/geometry3/mrvAxisAlignedBox3.cpp
#include "mrvCore/math/geometry3/mrvAxisAlignedBox3.h"

#include "mrvCore/math/geometry3/mrvClassifiedRay3.h"
#include "mrvCore/math/geometry3/mrvRayBoxSlopes.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include <ostream>
#include <utility>

namespace mrv {

namespace {

// A ray that starts this close to the box counts as starting in it.
constexpr float sourceTolerance = 1e-5f;

} // namespace

bool AxisAlignedBox3::contains(const Vector3& point, float tolerance) const
{
    if (_empty)
        return false;
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (!(_min[axis] - tolerance < point[axis] && point[axis] < _max[axis] + tolerance))
            return false;
    return true;
}

void AxisAlignedBox3::retrieveBoundingBox(Vector3& min, Vector3& max) const
{
    min = _min;
    max = _max;
}

AxisAlignedBox3* AxisAlignedBox3::clone() const
{
    return new AxisAlignedBox3(*this);
}

void AxisAlignedBox3::setMinMax(const Vector3& min, const Vector3& max)
{
    _min = min;
    _max = max;
    validate();
}

void AxisAlignedBox3::makeValid()
{
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (_min[axis] > _max[axis])
            std::swap(_min[axis], _max[axis]);
}

void AxisAlignedBox3::validate()
{
    _empty = _min.x > _max.x || _min.y > _max.y || _min.z > _max.z || _min == _max;
}

AxisAlignedBox3 AxisAlignedBox3::operator*(const AxisAlignedBox3& other) const
{
    if (_empty || other._empty)
        return AxisAlignedBox3();
    Vector3 min = _min;
    Vector3 max = _max;
    min.maxSelf(other._min);
    max.minSelf(other._max);
    return AxisAlignedBox3(min, max);
}

AxisAlignedBox3 AxisAlignedBox3::operator+(const AxisAlignedBox3& other) const
{
    if (other._empty)
        return *this;
    if (_empty)
        return other;
    AxisAlignedBox3 both = *this;
    both._min.minSelf(other._min);
    both._max.maxSelf(other._max);
    return both;
}

bool AxisAlignedBox3::intersect(const ClassifiedRay3& ray) const
{
    if (_empty)
        return false;
    return contains(ray.getSource(), sourceTolerance) || internal::intersectsBox(ray, _min, _max);
}

bool AxisAlignedBox3::intersect(const ClassifiedRay3& ray, float& t) const
{
    if (_empty)
        return false;
    if (!contains(ray.getSource(), sourceTolerance))
        return internal::intersectsBox(ray, _min, _max, t);
    t = 0.0f;
    return true;
}

void AxisAlignedBox3::translate(const Vector3& offset)
{
    _min += offset;
    _max += offset;
}

bool AxisAlignedBox3::operator==(const AxisAlignedBox3& other) const
{
    if (_empty || other._empty)
        return _empty == other._empty;
    return _min == other._min && _max == other._max;
}

Vector3 AxisAlignedBox3::randomPoint(RandomNumberGenerator& rng) const
{
    Vector3 point;
    for (unsigned int axis = 0; axis < 3; ++axis)
        point[axis] = rng.frand() * (_max[axis] - _min[axis]) + _min[axis];
    return point;
}

std::ostream& operator<<(std::ostream& stream, const AxisAlignedBox3& box)
{
    if (box.isEmpty())
        return stream << "[]";
    return stream << '[' << box.getMin() << ',' << box.getMax() << ']';
}

} // namespace mrv
