// tests/system/debug/mrvFatalEndTest.cpp
#include "mrvCore/system/debug/mrvAssert.h"

#include "mrvCore/system/debug/mrvDebugging.h"
#include "mrvCore/system/log/mrvConsoleLogger.h"
#include "mrvCore/system/thread/mrvRWSpinLock.h"
#include "mrvCore/system/thread/mrvSynchroBarrier.h"
#include "mrvCore/system/thread/mrvThread.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace mrv {
namespace {

#define MRV_TEST_ZERO 0

void failCondition()
{
    const int value = 3;
    MRV_ASSERT(value == MRV_TEST_ZERO || value > 3);
}

void failConditionWithMessage()
{
    const bool isGood = false;
    MRV_ASSERT(isGood, "100%% of %d %s", 7, "bones");
}

void reachTheUnreachable()
{
    MRV_UNREACHABLE();
}

void reachTheUnreachableWithMessage()
{
    MRV_UNREACHABLE("type %s", "Cloth");
}

void failWithLog()
{
    allocateLog();
    const ConsoleLogger logger;
    MRV_ASSERT(1 + 1 == 3, "sum");
}

void doNothing(void*) {}

void createThreadTwice()
{
    threaddef_t threadDef;
    int arg = 0;
    createThread(threadDef, doNothing, &arg, 0x100000);
    createThread(threadDef, doNothing, &arg, 0x100000);
}

void unlockReaderOfNone()
{
    RWSpinLock lock;
    lock.lockWriter();
    lock.unlockReader();
}

void waitOn(void* barrier)
{
    static_cast<SynchroBarrier*>(barrier)->wait();
}

void setThreadCountWhileOneWaits()
{
    SynchroBarrier barrier;
    threaddef_t threadDef;
    createThread(threadDef, waitOn, &barrier, 0x100000);
    while (barrier.getCurrentThreadsWaiting() == 0)
        yieldCurrentThread();
    barrier.setThreadCount(2);
}

void makeLoggerWithoutLog()
{
    const ConsoleLogger logger;
}

struct FatalCase
{
    const char* name;
    void (*run)();
    const char* text; ///< what comes after the site
};

const FatalCase fatalCases[] = {
    { "conditionAsWritten", failCondition,
      " : failCondition\n\nMaravo assert failed: value == MRV_TEST_ZERO || value > 3\n\n" },
    { "conditionWithMessage", failConditionWithMessage,
      " : failConditionWithMessage\n\nMaravo assert failed: isGood\n100% of 7 bones\n" },
    { "unreachable", reachTheUnreachable, " : reachTheUnreachable\n\nMaravo exit:\n\n" },
    { "unreachableWithMessage", reachTheUnreachableWithMessage,
      " : reachTheUnreachableWithMessage\n\nMaravo exit:\ntype Cloth\n" },
    { "alsoToTheLog", failWithLog, "\t[ERROR] - mrvFatalEndTest.cpp" },
    { "definitionInUse", createThreadTwice, "Maravo assert failed: threadDef._arg == NULL\n" },
    { "noReaderToUnlock", unlockReaderOfNone,
      "Maravo assert failed: hasReaderLock(mrv::atomicLoadRelaxed(rwspinlock._lockedState))\n" },
    { "countWhileOneWaits", setThreadCountWhileOneWaits,
      "Maravo assert failed: _currentThreadsWaiting == 0\nBarrier thread count can only be set, via "
      "setThreadCount, when not currently waiting.\n" },
    { "loggerWithoutLog", makeLoggerWithoutLog, "Maravo assert failed: getLog() != nullptr\n" },
};

class FatalEnd : public testing::TestWithParam<FatalCase>
{};

/// The text as a regular expression that finds it.
std::string literally(const std::string& text)
{
    std::string pattern;
    for (char character : text)
    {
        if (std::string("()[]{}.*+?|^$\\").find(character) != std::string::npos)
            pattern += '\\';
        pattern += character;
    }
    return pattern;
}

TEST_P(FatalEnd, showsMessageAndCallStackAndRaisesTheTrap)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // The log's line begins with a path that depends on the build.
    std::string text = literally(GetParam().text);
    const size_t file = text.find("mrvFatalEndTest");
    if (file != std::string::npos)
        text.insert(file, "[^\n]*");
    EXPECT_EXIT(GetParam().run(), testing::KilledBySignal(SIGTRAP),
                text + ".*backtrace\\(\\) returned [0-9]+ addresses\n");
}

INSTANTIATE_TEST_SUITE_P(Table, FatalEnd, testing::ValuesIn(fatalCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FatalEnds, endTheProcessEvenWhereTheTrapIsIgnored)
{
    EXPECT_EXIT((std::signal(SIGTRAP, SIG_IGN), fatalEnd()), testing::ExitedWithCode(255), "backtrace");
}

/// Keeps the last message; throws afterwards if told so.
class LastMessage : public ILogger
{
public:
    void trace(Log::Module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override
    {
        _text = std::to_string(severity) + file + std::to_string(line) + function + ":" + message;
        if (_isThrowing)
            throw std::runtime_error("logger");
    }

    std::string _text;
    bool _isThrowing = false;
};

template <class Function>
std::string printed(Function function)
{
    testing::internal::CaptureStderr();
    function();
    return testing::internal::GetCapturedStderr();
}

TEST(FailureOutput, isHeadAndMessageWithOrWithoutALog)
{
    const std::string head = "a.cpp(12) : run\n\nMaravo assert failed: x > 0\n";
    const std::string exitHead = "a.cpp(12) : run\n\nMaravo exit:\n";
    const auto check = [&](auto expectLogged) {
        EXPECT_EQ(printed([] { assertFailedOutput("x > 0", "a.cpp", "run", 12, "x is %d", 5); }),
                  head + "x is 5\n");
        expectLogged("0a.cpp12run:" + head + "x is 5");
        EXPECT_EQ(printed([] { assertFailedOutput("x > 0", "a.cpp", "run", 12, nullptr); }), head + "\n");
        expectLogged("0a.cpp12run:" + head);
        EXPECT_EQ(printed([] { exitOutput("a.cpp", "run", 12, "%c%s", 'g', "one"); }), exitHead + "gone\n");
        expectLogged("0a.cpp12run:" + exitHead + "gone");
        EXPECT_EQ(printed([] { exitOutput("a.cpp", "run", 12, nullptr); }), exitHead + "\n");
        expectLogged("0a.cpp12run:" + exitHead);
    };
    ASSERT_EQ(getLog(), nullptr);
    check([](const std::string&) {});
    allocateLog();
    {
        LastMessage logger;
        check([&](const std::string& text) { EXPECT_EQ(logger._text, text); });
        logger._isThrowing = true;
        check([&](const std::string& text) { EXPECT_EQ(logger._text, text); });
    }
    deallocateLog();
}

TEST(FailureOutput, isCutToItsBuffer)
{
    const size_t textMax = 2047;
    for (size_t length : { 0u, 1900u, 1980u, 1990u, 2046u, 2047u, 5000u })
    {
        SCOPED_TRACE(length);
        const std::string file(length, 'f');
        const std::string message(300, 'm');
        std::string whole = file + "(1) : run\n\nMaravo assert failed: x\n" + message;
        EXPECT_EQ(printed([&] { assertFailedOutput("x", file.c_str(), "run", 1, "%s", message.c_str()); }),
                  whole.substr(0, textMax) + "\n");
    }
}

TEST(Debugging, bothPrintersWriteALineToTheStandardErrorStream)
{
    EXPECT_EQ(printed([] { printErrorMessage("100% error"); }), "100% error\n");
    EXPECT_EQ(printed([] { printDebugMessage("100% debug"); }), "100% debug\n");
    EXPECT_EQ(printed([] { debugBreakIf(true); }), "");
}

TEST(Debugging, theCallStackHasALinePerAddress)
{
    const std::string text = printed([] { showCallStack(); });
    int count = 0;
    ASSERT_EQ(std::sscanf(text.c_str(), "backtrace() returned %d addresses\n", &count), 1) << text;
    EXPECT_GT(count, 3);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), count + 1);
}

} // namespace
} // namespace mrv
