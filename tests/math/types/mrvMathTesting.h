// tests/math/types/mrvMathTesting.h
// Comparisons and random values that the tests of the value types share.
#pragma once

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/rotations/mrvRotationMatrix.h"
#include "mrvCore/math/types/mrvMatrix4.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace mrv {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

inline std::vector<float> floatsOf(const Vector2& v)
{
    return { v.x, v.y };
}
inline std::vector<float> floatsOf(const Vector3& v)
{
    return { v.x, v.y, v.z };
}
inline std::vector<float> floatsOf(const Vector4& v)
{
    return { v.x, v.y, v.z, v.w };
}
inline std::vector<float> floatsOf(const Quaternion& q)
{
    return { q.x, q.y, q.z, q.w };
}
inline std::vector<float> floatsOf(const Matrix4& m)
{
    return { m.const_floats(), m.const_floats() + 16 };
}
inline std::vector<float> floatsOf(const RotationMatrix& m)
{
    return { m[0].x, m[0].y, m[0].z, m[1].x, m[1].y, m[1].z, m[2].x, m[2].y, m[2].z };
}

template <typename T>
testing::AssertionResult isNear(const T& value, const T& expected, float tolerance = 1e-6f)
{
    const std::vector<float> a = floatsOf(value);
    const std::vector<float> b = floatsOf(expected);
    bool near = true;
    for (size_t i = 0; i < a.size(); ++i)
        near = near && std::abs(a[i] - b[i]) <= tolerance;
    return (near ? testing::AssertionSuccess() : testing::AssertionFailure())
           << testing::PrintToString(a) << " against " << testing::PrintToString(b);
}

/// Equal to the bit, but for the sign of 0.
template <typename T>
testing::AssertionResult isSame(const T& value, const T& expected)
{
    return isNear(value, expected, 0.0f);
}

/// q and -q are one rotation.
inline testing::AssertionResult isSameRotation(const Quaternion& q, const Quaternion& expected,
                                               float tolerance = 1e-5f)
{
    return isNear(q, q.dot(expected) < 0.0f ? -expected : expected, tolerance);
}

inline uint32_t bitsOf(float value)
{
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

inline Vector3 randomVector(RandomNumberGenerator& rng)
{
    const float x = rng.frand(-3.0f, 3.0f);
    const float y = rng.frand(-3.0f, 3.0f);
    return Vector3(x, y, rng.frand(-3.0f, 3.0f));
}

inline Quaternion randomRotation(RandomNumberGenerator& rng)
{
    const Vector3 vector = randomVector(rng);
    return Quaternion(vector.x, vector.y, vector.z, rng.frand(-3.0f, 3.0f)).computeNormalize();
}

inline Matrix4 randomMatrix(RandomNumberGenerator& rng)
{
    Matrix4 matrix(false);
    for (int i = 0; i < 16; ++i)
        matrix.floats()[i] = rng.frand(-1.0f, 1.0f) + (i % 5 == 0 ? 3.0f : 0.0f);
    return matrix;
}

} // namespace mrv
