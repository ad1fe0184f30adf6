// mrvCore/math/geometry3/mrvBoundingBox3.h
// A box along the axes that grows.
#pragma once

#include "mrvCore/math/geometry3/mrvAxisAlignedBox3.h"
#include "mrvCore/system/containers/mrvArray.h"

namespace mrv {

class Triangle3;

/// A box around what it is updated with. Unlike a validated box it is not empty when it holds one point.
class MRV_CORE_API BoundingBox3 : public AxisAlignedBox3
{
public:
    using AxisAlignedBox3::AxisAlignedBox3;
    BoundingBox3() = default;
    explicit BoundingBox3(const AxisAlignedBox3& box) : AxisAlignedBox3(box) {}

    BoundingBox3* clone() const override;

    /// Points up to 1e-5 outside of a box that is not empty do not make it grow.
    void update(const Vector3& point);
    void update(const Triangle3& triangle);
    void update(const Array<Vector3>& points);

    BoundingBox3 operator+(const BoundingBox3& other) const;

    /// True unless a gap wider than the tolerance parts the boxes on some axis. Symmetric; whether they are
    /// empty is not asked.
    static bool areColliding(const BoundingBox3& a, const BoundingBox3& b, float tolerance);
    /// Square of the distance between the boxes, 0 where they meet. Symmetric.
    static float distance2(const BoundingBox3& a, const BoundingBox3& b);
};

} // namespace mrv
