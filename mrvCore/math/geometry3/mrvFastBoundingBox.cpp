// mrvCore/math/geometry3/mrvFastBoundingBox.cpp
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"

#include "mrvCore/math/geometry3/mrvClassifiedRay3.h"
#include "mrvCore/math/geometry3/mrvRayBoxSlopes.h"

#include <cmath>
#include <limits>

namespace mrv {

namespace {

// A ray that starts this close to the box counts as starting in it.
constexpr float wideSourceTolerance = 0.001f;

} // namespace

void FastBoundingBox::clear()
{
    _min.fill(std::numeric_limits<float>::max());
    _max.fill(std::numeric_limits<float>::lowest());
    _empty = true;
}

FastBoundingBox FastBoundingBox::operator+(const FastBoundingBox& other) const
{
    settle();
    other.settle();
    if (other._empty)
        return *this;
    if (_empty)
        return other;
    FastBoundingBox both = *this;
    both.update(other._min);
    both.update(other._max);
    return both;
}

bool FastBoundingBox::operator==(const FastBoundingBox& other) const
{
    if (isEmpty() || other.isEmpty())
        return isEmpty() == other.isEmpty();
    return _min == other._min && _max == other._max;
}

float FastBoundingBox::getVolume() const
{
    const Vector3 delta = getDelta();
    return delta.x * delta.y * delta.z;
}

bool FastBoundingBox::contains(const Vector3& point, float tolerance) const
{
    if (isEmpty())
        return false;
    const Vector3 lower = _min - Vector3(tolerance);
    const Vector3 upper = _max + Vector3(tolerance);
    return lower.x < point.x && point.x < upper.x && lower.y < point.y && point.y < upper.y &&
           lower.z < point.z && point.z < upper.z;
}

bool FastBoundingBox::areColliding(const FastBoundingBox& a, const FastBoundingBox& b, float tolerance)
{
    const Vector3 lowerA = a._min - Vector3(tolerance);
    const Vector3 lowerB = b._min - Vector3(tolerance);
    return !(lowerA.x > b._max.x || lowerA.y > b._max.y || lowerA.z > b._max.z || lowerB.x > a._max.x ||
             lowerB.y > a._max.y || lowerB.z > a._max.z);
}

float FastBoundingBox::distance2(const FastBoundingBox& a, const FastBoundingBox& b)
{
    a.settle();
    b.settle();
    const Vector3 halfSums = (a.getDelta() + b.getDelta()) * 0.5f;
    const Vector3 centres = a.getCenter() - b.getCenter();
    float sum = 0.0f;
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        const float gap = std::abs(centres[axis]) - halfSums[axis];
        if (gap > 0.0f)
            sum += gap * gap;
    }
    return sum;
}

bool FastBoundingBox::intersect(const ClassifiedRay3& ray) const
{
    settle();
    if (_empty)
        return false;
    return contains(ray.getSource(), wideSourceTolerance) || internal::intersectsBox(ray, _min, _max);
}

bool FastBoundingBox::intersect(const ClassifiedRay3& ray, float& t) const
{
    settle();
    if (_empty)
        return false;
    if (!contains(ray.getSource(), wideSourceTolerance))
        return internal::intersectsBox(ray, _min, _max, t);
    t = 0.0f;
    return true;
}

} // namespace mrv
