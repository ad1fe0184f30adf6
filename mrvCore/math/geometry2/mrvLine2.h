// mrvCore/math/geometry2/mrvLine2.h
// An endless directed line of the plane.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Through two points, directed from the first to the second: a x + b y + c = 0.
///
/// (a, b) is as long as the points are apart and points to the left, the positive side. Two equal points
/// make a line without a direction: everything is on it.
class MRV_CORE_API Line2
{
public:
    Line2() = default;
    Line2(const Vector2& p1, const Vector2& p2);

    /// True if the sine between the directions is at most `tolerance` in size.
    bool parallel(const Line2& other, float tolerance = 1e-5f) const;
    /// To the left of the direction.
    Vector2 getNormalizedNormalVector() const { return Vector2(_a, _b).computeNormalize(); }
    Vector2 getNormalizedDirectionVector() const { return (_p2 - _p1).computeNormalize(); }

    /// Positive to the left; swapping the points changes the sign.
    float signedDistance(const Vector2& point) const;
    /// The foot of the perpendicular.
    Vector2 projection(const Vector2& point) const { return point - projectionNormal(point); }
    /// The part of the point's offset that stands across the line: from the foot to the point.
    Vector2 projectionNormal(const Vector2& point) const;
    /// True if neither point is on the line and no crossing lies between them.
    bool onSameSide(const Vector2& a, const Vector2& b) const;
    /// True if the distance is at most `tolerance`.
    bool contains(const Vector2& point, float tolerance) const;

    float _a = 0.0f;
    float _b = 0.0f;
    float _c = 0.0f;
    Vector2 _p1;
    Vector2 _p2;
};

} // namespace mrv
