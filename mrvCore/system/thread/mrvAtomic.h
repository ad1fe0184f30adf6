// mrvCore/system/thread/mrvAtomic.h
// Atomic integers whose every operation names its memory order, and fences.
#pragma once

#include <atomic>

namespace mrv {

/// Atomic integer without an order of its own.
///
/// A new one holds no value: its owner stores the first. Copies are plain loads and stores that order
/// nothing, so that tables of elements with a lock or a counter inside can be filled and grown by one thread.
template <class T>
struct AtomicInteger
{
    using value_type = T;

    AtomicInteger() = default;
    AtomicInteger(const AtomicInteger& other) noexcept
        : _atomic(other._atomic.load(std::memory_order_relaxed))
    {}
    AtomicInteger& operator=(const AtomicInteger& other) noexcept
    {
        _atomic.store(other._atomic.load(std::memory_order_relaxed), std::memory_order_relaxed);
        return *this;
    }

    std::atomic<T> _atomic;
};

using atomic32_t = AtomicInteger<int>;
using atomic64_t = AtomicInteger<long>;

namespace internal {

/// The operand of an atomic: converted to its type, and no part of what chooses it.
template <class T>
using AtomicOperand = typename AtomicInteger<T>::value_type;

/// Puts `desired` in place of `expected`; `expected` becomes the value found.
template <class T>
bool compareExchange(AtomicInteger<T>& value, T& expected, T desired, std::memory_order order)
{
    return value._atomic.compare_exchange_strong(expected, desired, order, std::memory_order_relaxed);
}

} // namespace internal

/// @{
/// Operations on an atomic integer, with the memory order that their name ends in. Those that change a value
/// return the one before.
template <class T>
T atomicLoadRelaxed(const AtomicInteger<T>& value)
{
    return value._atomic.load(std::memory_order_relaxed);
}

template <class T>
T atomicLoadAcquire(const AtomicInteger<T>& value)
{
    return value._atomic.load(std::memory_order_acquire);
}

template <class T>
void atomicStoreRelaxed(AtomicInteger<T>& value, internal::AtomicOperand<T> desired)
{
    value._atomic.store(desired, std::memory_order_relaxed);
}

template <class T>
void atomicStoreRelease(AtomicInteger<T>& value, internal::AtomicOperand<T> desired)
{
    value._atomic.store(desired, std::memory_order_release);
}

template <class T>
T atomicFetchAddRelaxed(AtomicInteger<T>& value, internal::AtomicOperand<T> term)
{
    return value._atomic.fetch_add(term, std::memory_order_relaxed);
}

template <class T>
T atomicFetchAddAcquire(AtomicInteger<T>& value, internal::AtomicOperand<T> term)
{
    return value._atomic.fetch_add(term, std::memory_order_acquire);
}

template <class T>
T atomicFetchAddRelease(AtomicInteger<T>& value, internal::AtomicOperand<T> term)
{
    return value._atomic.fetch_add(term, std::memory_order_release);
}

template <class T>
T atomicFetchAddSequentiallyConsistent(AtomicInteger<T>& value, internal::AtomicOperand<T> term)
{
    return value._atomic.fetch_add(term, std::memory_order_seq_cst);
}

template <class T>
T atomicFetchAndRelaxed(AtomicInteger<T>& value, internal::AtomicOperand<T> mask)
{
    return value._atomic.fetch_and(mask, std::memory_order_relaxed);
}

template <class T>
T atomicFetchAndRelease(AtomicInteger<T>& value, internal::AtomicOperand<T> mask)
{
    return value._atomic.fetch_and(mask, std::memory_order_release);
}

template <class T>
T atomicFetchOrRelaxed(AtomicInteger<T>& value, internal::AtomicOperand<T> mask)
{
    return value._atomic.fetch_or(mask, std::memory_order_relaxed);
}
/// @}

/// Puts `desired` in place of `expected`; returns the value found, which is `expected` on success.
template <class T>
T atomicCompareExchangeRelaxed(AtomicInteger<T>& value, internal::AtomicOperand<T> expected,
                               internal::AtomicOperand<T> desired)
{
    internal::compareExchange(value, expected, desired, std::memory_order_relaxed);
    return expected;
}

/// The same, returning whether the exchange took place.
template <class T>
bool atomicCompareExchangeRelaxedBool(AtomicInteger<T>& value, internal::AtomicOperand<T> expected,
                                      internal::AtomicOperand<T> desired)
{
    return internal::compareExchange(value, expected, desired, std::memory_order_relaxed);
}

/// The same for taking a lock.
template <class T>
bool atomicCompareExchangeAcquireBool(AtomicInteger<T>& value, internal::AtomicOperand<T> expected,
                                      internal::AtomicOperand<T> desired)
{
    return internal::compareExchange(value, expected, desired, std::memory_order_acquire);
}

/// @{
/// For a flag that is a plain bool elsewhere.
inline bool atomicLoadAcquireBool(const bool& flag)
{
    return __atomic_load_n(&flag, __ATOMIC_ACQUIRE);
}

inline void atomicStoreReleaseBool(bool& flag, bool desired)
{
    __atomic_store_n(&flag, desired, __ATOMIC_RELEASE);
}
/// @}

/// @{
/// Signal fences hold the compiler only; there is no instruction.
inline void atomicSignalFenceAcquire()
{
    std::atomic_signal_fence(std::memory_order_acquire);
}
inline void atomicSignalFenceRelease()
{
    std::atomic_signal_fence(std::memory_order_release);
}
inline void atomicSignalFenceSequentiallyConsistent()
{
    std::atomic_signal_fence(std::memory_order_seq_cst);
}
/// @}

#if defined(__GNUC__) && !defined(__clang__)
// The thread sanitizer sees no fences; what it must see stands on the operations themselves.
#    pragma GCC diagnostic push
#    pragma GCC diagnostic ignored "-Wpragmas"
#    pragma GCC diagnostic ignored "-Wtsan"
#endif
/// @{
/// Thread fences order the operations around them.
inline void atomicThreadFenceAcquire()
{
    std::atomic_thread_fence(std::memory_order_acquire);
}
inline void atomicThreadFenceRelease()
{
    std::atomic_thread_fence(std::memory_order_release);
}
inline void atomicThreadFenceSequentiallyConsistent()
{
    std::atomic_thread_fence(std::memory_order_seq_cst);
}
/// @}
#if defined(__GNUC__) && !defined(__clang__)
#    pragma GCC diagnostic pop
#endif

} // namespace mrv
