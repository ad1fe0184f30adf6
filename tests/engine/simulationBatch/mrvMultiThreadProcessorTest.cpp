// tests/engine/simulationBatch/mrvMultiThreadProcessorTest.cpp
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"

#include "mrvCore/engine/simulationBatch/mrvWorkerThread.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <csignal>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace mrv {
namespace {

using Range = std::pair<int64_t, int64_t>;
using Function = std::function<void(ProcessingBatch&)>;

void callFunction(ProcessingBatch& batch)
{
    (*static_cast<Function*>(batch._userData))(batch);
}

void process(MultiThreadProcessor& pool, int64_t lastIndex, int64_t batchSize, Function function)
{
    pool.processThreadable(callFunction, &function, lastIndex, batchSize, 0.25);
}

/// The batches of a request, in ascending order.
std::vector<Range> batchesOf(MultiThreadProcessor& pool, int64_t lastIndex, int64_t batchSize)
{
    std::mutex mutex;
    std::vector<Range> ranges;
    process(pool, lastIndex, batchSize, [&](ProcessingBatch& batch) {
        const std::lock_guard<std::mutex> lock(mutex);
        EXPECT_EQ(batch._dt, 0.25);
        EXPECT_EQ(batch._typeIndex, -1);
        EXPECT_FALSE(batch._blocking);
        ranges.emplace_back(batch._firstIndex, batch._lastIndex);
    });
    std::sort(ranges.begin(), ranges.end());
    return ranges;
}

void waitFor(const std::atomic<int>& counter, int value)
{
    while (counter < value)
        yieldCurrentThread();
}

/// The text of what the library logs.
class LogRecord
{
public:
    LogRecord()
    {
        allocateLog();
        _logger = std::make_unique<CallbackLogger>();
        _logger->registerCallback(
            [](const char* text, void* all) { *static_cast<std::string*>(all) += text; }, &_text);
    }
    ~LogRecord()
    {
        _logger.reset();
        deallocateLog();
    }
    std::string take() { return std::exchange(_text, std::string()); }

private:
    std::unique_ptr<CallbackLogger> _logger;
    std::string _text;
};

constexpr int64_t greatest = std::numeric_limits<int64_t>::max();

struct BatchCase
{
    const char* name;
    int64_t lastIndex;
    int64_t batchSize;
    std::vector<Range> batches;
};

const BatchCase batchCases[] = {
    { "lastOneShorter", 9, 4, { { 0, 3 }, { 4, 7 }, { 8, 9 } } },
    { "noEmptyLastOne", 7, 4, { { 0, 3 }, { 4, 7 } } },
    { "oneForAll", 0, 10, { { 0, 0 } } },
    { "onePerIndex", 3, 1, { { 0, 0 }, { 1, 1 }, { 2, 2 }, { 3, 3 } } },
    { "noIndex", -1, 4, {} },
    { "noIndexOfNoSize", -1, 0, {} },
    { "farBelowZero", -greatest, 1, {} },
    { "sizeBeyondAllIndices", 10, greatest, { { 0, 10 } } },
    { "greatestIndex", greatest, greatest, { { 0, greatest - 1 }, { greatest, greatest } } },
};

class Batches : public testing::TestWithParam<BatchCase>
{};

TEST_P(Batches, coverTheRangeForAnyNumberOfThreads)
{
    MultiThreadProcessor pool("test");
    for (int threadCount : { 1, 2, pool.getLogicalCPUsCount() })
    {
        pool.updateThreadCount(threadCount);
        EXPECT_EQ(batchesOf(pool, GetParam().lastIndex, GetParam().batchSize), GetParam().batches);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Batches, testing::ValuesIn(batchCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct CountCase
{
    const char* name;
    void (*change)(MultiThreadProcessor& pool, int threadCount);
    int threadCount; ///< above 100: that much less above the processors
    int expected;    ///< 0 for all processors
    bool isLogged;
};

const auto update = [](MultiThreadProcessor& pool, int count) { pool.updateThreadCount(count); };
const auto start = [](MultiThreadProcessor& pool, int count) { pool.init(count); };
const auto setUp = [](MultiThreadProcessor& pool, int count) { pool.setupWorkerThreads(count, 0x100000); };

const CountCase countCases[] = {
    { "updateToOneTooMany", update, 101, 0, true },
    { "updateToAll", update, 100, 0, false },

    { "updateBelowZeroIsOne", update, -5, 1, false },
    { "initWithNoneIsOne", start, 0, 1, false },
    { "setUpOneTooMany", setUp, 101, 0, true },

    { "setUpOfNone", setUp, 0, 1, true },
    { "setUpFarBelow", setUp, INT_MIN, 1, true },
};

class ThreadCounts : public testing::TestWithParam<CountCase>
{};

TEST_P(ThreadCounts, areBoundedAndKeepThePoolWorking)
{
    const CountCase& row = GetParam();
    LogRecord log;
    MultiThreadProcessor pool("test");
    EXPECT_EQ(pool.getThreadCount(), 1);
    const int processors = pool.getLogicalCPUsCount();
    const int wanted = row.threadCount < 100 ? row.threadCount : row.threadCount - 100 + processors;
    for (int before : { 1, 2 }) // from no worker, and from one where there are processors
    {
        pool.updateThreadCount(std::min(before, processors));
        row.change(pool, wanted);
        EXPECT_EQ(pool.getThreadCount(), row.expected == 0 ? processors : row.expected);
        EXPECT_EQ(log.take(), !row.isLogged
                                  ? std::string()
                                  : "Maravo [ERROR] - Cannot set Maravo Engine worker threads number "
                                    "below 1 or above logical CPUs of the computer, bounding value " +
                                        std::to_string(wanted) + " to [1," + std::to_string(processors) +
                                        "]. Note : ThreadCount includes main thread.\n");
        EXPECT_EQ(batchesOf(pool, 9, 4).size(), 3u);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ThreadCounts, testing::ValuesIn(countCases),
                         [](const auto& row) { return std::string(row.param.name); });

size_t countThreadsOfProcess()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<size_t>(std::distance(begin(tasks), end(tasks)));
}

TEST(MultiThreadProcessors, aHundredStartsAndStopsLeaveNoThread)
{
    MultiThreadProcessor("first").init(2); // a sanitizer starts its own thread with the first one
    const size_t before = countThreadsOfProcess();
    for (int i = 0; i < 100; ++i)
    {
        MultiThreadProcessor pool("test");
        EXPECT_STREQ(pool.getThreadsName().c_str(), "test");
        pool.init(getSupportedConcurrentThreadCount());
        for (int round = 0; round < i % 2; ++round) // every other one never works
            EXPECT_EQ(batchesOf(pool, 3, 1).size(), 4u);
        if (i % 3 != 0)
            pool.finish(); // else the destructor does it
        EXPECT_EQ(pool.getThreadCount(), i % 3 != 0 ? 1 : pool.getLogicalCPUsCount());
    }
    for (int look = 0; look < 1000 && countThreadsOfProcess() > before; ++look)
        sleepCurrentThread(1); // the system lists a joined thread a little longer
    EXPECT_LE(countThreadsOfProcess(), before);
}

/// Rounds over a few indices in batches of a few: each index is treated once.
void runShortRounds(MultiThreadProcessor& pool, int count, uint32_t seed)
{
    std::mt19937 random(seed);
    std::vector<int> visits; // without a lock: an index belongs to one batch
    for (int round = 0; round < count; ++round)
    {
        visits.assign(random() % 40, 0);
        process(pool, int64_t(visits.size()) - 1, 1 + random() % 9, [&](ProcessingBatch& batch) {
            for (int64_t i = batch._firstIndex; i <= batch._lastIndex; ++i)
                ++visits[size_t(i)];
        });
        ASSERT_EQ(std::count(visits.begin(), visits.end(), 1), std::ptrdiff_t(visits.size()));
    }
}

TEST(MultiThreadProcessors, tenThousandShortRoundsBesideOthersTreatEachIndexOnce)
{
    MultiThreadProcessor pool("test");
    pool.updateThreadCount(pool.getLogicalCPUsCount());
    std::thread other(runShortRounds, std::ref(pool), 1000, 2);
    runShortRounds(pool, 10000, 1);
    other.join();
}

/// A pool of two threads, for tests of what happens at the same time.
class TwoThreads : public testing::Test
{
protected:
    void SetUp() override
    {
        if (_pool.getLogicalCPUsCount() < 2)
            GTEST_SKIP() << "there is one processor only";
        _pool.updateThreadCount(2);
    }
    MultiThreadProcessor _pool{ "test" };
};

TEST_F(TwoThreads, theCallerWorksBesideTheWorker)
{
    std::atomic<int> arrived(0);
    std::atomic<int> byCaller(0);
    const pthread_t caller = pthread_self();
    process(_pool, 1, 1, [&](ProcessingBatch&) {
        byCaller += pthread_equal(pthread_self(), caller) != 0 ? 1 : 0;
        ++arrived;
        waitFor(arrived, 2); // one thread alone would wait for ever
    });
    EXPECT_EQ(byCaller, 1);
}

TEST_F(TwoThreads, aSlowBatchHoldsUpNoOther)
{
    constexpr int count = 1000;
    for (const int64_t slow : { 0, 1, 250, 500, 999 })
    {
        std::atomic<int> done(0);
        process(_pool, count - 1, 1, [&](ProcessingBatch& batch) {
            if (batch._firstIndex == slow)
                waitFor(done, count - 1);
            ++done;
        });
        EXPECT_EQ(done, count);
    }
}

TEST_F(TwoThreads, aThreadThatThePoolDoesNotCountMayHelp)
{
    std::vector<std::atomic<int>> treated(100);
    std::atomic<int> arrived(0);
    process(_pool, 99, 1, [&](ProcessingBatch& batch) {
        if (arrived++ < 2) // on either thread of the pool: the rest is for the helper
            std::thread([this] { _pool.consumeBatchQueueTask(); }).join();
        ++treated[static_cast<size_t>(batch._firstIndex)];
    });
    EXPECT_EQ(std::count(treated.begin(), treated.end(), 1), 100);
}

TEST_F(TwoThreads, shortBatchesBesideLongOnesTreatEachIndexOnce)
{
    constexpr int64_t count = 300007;
    for (const int64_t batchSize : { 1, 3, 1000 })
    {
        std::vector<std::atomic<int>> treated(count);
        process(_pool, count - 1, batchSize, [&](ProcessingBatch& batch) {
            for (int64_t i = batch._firstIndex; i <= batch._lastIndex; ++i)
                ++treated[static_cast<size_t>(i)];
            if (batch._firstIndex % 50000 < batchSize)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        });
        EXPECT_EQ(std::count(treated.begin(), treated.end(), 1), count) << "batches of " << batchSize;
    }
}

TEST_F(TwoThreads, whoComesWhileThePoolIsBusyRunsAlone)
{
    LogRecord log;
    _pool.init(2); // counts its repeats anew
    const std::string message = "Maravo [INFO] - MultiThreadProcessor is already in use, this parts of the "
                                "processus will be executed monothreaded instead of multithreaded.\n";
    const auto checkAlone = [&](int64_t lastIndex) {
        std::vector<Range> ranges;
        const pthread_t caller = pthread_self();
        process(_pool, lastIndex, 1, [&](ProcessingBatch& batch) {
            EXPECT_NE(pthread_equal(pthread_self(), caller), 0);
            EXPECT_FALSE(batch._blocking);
            EXPECT_EQ(batch._dt, 0.25);
            ranges.emplace_back(batch._firstIndex, batch._lastIndex);
        });
        EXPECT_EQ(ranges, std::vector<Range>({ { 0, lastIndex } }));
    };
    process(_pool, 0, 1, [&](ProcessingBatch&) {
        checkAlone(7); // from inside
        EXPECT_EQ(log.take(), message);
        std::thread(checkAlone, 9).join();
        std::thread(checkAlone, -1).join(); // called once, for nothing
        EXPECT_EQ(log.take(), message + message);
        for (int i = 0; i < 10; ++i)
            checkAlone(3);
        const std::string text = log.take();
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3) << "two more, and that it goes on counting";
    });
    _pool.init(2);
    process(_pool, 0, 1, [&](ProcessingBatch&) { checkAlone(0); });
    EXPECT_EQ(log.take(), message) << "a start forgets the repeats";
}

TEST_F(TwoThreads, theStepsOfARoundCanBeTakenOneByOne)
{
    for (int round = 0; round < 3; ++round)
    {
        _pool.waitForThreadedUpdateReady();
        _pool.launchThreadedUpdate();
        _pool.consumeBatchQueueTask(); // there is nothing to consume
        _pool.waitForThreadedUpdateEnd();
        EXPECT_EQ(_pool.getThreadDoneCount(), 1) << "a worker counts itself in each round";
    }
}

TEST_F(TwoThreads, aRefusedWorkerIsLoggedAndThePoolGoesOn)
{
    LogRecord log;
    pthread_attr_t usual;
    ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
    pthread_attr_t endless = usual;
    ASSERT_EQ(pthread_attr_setstacksize(&endless, size_t(1) << 60), 0);
    ASSERT_EQ(pthread_setattr_default_np(&endless), 0);
    _pool.setupWorkerThreads(2, 0x100000);
    EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
    pthread_attr_destroy(&usual);

    const std::string text = log.take();
    EXPECT_EQ(text.find("Maravo [ERROR] - pthread_create return code: "), 0u);
    EXPECT_EQ(text.substr(text.find('\n') + 1),
              "Maravo [ERROR] - Could not create new thread. See last error message.\n");
    EXPECT_EQ(_pool.getThreadCount(), 1);
    EXPECT_EQ(batchesOf(_pool, 9, 4).size(), 3u);
    _pool.updateThreadCount(2);
    EXPECT_EQ(_pool.getThreadCount(), 2);
    EXPECT_EQ(batchesOf(_pool, 9, 4).size(), 3u);
}

TEST(MultiThreadProcessorsDeathTest, misuseIsFatal)
{
    const auto trapped = testing::KilledBySignal(SIGTRAP);
    MultiThreadProcessor pool("test");
    EXPECT_EXIT(pool.processThreadable(callFunction, nullptr, 0, 0, 0), trapped, "at least one index, not 0");
    EXPECT_EXIT(WorkerThread::startRoutine(nullptr), trapped, "multiThreadProcessor != NULL");
}

} // namespace
} // namespace mrv
