// mrvCore/math/types/mrvFloat4.h
// Four floats in one register: what the inner loops of the value types are written in. Internal.
#pragma once

namespace mrv::internal {

/// Four lanes, with the arithmetic operators lane by lane. This is the vector extension of gcc and clang:
/// SSE code on x86-64, the processor's own elsewhere, and no header to include.
using Float4 = float __attribute__((vector_size(16)));
using Bits4 = unsigned int __attribute__((vector_size(16)));

/// Selects the constructors that leave their components as the memory was.
struct Uninitialised
{};

/// Four floats at an address that is a multiple of 16.
inline Float4 load(const void* from)
{
    using Lanes = const float __attribute__((vector_size(16), may_alias));
    return *static_cast<Lanes*>(from);
}

inline void store(void* to, Float4 lanes)
{
    using Lanes = float __attribute__((vector_size(16), may_alias));
    *static_cast<Lanes*>(to) = lanes;
}

inline Float4 broadcast(float value)
{
    return Float4{ value, value, value, value };
}

/// Lanes A and B of the first, then C and D of the second.
template <int A, int B, int C, int D>
Float4 shuffle(Float4 first, Float4 second)
{
#if defined(__clang__) || __GNUC__ >= 12
    return __builtin_shufflevector(first, second, A, B, C + 4, D + 4);
#else
    return __builtin_shuffle(first, second, Bits4{ A, B, C + 4, D + 4 });
#endif
}

/// Lanes A, B, C and D of one. As bits, since SSE moves these into another register in one instruction.
template <int A, int B, int C, int D>
Float4 swizzle(Float4 lanes)
{
    const Bits4 bits = reinterpret_cast<Bits4>(lanes);
#if defined(__clang__) || __GNUC__ >= 12
    return reinterpret_cast<Float4>(__builtin_shufflevector(bits, bits, A, B, C, D));
#else
    return reinterpret_cast<Float4>(__builtin_shuffle(bits, Bits4{ A, B, C, D }));
#endif
}

/// One lane everywhere.
template <int Lane>
Float4 splat(Float4 lanes)
{
    return swizzle<Lane, Lane, Lane, Lane>(lanes);
}

/// Turns the sign of the lanes whose mask is 0x80000000.
inline Float4 flipSigns(Float4 lanes, Bits4 mask)
{
    return reinterpret_cast<Float4>(reinterpret_cast<Bits4>(lanes) ^ mask);
}

/// The first three lanes, and 0 in the last: an infinite factor would leave a NaN there.
inline Float4 clearLast(Float4 lanes)
{
    constexpr unsigned int keep = 0xFFFFFFFFu;
    return reinterpret_cast<Float4>(reinterpret_cast<Bits4>(lanes) & Bits4{ keep, keep, keep, 0u });
}

/// Rows to columns.
inline void transpose(Float4& row0, Float4& row1, Float4& row2, Float4& row3)
{
    const Float4 low01 = shuffle<0, 1, 0, 1>(row0, row1);
    const Float4 high01 = shuffle<2, 3, 2, 3>(row0, row1);
    const Float4 low23 = shuffle<0, 1, 0, 1>(row2, row3);
    const Float4 high23 = shuffle<2, 3, 2, 3>(row2, row3);
    row0 = shuffle<0, 2, 0, 2>(low01, low23);
    row1 = shuffle<1, 3, 1, 3>(low01, low23);
    row2 = shuffle<0, 2, 0, 2>(high01, high23);
    row3 = shuffle<1, 3, 1, 3>(high01, high23);
}

/// About 1/sqrt(value) in every lane, good to about 22 bits: the processor's estimate and one step of
/// Newton's. This accuracy is what normalised vectors have, and it stays.
inline Float4 reciprocalSquareRoot(float value)
{
    const Float4 s = broadcast(value);
#if defined(__SSE__)
    const Float4 r = __builtin_ia32_rsqrtps(s);
#else
    const Float4 r = broadcast(1.0f / __builtin_sqrtf(value));
#endif
    return 0.5f * r * (3.0f - s * r * r);
}

/// Added to a squared norm before its root is divided by, so that a null vector stays null.
constexpr float SMALLEST_NORM2 = 1e-37f;

} // namespace mrv::internal
