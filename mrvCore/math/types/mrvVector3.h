// mrvCore/math/types/mrvVector3.h
// A point or a direction of space.
#pragma once

#include "mrvCore/math/types/mrvAxis.h"
#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/mrvCoreApi.h"

#include <cstddef>
#include <iosfwd>

namespace mrv {

class MrvString;

/// Three floats that fill one register of 16 bytes; arithmetic and comparison are in FloatVector.
///
/// The world is Z-up. `_alignmentValue` is 0 after every operation and takes part in none. Rotations about
/// Z turn counterclockwise, seen from above.
class alignas(16) Vector3 : public internal::FloatVector<Vector3, 3>
{
public:
    float x;
    float y;
    float z;
    float _alignmentValue;

    /// The null vector.
    constexpr Vector3() : Vector3(0.0f) {}
    explicit constexpr Vector3(float value) : Vector3(value, value, value) {}
    constexpr Vector3(float valueX, float valueY, float valueZ)
        : x(valueX)
        , y(valueY)
        , z(valueZ)
        , _alignmentValue(0.0f)
    {}
    /// From three floats at any address.
    explicit Vector3(const float* values) : Vector3(values[0], values[1], values[2]) {}
    /// The last lane must be 0.
    explicit Vector3(internal::Float4 lanes)
        : x(lanes[0])
        , y(lanes[1])
        , z(lanes[2])
        , _alignmentValue(lanes[3])
    {}
    // The components stay as the memory was: no member initialisers on purpose.
    explicit Vector3(internal::Uninitialised) : _alignmentValue(0.0f) {}

    static const Vector3& getNullVector()
    {
        static constexpr Vector3 null;
        return null;
    }
    static const Vector3& getZUpVector()
    {
        static constexpr Vector3 up(0.0f, 0.0f, 1.0f);
        return up;
    }

    void setNull() { fill(0.0f); }
    void setValues(float valueX, float valueY, float valueZ) { *this = Vector3(valueX, valueY, valueZ); }

    /// @{
    /// Scales to a norm of 1 by the fast reciprocal square root: the norm may miss 1 by a few units of the
    /// last place. A null vector stays null.
    void normalizeSelf() { *this = computeNormalize(); }
    Vector3 computeNormalize() const { return scaledToUnit(internal::SMALLEST_NORM2); }
    /// @}

    /// @{
    /// Component by component; a NaN in the argument changes nothing.
    void minSelf(const Vector3& other)
    {
        *this = Vector3(other.x < x ? other.x : x, other.y < y ? other.y : y, other.z < z ? other.z : z);
    }
    void maxSelf(const Vector3& other)
    {
        *this = Vector3(other.x > x ? other.x : x, other.y > y ? other.y : y, other.z > z ? other.z : z);
    }
    /// @}
    /// Where the bounds cross, `max` wins.
    void clampSelf(const Vector3& min, const Vector3& max)
    {
        maxSelf(min);
        minSelf(max);
    }

    /// @{
    /// Component by component; a division by 0 gives infinities and NaN.
    void mulSelf(const Vector3& other) { *this = Vector3(internal::load(this) * internal::load(&other)); }
    void divSelf(const Vector3& other) { *this = Vector3(x / other.x, y / other.y, z / other.z); }
    /// @}

    /// Drops the named axis and keeps the other two in order; anything but an axis is fatal.
    MRV_CORE_API Vector2 project(Axis::Value axis) const;
    void project(Axis::Value axis, Vector2& out) const { out = project(axis); }
    /// The vector without z.
    Vector2 projectZ() const { return Vector2(x, y); }

    /// Drops the part along `direction`, of any length but 0: the shadow on the plane that it stands on.
    Vector3 projectAlong(const Vector3& direction) const
    {
        return *this - direction * (dot(direction) / (direction.norm2() + internal::SMALLEST_NORM2));
    }

    /// @{
    /// Counterclockwise about the z axis.
    Vector3 computeRotateZ(Angle angle) const
    {
        const Vector2 turned = projectZ().rotate(angle);
        return Vector3(turned.x, turned.y, z);
    }
    void rotateZSelf(Angle angle) { *this = computeRotateZ(angle); }
    /// @}

    /// The cross product, right-handed.
    Vector3 cross(const Vector3& other) const
    {
        const internal::Float4 a = internal::load(this);
        const internal::Float4 b = internal::load(&other);
        const internal::Float4 zxy =
            a * internal::swizzle<1, 2, 0, 3>(b) - internal::swizzle<1, 2, 0, 3>(a) * b;
        return Vector3(internal::swizzle<1, 2, 0, 3>(zxy));
    }

    /// Some vector at a right angle, not normalised; null for the null vector.
    Vector3 computePerpendicular() const { return x > z ? Vector3(y, -x, 0.0f) : Vector3(0.0f, -z, y); }

    bool isFinite() const { return __builtin_isfinite(x) && __builtin_isfinite(y) && __builtin_isfinite(z); }
};

static_assert(sizeof(Vector3) == 16, "an array of these has a stride of four floats");

/// a . (b x c): six times the volume of the tetrahedron that the three span, positive if right-handed.
inline float scalarTripleProduct(const Vector3& a, const Vector3& b, const Vector3& c)
{
    return a.dot(b.cross(c));
}

/// Writes "(%f,%f,%f)" into a buffer of `size` bytes, cut if need be, and returns the buffer; a text that
/// is not the buffer, and empty, if nothing fits.
MRV_CORE_API const char* toString(const Vector3& vector, char* buffer, size_t size);

/// Writes "(x,y,z)" with the stream's precision and flags for floats, in the classic locale.
MRV_CORE_API std::ostream& operator<<(std::ostream& stream, const Vector3& vector);

/// Reads one word such as "(1,2,3)" or "1,2,3", without blanks inside, in the classic locale.
///
/// A word that is not three parts leaves the vector as it was, and so does one of fewer than five
/// characters, or of five that are not three numbers. In a longer one a part that is no number counts as
/// the stream reads it, 0 as a rule. The stream fails only if there is no word.
MRV_CORE_API std::istream& operator>>(std::istream& stream, Vector3& vector);

template <typename T>
MRV_CORE_API bool fromString(const MrvString& text, T& value);

/// By the rules of the operator above; false if there is no word in the text.
template <>
MRV_CORE_API bool fromString<Vector3>(const MrvString& text, Vector3& value);

} // namespace mrv
