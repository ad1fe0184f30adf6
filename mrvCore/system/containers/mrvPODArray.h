// mrvCore/system/containers/mrvPODArray.h
// Growable array of plain data, moved as bytes.
#pragma once

#include "mrvCore/system/containers/mrvArrayCore.h"

#include <cstring>
#include <new>

namespace mrv {

class MrvString;

namespace internal {

/// Elements as bytes: made, moved and dropped without constructors and destructors.
template <class T>
struct PodElements
{
    static constexpr MemAllocStatId defaultId = getDefaultPODArrayMemoryStatId();

    static void construct(T*, size_t) {}
    static void destroy(T*, size_t) {}

    static void copyOne(T* to, const T& from)
    {
        if constexpr (std::is_trivially_copyable_v<T>)
            new (static_cast<void*>(to)) T(from);
        else
            std::memcpy(static_cast<void*>(to), &from, sizeof(T));
    }
    static void fill(T* to, size_t count, const T& value)
    {
        for (size_t i = 0; i < count; ++i)
            copyOne(to + i, value);
    }
    static void copy(T* to, const T* from, size_t count)
    {
        if (count != 0)
            std::memcpy(static_cast<void*>(to), from, count * sizeof(T));
    }
    template <class U>
    static void copy(T* to, const U* from, size_t count)
    {
        for (size_t i = 0; i < count; ++i)
            copyOne(to + i, from[i]);
    }
    static void assign(T* to, const T* from, size_t count) { copy(to, from, count); }

    static void moveUp(T* from, size_t count, size_t distance)
    {
        if (count != 0)
            std::memmove(static_cast<void*>(from + distance), from, count * sizeof(T));
    }
    static void moveDown(T* to, size_t distance, size_t count)
    {
        if (count != 0)
            std::memmove(static_cast<void*>(to), to + distance, count * sizeof(T));
    }

    static T* moveToBlock(T* block, size_t size, size_t capacity)
    {
        static_assert(std::is_trivially_destructible_v<T>, "PODArray runs no destructors; use Array");
        if (isShared(block))
        {
            T* const own = capacity == 0 ? nullptr : static_cast<T*>(allocateBlock(capacity, sizeof(T)));
            copy(own, block, size);
            return own;
        }
        if (size != 0)
            return static_cast<T*>(reallocateBlock(block, capacity, sizeof(T)));
        freeBlock(block);
        return capacity == 0 ? nullptr : static_cast<T*>(allocateBlock(capacity, sizeof(T)));
    }
    static void free(T* block)
    {
        if (!isShared(block))
            freeBlock(block);
    }

private:
    static bool isShared(const T* block)
    {
        if constexpr (std::is_same_v<T, char>)
            return block == sharedTerminator;
        else
            return false;
    }
};

} // namespace internal

/// Growable array of plain data: numbers, pointers, enumerations, structs and vectors of these.
///
/// Elements are bytes: they are moved with memcpy, and resize(), addOne() and the constructor from a count
/// leave new ones as they are. T needs no destructor and an alignment of at most 16.
/// Growth, aliasing and access rules: see internal::ArrayCore.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class T>
class PODArray : public internal::ArrayCore<T, internal::PodElements<T>>
{
    using Core = internal::ArrayCore<T, internal::PodElements<T>>;

public:
    using Core::Core;
    PODArray() noexcept = default;

    /// A copy of the `count` elements at `source`.
    template <class U, class = std::enable_if_t<std::is_same_v<std::remove_const_t<U>, T>>>
    PODArray(size_t count, U* source)
    {
        this->set_capacity(count);
        this->insert(this->end(), source, source + count);
    }

    /// Sets all bytes of all elements to 0.
    void zeroMemory()
    {
        if (this->any())
            std::memset(static_cast<void*>(this->begin()), 0, this->size() * sizeof(T));
    }

    /// Moves the elements from `index` on by `count` places towards the end. The size grows by `count`;
    /// the elements in the gap are left as they are.
    void shiftForward(size_t index, size_t count) { this->openGap(index, count); }

    /// Moves the elements from `index` on by `count` places towards the front, over the `count` elements
    /// before them. The size falls by `count`.
    void shiftBackward(size_t index, size_t count)
    {
        this->erase(this->begin() + (index - count), this->begin() + index);
    }

private:
    friend class MrvString;

    /// The block that all texts without characters share.
    static PODArray sharingTerminator() noexcept { return PODArray(internal::sharedTerminator, 1); }

    /// The characters of a text, at least one, and their terminator.
    static PODArray ofText(const T* text, size_t count)
    {
        return PODArray(internal::makeTextBlock(text, count), internal::saturatedSum(count, 1));
    }
};

} // namespace mrv
