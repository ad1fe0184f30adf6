// mrvCore/system/thread/mrvRWSpinLock.cpp
// Lock of four bytes for many readers or one writer.
#include "mrvCore/system/thread/mrvRWSpinLock.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/thread/mrvThread.h"

namespace mrv {

namespace {

constexpr int writerBit = 1;
constexpr int waitingBit = 2;
constexpr int writerBits = writerBit | waitingBit;
constexpr int oneReader = 4;

bool hasWriterLock(int state)
{
    return (state & writerBit) != 0;
}
bool hasReaderLock(int state)
{
    return state >= oneReader;
}
bool isClosedToReaders(int state)
{
    return (state & writerBits) != 0;
}
bool isClosedToWriters(int state)
{
    return (state & ~waitingBit) != 0;
}

} // namespace

bool createReaderWriterSpinLock(rwspinlockdef_t& rwspinlock)
{
    atomicStoreRelease(rwspinlock._lockedState, 0);
    atomicThreadFenceRelease();
    return true;
}

void destroyReaderWriterSpinLock(rwspinlockdef_t&) {}

void lockReader(rwspinlockdef_t& rwspinlock)
{
    while (!trylockReader(rwspinlock))
        yieldCurrentThread();
    MRV_ASSERT(hasWriterLock(mrv::atomicLoadRelaxed(rwspinlock._lockedState)) == false);
}

bool trylockReader(rwspinlockdef_t& rwspinlock)
{
    if (isClosedToReaders(atomicLoadRelaxed(rwspinlock._lockedState)))
        return false;
    const int previous = atomicFetchAddAcquire(rwspinlock._lockedState, oneReader);
    MRV_ASSERT(hasReaderLock(mrv::atomicLoadRelaxed(rwspinlock._lockedState)));
    if (isClosedToReaders(previous)) // a writer came between the two looks
    {
        atomicFetchAddRelease(rwspinlock._lockedState, -oneReader);
        return false;
    }
    return true;
}

void unlockReader(rwspinlockdef_t& rwspinlock)
{
    MRV_ASSERT(hasReaderLock(mrv::atomicLoadRelaxed(rwspinlock._lockedState)));
    atomicFetchAddRelease(rwspinlock._lockedState, -oneReader);
    atomicThreadFenceRelease();
}

void lockWriter(rwspinlockdef_t& rwspinlock)
{
    for (;;)
    {
        atomicThreadFenceAcquire();
        const int state = atomicLoadRelaxed(rwspinlock._lockedState);
        if (isClosedToWriters(state))
        {
            if ((state & waitingBit) == 0)
                atomicFetchOrRelaxed(rwspinlock._lockedState, waitingBit);
        }
        else if (atomicCompareExchangeAcquireBool(rwspinlock._lockedState, state, writerBit))
        {
            return;
        }
        yieldCurrentThread();
    }
}

bool trylockWriter(rwspinlockdef_t& rwspinlock)
{
    const int state = atomicLoadRelaxed(rwspinlock._lockedState);
    if (isClosedToWriters(state))
        return false;
    return atomicCompareExchangeAcquireBool(rwspinlock._lockedState, state, writerBit);
}

void unlockWriter(rwspinlockdef_t& rwspinlock)
{
    // Readers that looked in while the lock was held are still counted: they take themselves out.
    atomicFetchAndRelease(rwspinlock._lockedState, ~writerBits);
}

} // namespace mrv
