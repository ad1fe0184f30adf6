// mrvCore/math/types/mrvVector4.h
// Four floats: a row of a matrix, four weights.
#pragma once

#include "mrvCore/math/types/mrvFloatVector.h"

namespace mrv {

/// Fills one register of 16 bytes; arithmetic and comparison are in FloatVector.
class alignas(16) Vector4 : public internal::FloatVector<Vector4, 4>
{
public:
    float x;
    float y;
    float z;
    float w;

    /// The null vector.
    constexpr Vector4() : Vector4(0.0f) {}
    explicit constexpr Vector4(float value) : Vector4(value, value, value, value) {}
    constexpr Vector4(float valueX, float valueY, float valueZ, float valueW)
        : x(valueX)
        , y(valueY)
        , z(valueZ)
        , w(valueW)
    {}
    /// From four floats at any address.
    explicit Vector4(const float* values) : Vector4(values[0], values[1], values[2], values[3]) {}
    explicit Vector4(internal::Float4 lanes) : Vector4(lanes[0], lanes[1], lanes[2], lanes[3]) {}
    // The components stay as the memory was: no member initialisers on purpose.
    explicit Vector4(internal::Uninitialised) {}

    static const Vector4& getNullVector()
    {
        static constexpr Vector4 null;
        return null;
    }

    void setValues(float valueX, float valueY, float valueZ, float valueW)
    {
        *this = Vector4(valueX, valueY, valueZ, valueW);
    }

    /// @{
    /// As Vector3's, with `added` in place of the amount that is added to the squared norm there.
    void normalizeSelf(float added = internal::SMALLEST_NORM2) { *this = computeNormalize(added); }
    Vector4 computeNormalize(float added = internal::SMALLEST_NORM2) const { return scaledToUnit(added); }
    /// @}
};

static_assert(sizeof(Vector4) == 16, "four of these are the 16 floats of a matrix");

} // namespace mrv
