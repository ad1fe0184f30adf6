// tests/system/thread/mrvLockTest.cpp
#include "mrvCore/system/thread/mrvMutex.h"
#include "mrvCore/system/thread/mrvRWSpinLock.h"
#include "mrvCore/system/thread/mrvScopedLock.h"
#include "mrvCore/system/thread/mrvSpinLock.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace mrv {
namespace {

constexpr int threadCount = 4;
constexpr int roundCount = 3000;

template <class Function>
void runThreads(Function function)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back(function, i);
    for (std::thread& thread : threads)
        thread.join();
}

/// The writer's side of a reader-writer lock behind the names of the other locks.
struct WriterLock
{
    void lock() { rwSpinLock.lockWriter(); }
    bool trylock() { return rwSpinLock.trylockWriter(); }
    void unlock() { rwSpinLock.unlockWriter(); }

    RWSpinLock rwSpinLock;
};

template <class Lock>
class Locks : public testing::Test
{};

using LockTypes = testing::Types<SpinLock, Mutex, WriterLock>;
TYPED_TEST_SUITE(Locks, LockTypes);

TYPED_TEST(Locks, letOneThreadInAtATime)
{
    TypeParam lock;
    int sum = 0; // what is not guarded is lost, and seen by the thread sanitizer
    runThreads([&](int thread) {
        for (int i = 0; i < roundCount; ++i)
        {
            if (thread == 0)
                while (!lock.trylock())
                    yieldCurrentThread();
            else
                lock.lock();
            ++sum;
            lock.unlock();
        }
    });
    EXPECT_EQ(sum, threadCount * roundCount);
}

TYPED_TEST(Locks, areFreeAfterEveryWayOutOfAScope)
{
    TypeParam lock;
    try
    {
        const ScopedLock<TypeParam> scope(lock);
        // A second thread asks: a mutex must not be tried by its own holder.
        std::thread([&] { EXPECT_FALSE(lock.trylock()); }).join();
        throw std::runtime_error("out");
    }
    catch (const std::runtime_error&)
    {}
    EXPECT_TRUE(lock.trylock());
    lock.unlock();
}

TEST(SpinLockState, isFreeOnceCreatedAndStaysWithItsHolder)
{
    spinlockdef_t spinlock;
    atomicStoreRelaxed(spinlock._isLocked, 77);
    EXPECT_TRUE(createSpinLock(spinlock));
    EXPECT_TRUE(trylock(spinlock));
    EXPECT_FALSE(trylock(spinlock));
    EXPECT_EQ(atomicLoadRelaxed(spinlock._isLocked), 1);
    unlock(spinlock);
    EXPECT_EQ(atomicLoadRelaxed(spinlock._isLocked), 0);
    destroySpinLock(spinlock);
    EXPECT_TRUE(trylock(spinlock));
}

// Bit 0: a writer is in. Bit 1: a writer waits. 4 for each reader.
struct StateCase
{
    const char* name;
    int before;
    int afterReader; ///< trylockReader succeeds where the state changes
    int afterWriter; ///< so does trylockWriter
    int afterUnlockWriter;
};

const StateCase stateCases[] = {
    { "free", 0, 4, 1, 0 },
    { "oneReader", 4, 8, 4, 4 },
    { "writer", 1, 1, 1, 0 },
    { "waitingWriter", 2, 2, 1, 0 },
    { "writerAndAnotherWaiting", 3, 3, 3, 0 },
    { "readersAndWaitingWriter", 10, 10, 10, 8 },
    { "writerWhileReadersLookIn", 13, 13, 13, 12 },
};

class RWSpinLockState : public testing::TestWithParam<StateCase>
{};

TEST_P(RWSpinLockState, followsTheRulesOfAdmission)
{
    const StateCase& row = GetParam();
    const auto after = [&](auto operation) {
        rwspinlockdef_t rwspinlock;
        createReaderWriterSpinLock(rwspinlock);
        EXPECT_EQ(atomicLoadRelaxed(rwspinlock._lockedState), 0);
        atomicStoreRelaxed(rwspinlock._lockedState, row.before);
        operation(rwspinlock);
        return atomicLoadRelaxed(rwspinlock._lockedState);
    };
    EXPECT_EQ(after([&](auto& lock) { EXPECT_EQ(trylockReader(lock), row.afterReader != row.before); }),
              row.afterReader);
    EXPECT_EQ(after([&](auto& lock) { EXPECT_EQ(trylockWriter(lock), row.afterWriter != row.before); }),
              row.afterWriter);
    EXPECT_EQ(after([](auto& lock) { unlockWriter(lock); }), row.afterUnlockWriter);
    if (row.before >= 4)
    {
        EXPECT_EQ(after([](auto& lock) { unlockReader(lock); }), row.before - 4);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, RWSpinLockState, testing::ValuesIn(stateCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RWSpinLocks, aWaitingWriterKeepsNewReadersOutAndGetsIn)
{
    rwspinlockdef_t rwspinlock;
    createReaderWriterSpinLock(rwspinlock);
    lockReader(rwspinlock);
    lockReader(rwspinlock);
    std::thread writer([&] { lockWriter(rwspinlock); });
    while (atomicLoadRelaxed(rwspinlock._lockedState) == 8)
        yieldCurrentThread();

    EXPECT_EQ(atomicLoadRelaxed(rwspinlock._lockedState), 8 + 2);
    EXPECT_FALSE(trylockReader(rwspinlock));
    unlockReader(rwspinlock);
    EXPECT_FALSE(trylockWriter(rwspinlock)) << "a reader is left";
    unlockReader(rwspinlock);
    writer.join();
    EXPECT_EQ(atomicLoadRelaxed(rwspinlock._lockedState), 1) << "the mark is gone with the wait";
}

TEST(RWSpinLocks, readersNeverSeeHalfAChange)
{
    RWSpinLock lock;
    int first = 0;
    int second = 0;
    runThreads([&](int thread) {
        for (int i = 0; i < roundCount; ++i)
        {
            if (thread % 2 == 0)
            {
                lock.lockWriter();
                ++first;
                if (i % 100 == 0)
                    yieldCurrentThread();
                ++second;
                lock.unlockWriter();
            }
            else
            {
                lock.lockReader();
                EXPECT_EQ(first, second);
                lock.unlockReader();
            }
        }
    });
    EXPECT_EQ(first, threadCount / 2 * roundCount);
    EXPECT_TRUE(lock.trylockWriter()) << "nobody is counted any more";
}

} // namespace
} // namespace mrv
