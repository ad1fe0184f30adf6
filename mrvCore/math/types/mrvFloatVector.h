// mrvCore/math/types/mrvFloatVector.h
// What Vector2, Vector3, Vector4 and Quaternion have in common.
#pragma once

#include "mrvCore/math/types/mrvFloat4.h"
#include "mrvCore/system/memory/mrvMemoryStatIds.h"

namespace mrv::internal {

/// Base of a value type of `Count` float components named x, y, z, w, the first at the object's address.
///
/// `Derived` is made from one float (all components) and from its components; with more than two it fills
/// 16 aligned bytes and is made from a Float4 too. Only components take part in anything: the filling of
/// three stays 0. Sums of products run from x on. Threads: a plain value. No operation fails: results that
/// are too great run to infinities and NaN.
template <typename Derived, int Count>
class FloatVector
{
public:
    static constexpr MemAllocStatId getClassMemoryStatId() { return MemoryStatIds::MaravoShared; }

    void fill(float value) { self() = Derived(value); }

    float* getFloatValues() { return reinterpret_cast<float*>(&self()); }
    const float* getFloatValues() const { return reinterpret_cast<const float*>(&self()); }

    /// Component 0 to Count - 1; the index is not checked.
    float& operator[](unsigned int index) { return getFloatValues()[index]; }
    const float& operator[](unsigned int index) const { return getFloatValues()[index]; }

    /// True if every component is exactly 0, of either sign.
    bool isNull() const { return self() == Derived(0.0f); }

    float norm2() const { return dot(self()); }
    float norm() const { return __builtin_sqrtf(norm2()); }

    /// True if the norm is at most `tolerance` from 1.
    bool isNormalized(float tolerance) const { return __builtin_fabsf(norm() - 1.0f) <= tolerance; }

    float dot(const Derived& other) const
    {
        float sum = self().x * other.x + self().y * other.y;
        if constexpr (Count > 2)
            sum += self().z * other.z;
        if constexpr (Count > 3)
            sum += self().w * other.w;
        return sum;
    }

    Derived& operator+=(const Derived& other) { return self() = self() + other; }
    Derived& operator-=(const Derived& other) { return self() = self() - other; }
    Derived& operator*=(float factor) { return self() = self() * factor; }
    Derived& operator/=(float divisor) { return self() = self() / divisor; }

    friend Derived operator-(const Derived& vector)
    {
        constexpr unsigned int sign = 0x80000000u;
        if constexpr (Count == 2)
            return Derived(-vector.x, -vector.y);
        else
            return Derived(flipSigns(load(&vector), Bits4{ sign, sign, sign, Count == 3 ? 0u : sign }));
    }

    friend Derived operator+(const Derived& left, const Derived& right)
    {
        if constexpr (Count == 2)
            return Derived(left.x + right.x, left.y + right.y);
        else
            return Derived(load(&left) + load(&right));
    }

    friend Derived operator-(const Derived& left, const Derived& right)
    {
        if constexpr (Count == 2)
            return Derived(left.x - right.x, left.y - right.y);
        else
            return Derived(load(&left) - load(&right));
    }

    friend Derived operator*(const Derived& vector, float factor)
    {
        if constexpr (Count == 2)
            return Derived(vector.x * factor, vector.y * factor);
        else
            return fromLanes(load(&vector) * broadcast(factor));
    }

    friend Derived operator*(float factor, const Derived& vector) { return vector * factor; }

    /// A division of each component, not a product with 1 / divisor.
    friend Derived operator/(const Derived& vector, float divisor)
    {
        if constexpr (Count == 2)
            return Derived(vector.x / divisor, vector.y / divisor);
        else
            return fromLanes(load(&vector) / broadcast(divisor));
    }

    friend bool operator==(const Derived& left, const Derived& right)
    {
        bool equal = left.x == right.x && left.y == right.y;
        if constexpr (Count > 2)
            equal = equal && left.z == right.z;
        if constexpr (Count > 3)
            equal = equal && left.w == right.w;
        return equal;
    }

    friend bool operator!=(const Derived& left, const Derived& right) { return !(left == right); }

    /// For sorted containers: by x, then y and so on.
    friend bool operator<(const Derived& left, const Derived& right)
    {
        for (unsigned int i = 0; i + 1 < Count; ++i)
        {
            if (left[i] != right[i])
                return left[i] < right[i];
        }
        return left[Count - 1] < right[Count - 1];
    }

protected:
    /// The vector times the fast reciprocal of its norm; `added` keeps a null vector from dividing by 0.
    Derived scaledToUnit(float added) const
    {
        const Float4 factor = reciprocalSquareRoot(norm2() + added);
        if constexpr (Count == 2)
            return self() * factor[0];
        else
            return fromLanes(load(this) * factor);
    }

    static Derived fromLanes(Float4 lanes) { return Derived(Count == 3 ? clearLast(lanes) : lanes); }

private:
    Derived& self() { return static_cast<Derived&>(*this); }
    const Derived& self() const { return static_cast<const Derived&>(*this); }
};

} // namespace mrv::internal
