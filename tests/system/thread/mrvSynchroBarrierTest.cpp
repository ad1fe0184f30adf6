// tests/system/thread/mrvSynchroBarrierTest.cpp
#include "mrvCore/system/thread/mrvSynchroBarrier.h"

#include "mrvCore/system/thread/mrvThread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace mrv {
namespace {

void waitUntilWaiting(SynchroBarrier& barrier, unsigned int count)
{
    while (barrier.getCurrentThreadsWaiting() != count)
        yieldCurrentThread();
}

class SynchroBarrierRounds : public testing::TestWithParam<int>
{};

TEST_P(SynchroBarrierRounds, noThreadIsARoundAheadOrBehind)
{
    const int threadCount = GetParam();
    constexpr int roundCount = 500;
    SynchroBarrier barrier;
    barrier.setThreadCount(unsigned(threadCount));
    std::vector<int> rounds(size_t(threadCount), 0); // each written by one thread, read by all in between
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&, i] {
            for (int round = 1; round <= roundCount; ++round)
            {
                rounds[size_t(i)] = round;
                EXPECT_TRUE(barrier.wait());
                for (int other : rounds)
                    EXPECT_EQ(other, round);
                EXPECT_TRUE(barrier.wait());
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(barrier.getCurrentThreadsWaiting(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Threads, SynchroBarrierRounds, testing::Values(1, 2, 3, 5));

TEST(SynchroBarriers, withoutACountOnlyALaunchReleases)
{
    constexpr int workerCount = 3;
    constexpr int roundCount = 200;
    SynchroBarrier barrier;
    std::atomic<int> released(0);
    std::vector<std::thread> workers;
    for (int i = 0; i < workerCount; ++i)
        workers.emplace_back([&] {
            for (int round = 0; round < roundCount; ++round)
            {
                EXPECT_TRUE(barrier.wait());
                ++released;
            }
        });
    for (int round = 0; round < roundCount; ++round)
    {
        waitUntilWaiting(barrier, workerCount);
        EXPECT_EQ(released, round * workerCount) << "all of them wait, so all were released once a round";
        EXPECT_TRUE(barrier.launch());
    }
    for (std::thread& worker : workers)
        worker.join();
    EXPECT_EQ(released, roundCount * workerCount);
    EXPECT_TRUE(barrier.launch()) << "with nobody there";
}

TEST(SynchroBarriers, nobodyArrivesWhileTheBarrierIsHeld)
{
    SynchroBarrier barrier;
    ASSERT_TRUE(barrier.lock());
    std::atomic<bool> isAsking(false);
    std::atomic<bool> hasAnswer(false);
    std::thread asking([&] {
        isAsking = true;
        EXPECT_EQ(barrier.getCurrentThreadsWaiting(), 0u);
        hasAnswer = true;
    });
    while (!isAsking)
        yieldCurrentThread();
    sleepCurrentThread(5);
    EXPECT_FALSE(hasAnswer);
    ASSERT_TRUE(barrier.unlock());
    asking.join();
}

} // namespace
} // namespace mrv
