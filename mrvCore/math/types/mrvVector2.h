// mrvCore/math/types/mrvVector2.h
// A point or a direction of the plane.
#pragma once

#include "mrvCore/math/types/mrvAngle.h"
#include "mrvCore/math/types/mrvFloatVector.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Two floats; arithmetic and comparison are in FloatVector. Angles turn counterclockwise, from x to y.
class Vector2 : public internal::FloatVector<Vector2, 2>
{
public:
    float x;
    float y;

    /// The null vector.
    constexpr Vector2() : Vector2(0.0f) {}
    explicit constexpr Vector2(float value) : Vector2(value, value) {}
    constexpr Vector2(float valueX, float valueY) : x(valueX), y(valueY) {}

    static const Vector2& getNullVector()
    {
        static constexpr Vector2 null;
        return null;
    }

    void setNull() { fill(0.0f); }
    void setValues(float valueX, float valueY) { *this = Vector2(valueX, valueY); }

    /// @{
    /// As Vector3's, with `added` in place of the amount that is added to the squared norm there.
    void normalizeSelf(float added = internal::SMALLEST_NORM2) { *this = computeNormalize(added); }
    Vector2 computeNormalize(float added = internal::SMALLEST_NORM2) const { return scaledToUnit(added); }
    /// @}

    /// @{
    /// Counterclockwise. The output may be this vector.
    Vector2 rotate(float cosine, float sine) const
    {
        return Vector2(cosine * x - sine * y, sine * x + cosine * y);
    }
    MRV_CORE_API Vector2 rotate(Angle angle) const;
    void rotate(Angle angle, Vector2& out) const { out = rotate(angle); }
    void rotateSelf(float cosine, float sine) { *this = rotate(cosine, sine); }
    void rotateSelf(Angle angle) { *this = rotate(angle); }
    /// @}

    /// @{
    /// By a quarter turn, without rounding.
    void rotate90(Vector2& out) const { out = Vector2(-y, x); }
    void rotateSelf90() { rotate90(*this); }
    /// @}

    /// Angle from the x axis, in [-pi, pi]; 0 for the null vector.
    MRV_CORE_API Angle getAngle() const;
};

static_assert(sizeof(Vector2) == 8, "files and graphics code read arrays of these");

/// True if the cross product is at most `tolerance` in size, or if one of the two has both components
/// within the tolerance of 0.
MRV_CORE_API bool areCollinear(const Vector2& a, const Vector2& b, float tolerance);

/// True if `a` comes before `b` by x, then by y.
inline bool lexicoGraphicCompare(const Vector2& a, const Vector2& b)
{
    return a.x < b.x || (!(a.x > b.x) && a.y < b.y);
}

} // namespace mrv
