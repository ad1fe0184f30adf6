// mrvCore/system/thread/mrvSpinLock.h
// Lock of four bytes for very short sections.
#pragma once

#include "mrvCore/system/thread/mrvAtomic.h"
#include "mrvCore/system/thread/mrvThread.h"

namespace mrv {

/// The state of a spin lock: 0 is free, 1 is held.
struct spinlockdef_t
{
    atomic32_t _isLocked;
};

/// Makes the lock free. Always true.
inline bool createSpinLock(spinlockdef_t& spinlock)
{
    atomicStoreRelease(spinlock._isLocked, 0);
    atomicThreadFenceRelease();
    return true;
}

/// Does nothing: a spin lock owns nothing.
inline void destroySpinLock(spinlockdef_t&) {}

/// Takes the lock if it is free; never waits.
inline bool trylock(spinlockdef_t& spinlock)
{
    return atomicCompareExchangeAcquireBool(spinlock._isLocked, 0, 1);
}

/// Takes the lock, yielding to other threads while it is held. Not re-entrant.
inline void lock(spinlockdef_t& spinlock)
{
    while (!trylock(spinlock))
        yieldCurrentThread();
}

/// Makes the lock free, whichever thread took it.
inline void unlock(spinlockdef_t& spinlock)
{
    atomicStoreRelease(spinlock._isLocked, 0);
    atomicThreadFenceRelease();
}

/// The same as an object, free from the start; it needs no destruction. Any thread; not re-entrant.
class SpinLock
{
public:
    SpinLock() { createSpinLock(_spinlock); }

    /// @{
    /// As the functions of these names.
    void lock() { mrv::lock(_spinlock); }
    bool trylock() { return mrv::trylock(_spinlock); }
    void unlock() { mrv::unlock(_spinlock); }
    /// @}

private:
    spinlockdef_t _spinlock;
};

static_assert(sizeof(SpinLock) == 4, "a spin lock sits in every element of large tables");

} // namespace mrv
