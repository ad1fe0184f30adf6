// mrvCore/system/memory/mrvMemoryBlock.h
// Raw blocks for the elements of containers, and the debug checks of their unchecked accesses.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>
#include <cstdlib>

/// In debug builds ends the program when a container is used against its contract (an index beyond the
/// size, the last element of an empty array); costs nothing where NDEBUG is defined.
#ifdef NDEBUG
#    define MRV_CONTAINER_CHECK(condition) static_cast<void>(0)
#else
#    define MRV_CONTAINER_CHECK(condition)                                                                   \
        ((condition) ? static_cast<void>(0)                                                                  \
                     : ::mrv::internal::containerCheckFailed(#condition, __FILE__, __LINE__))
#endif

namespace mrv::internal {

/// Prints the condition and its place to the standard error stream and aborts.
[[noreturn]] MRV_CORE_API void containerCheckFailed(const char* condition, const char* file, int line);

/// `malloc` of `count` elements of `elementSize` bytes, aligned for any type of up to 16 bytes alignment.
/// Never returns less than was asked for: aborts where the product overflows or the memory is exhausted.
MRV_CORE_API void* allocateBlock(size_t count, size_t elementSize);

/// The same with `realloc`: what the old block held stays in front.
MRV_CORE_API void* reallocateBlock(void* block, size_t count, size_t elementSize);

/// A block of exactly the bytes of a text, at least one, and their terminator.
MRV_CORE_API char* makeTextBlock(const char* text, size_t count);

inline void freeBlock(void* block)
{
    std::free(block);
}

/// The block of every text that has not grown yet: one terminator, which is never written and never freed.
extern MRV_CORE_API char sharedTerminator[1];

/// a + b, or the greatest size, which no allocation can satisfy.
inline size_t saturatedSum(size_t a, size_t b)
{
    return a + b < a ? static_cast<size_t>(-1) : a + b;
}

/// The one growth rule of arrays and text: the greater of twice the capacity plus 8 and what is needed.
inline size_t grownCapacity(size_t capacity, size_t needed)
{
    const size_t doubled = 2 * capacity + 8;
    return doubled < needed ? needed : doubled;
}

} // namespace mrv::internal
