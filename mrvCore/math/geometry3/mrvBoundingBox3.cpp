// mrvCore/math/geometry3/mrvBoundingBox3.cpp
#include "mrvCore/math/geometry3/mrvBoundingBox3.h"

#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"
#include "mrvCore/math/geometry3/mrvTriangle3.h"

namespace mrv {

namespace {

FastBoundingBox fastOf(const BoundingBox3& box)
{
    return FastBoundingBox(box.getMin(), box.getMax());
}

} // namespace

BoundingBox3* BoundingBox3::clone() const
{
    return new BoundingBox3(*this);
}

void BoundingBox3::update(const Vector3& point)
{
    constexpr float tolerance = 1e-5f;
    if (_empty)
    {
        _min = _max = point;
        _empty = false;
    }
    else if (!contains(point, tolerance))
    {
        _min.minSelf(point);
        _max.maxSelf(point);
    }
}

void BoundingBox3::update(const Triangle3& triangle)
{
    for (int i = 0; i < 3; ++i)
        update(triangle[i]);
}

void BoundingBox3::update(const Array<Vector3>& points)
{
    for (const Vector3& point : points)
        update(point);
}

BoundingBox3 BoundingBox3::operator+(const BoundingBox3& other) const
{
    return BoundingBox3(AxisAlignedBox3::operator+(other));
}

bool BoundingBox3::areColliding(const BoundingBox3& a, const BoundingBox3& b, float tolerance)
{
    return FastBoundingBox::areColliding(fastOf(a), fastOf(b), tolerance);
}

float BoundingBox3::distance2(const BoundingBox3& a, const BoundingBox3& b)
{
    return FastBoundingBox::distance2(fastOf(a), fastOf(b));
}

} // namespace mrv
