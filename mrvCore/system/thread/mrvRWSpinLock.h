// mrvCore/system/thread/mrvRWSpinLock.h
// Lock of four bytes for many readers or one writer.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/thread/mrvAtomic.h"

namespace mrv {

/// The state of a reader-writer lock: bit 0 a writer holds it, bit 1 a writer waits, above them the number
/// of readers.
struct rwspinlockdef_t
{
    atomic32_t _lockedState;
};

/// Makes the lock free. Always true.
MRV_CORE_API bool createReaderWriterSpinLock(rwspinlockdef_t& rwspinlock);

/// Does nothing: the lock owns nothing.
MRV_CORE_API void destroyReaderWriterSpinLock(rwspinlockdef_t& rwspinlock);

/// Joins the readers, yielding to other threads while a writer holds the lock or waits for it.
MRV_CORE_API void lockReader(rwspinlockdef_t& rwspinlock);

/// Joins the readers unless a writer holds the lock or waits for it.
MRV_CORE_API bool trylockReader(rwspinlockdef_t& rwspinlock);

/// Fatal if no reader holds the lock.
MRV_CORE_API void unlockReader(rwspinlockdef_t& rwspinlock);

/// Takes the lock alone. While readers are in it marks itself as waiting, which keeps new readers out.
MRV_CORE_API void lockWriter(rwspinlockdef_t& rwspinlock);

/// Takes the lock alone if nobody holds it; leaves no mark if it fails.
MRV_CORE_API bool trylockWriter(rwspinlockdef_t& rwspinlock);

/// Clears the mark of a waiting writer too; that writer sets it again at its next look.
MRV_CORE_API void unlockWriter(rwspinlockdef_t& rwspinlock);

/// The same as an object, free from the start; it needs no destruction. Any thread. Not re-entrant, and a
/// reader that asks to be the writer waits for itself for ever.
class RWSpinLock
{
public:
    RWSpinLock() { createReaderWriterSpinLock(_rwspinlock); }

    /// @{
    /// As the functions of these names.
    void lockReader() { mrv::lockReader(_rwspinlock); }
    bool trylockReader() { return mrv::trylockReader(_rwspinlock); }
    void unlockReader() { mrv::unlockReader(_rwspinlock); }
    void lockWriter() { mrv::lockWriter(_rwspinlock); }
    bool trylockWriter() { return mrv::trylockWriter(_rwspinlock); }
    void unlockWriter() { mrv::unlockWriter(_rwspinlock); }
    /// @}

private:
    rwspinlockdef_t _rwspinlock;
};

static_assert(sizeof(RWSpinLock) == 4, "a lock sits in every element of large tables");

} // namespace mrv
