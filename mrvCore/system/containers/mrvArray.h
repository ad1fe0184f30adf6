// mrvCore/system/containers/mrvArray.h
// Growable array of any copyable element.
#pragma once

#include "mrvCore/system/containers/mrvArrayCore.h"

#include <new>

namespace mrv {

namespace internal {

/// Elements as objects: constructed in place in raw memory, destroyed one by one.
template <class T>
struct ObjectElements
{
    static constexpr MemAllocStatId defaultId = getDefaultArrayMemoryStatId();

    static void construct(T* at, size_t count)
    {
        for (size_t i = 0; i < count; ++i)
            new (static_cast<void*>(at + i)) T();
    }
    static void destroy(T* at, size_t count)
    {
        if constexpr (!std::is_trivially_destructible_v<T>)
            for (size_t i = 0; i < count; ++i)
                at[i].~T();
    }

    static void copyOne(T* to, const T& from) { new (static_cast<void*>(to)) T(from); }
    static void fill(T* to, size_t count, const T& value)
    {
        for (size_t i = 0; i < count; ++i)
            copyOne(to + i, value);
    }
    template <class U>
    static void copy(T* to, const U* from, size_t count)
    {
        for (size_t i = 0; i < count; ++i)
            new (static_cast<void*>(to + i)) T(from[i]);
    }
    static void assign(T* to, const T* from, size_t count)
    {
        for (size_t i = 0; i < count; ++i)
            to[i] = from[i];
    }

    /// From the back: into raw memory by construction, into living elements by assignment. The places
    /// left behind are raw.
    static void moveUp(T* from, size_t count, size_t distance)
    {
        for (size_t i = count; i-- > 0;)
        {
            if (i + distance >= count)
                copyOne(from + distance + i, from[i]);
            else
                from[distance + i] = from[i];
        }
        destroy(from, distance < count ? distance : count);
    }
    static void moveDown(T* to, size_t distance, size_t count) { assign(to, to + distance, count); }

    static T* moveToBlock(T* block, size_t size, size_t capacity)
    {
        T* const moved = capacity == 0 ? nullptr : static_cast<T*>(allocateBlock(capacity, sizeof(T)));
        copy(moved, block, size);
        destroy(block, size);
        free(block);
        return moved;
    }
    static void free(T* block) { freeBlock(block); }
};

} // namespace internal

/// Growable array that owns its elements: it constructs, copies and destroys them one by one.
///
/// T is copyable, has an alignment of at most 16, and throws nothing. Growing copies the elements into the
/// new block and destroys them in the old one.
/// Growth, aliasing and access rules: see internal::ArrayCore.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class T>
class Array : public internal::ArrayCore<T, internal::ObjectElements<T>>
{
public:
    using internal::ArrayCore<T, internal::ObjectElements<T>>::ArrayCore;
};

} // namespace mrv
