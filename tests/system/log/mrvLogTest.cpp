// tests/system/log/mrvLogTest.cpp
#include "mrvCore/system/log/mrvLog.h"

#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace mrv {
namespace {

/// Keeps each message as "module severity file line function: message".
class RecordingLogger : public ILogger
{
public:
    void trace(Log::Module module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override
    {
        std::ostringstream text;
        text << module << ' ' << severity << ' ' << file << ' ' << line << ' ' << function << ": " << message;
        lines.push_back(text.str());
        if (isThrowing)
            throw std::runtime_error("logger");
    }

    std::vector<std::string> lines;
    bool isThrowing = false;
};

class LogTest : public testing::Test
{
protected:
    LogTest()
    {
        allocateLog();
        logger = std::make_unique<RecordingLogger>();
    }
    ~LogTest() override
    {
        logger.reset();
        deallocateLog();
    }

    static void say(Log::TraceKey& key, Log::Severity severity = Log::LOG_WARNING, const char* text = "text")
    {
        getLog()->trace(Log::ORVEL, severity, key, text, "file", 7, "function");
    }

    /// What traceCounts tells, without the heading.
    std::string counts(Log::Severity level)
    {
        getLog()->setSeverity(Log::DCC, Log::LOG_DEBUG);
        logger->lines.clear();
        getLog()->traceCounts(Log::DCC);
        const std::string& line = logger->lines.at(size_t(level));
        return line.substr(line.find('\n') + 1);
    }

    std::unique_ptr<RecordingLogger> logger;
};

const std::vector<std::string> allSixLines = {
    "1 1 file 7 function: text",
    "1 1 file 7 function: text",
    "1 1 file 7 function: text",
    "1 1 file 7 function: text",
    "1 1 file 7 function: text",
    "1 1 file 7 function: Too many messages (>5) of type: text -- not printing any more!",
};

TEST_F(LogTest, aKeyPrintsFiveMessagesAndOneThatSaysSo)
{
    Log::TraceKey asking(0);
    for (int i = 0; i < 9; ++i)
    {
        const bool isAllowed = getLog()->mustLog(Log::ORVEL, Log::LOG_WARNING, asking);
        EXPECT_EQ(isAllowed, i < 6) << i;
        if (isAllowed)
            say(asking);
    }
    EXPECT_EQ(logger->lines, allSixLines);

    logger->lines.clear();
    Log::TraceKey direct(0);
    for (int i = 0; i < 9; ++i)
        say(direct);
    EXPECT_EQ(logger->lines, allSixLines);

    const std::string told = counts(Log::LOG_WARNING);
    const bool isAskingFirst = &asking < &direct; // the order of the records is that of the addresses
    EXPECT_EQ(told, isAskingFirst ? "\t6: text\n\t9: text\n" : "\t9: text\n\t6: text\n");
}

TEST_F(LogTest, aKeyIsRecordedOnceWithItsFirstTextAndSeverity)
{
    Log::TraceKey key(0);
    say(key, Log::LOG_INFO, "first");
    say(key, Log::LOG_ERROR, "second");
    EXPECT_EQ(counts(Log::LOG_INFO), "\t2: first\n");
    EXPECT_EQ(counts(Log::LOG_ERROR), "");
    EXPECT_EQ(counts(Log::LOG_DEBUG), "");

    Log::TraceKey nothing(0);
    say(nothing, Log::LOG_DEBUG, nullptr);
    EXPECT_EQ(counts(Log::LOG_DEBUG), "\t1: \n");
}

TEST_F(LogTest, countsAreReportedUpToTheThresholdOfTheModule)
{
    Log::TraceKey key(0);
    say(key);
    for (int threshold = Log::LOG_ERROR; threshold <= Log::LOG_DEBUG; ++threshold)
    {
        getLog()->setSeverity(Log::DCC, Log::Severity(threshold));
        logger->lines.clear();
        getLog()->traceCounts(Log::DCC);
        std::vector<std::string> expected = {
            "2 0 Number of log messages for level  0 log messages type:: \n",
            "2 1 Number of log messages for level  1 log messages type:: \n\t1: text\n",
            "2 2 Number of log messages for level  2 log messages type:: \n",
            "2 3 Number of log messages for level  3 log messages type:: \n",
        };
        expected.resize(size_t(threshold) + 1);
        EXPECT_EQ(logger->lines, expected);
    }
}

TEST_F(LogTest, aResetLetsEveryKeyPrintAgain)
{
    Log::TraceKey first(0);
    Log::TraceKey second(0);
    for (int i = 0; i < 9; ++i)
    {
        say(first);
        say(second, Log::LOG_ERROR);
    }
    getLog()->resetTraceCounts();
    EXPECT_EQ(counts(Log::LOG_WARNING), "");
    EXPECT_EQ(counts(Log::LOG_ERROR), "");

    logger->lines.clear();
    for (int i = 0; i < 9; ++i)
        say(first);
    EXPECT_EQ(logger->lines, allSixLines);
    EXPECT_EQ(counts(Log::LOG_WARNING), "\t9: text\n");
}

TEST_F(LogTest, aKeyLeavesTheRecordsWithItsEnd)
{
    Log::TraceKey staying(0);
    say(staying);
    {
        Log::TraceKey leaving(0);
        say(leaving);
        const Log::TraceKey silent(0);
    }
    EXPECT_EQ(counts(Log::LOG_WARNING), "\t1: text\n");
}

TEST_F(LogTest, keysAndLoggersMayOutliveTheLog)
{
    auto key = std::make_unique<Log::TraceKey>(0);
    say(*key);
    deallocateLog();
    EXPECT_EQ(getLog(), nullptr);
    deallocateLog();
    logger.reset();
    key.reset();

    allocateLog();
    Log* const log = getLog();
    ASSERT_NE(log, nullptr);
    allocateLog();
    EXPECT_EQ(getLog(), log) << "there is one log";
    logger = std::make_unique<RecordingLogger>();
    EXPECT_EQ(counts(Log::LOG_WARNING), "");
}

TEST_F(LogTest, anExceptionOfALoggerPassesWithTheLockReleasedAndTheMessageUncounted)
{
    Log::TraceKey key(0);
    logger->isThrowing = true;
    EXPECT_THROW(say(key), std::runtime_error);
    EXPECT_THROW(getLog()->trace(Log::SDK, Log::LOG_ERROR, "text", "file", 7, "function"),
                 std::runtime_error);
    logger->isThrowing = false;
    logger->lines.clear();
    for (int i = 0; i < 9; ++i)
        say(key);
    EXPECT_EQ(logger->lines, allSixLines);
}

TEST_F(LogTest, loggersAreServedInTheOrderOfTheirArrival)
{
    /// Writes its name into a shared text.
    class NamedLogger : public ILogger
    {
    public:
        NamedLogger(char name, std::string& target) : _name(name), _target(target) {}
        void trace(Log::Module, Log::Severity, const char*, const char*, int, const char*) override
        {
            _target += _name;
        }

    private:
        char _name;
        std::string& _target;
    };

    std::string order;
    const auto served = [&] {
        order.clear();
        getLog()->trace(Log::SDK, Log::LOG_INFO, "", "", 0, "");
        return order;
    };
    NamedLogger a('a', order);
    auto b = std::make_unique<NamedLogger>('b', order);
    NamedLogger c('c', order);
    getLog()->addLogger(&a);
    EXPECT_EQ(served(), "abca");
    getLog()->removeLogger(&a);
    EXPECT_EQ(served(), "bca") << "the first entry goes";
    b.reset();
    EXPECT_EQ(served(), "ca");
    getLog()->removeLogger(&c);
    getLog()->removeLogger(&c);
    EXPECT_EQ(served(), "a") << "the second time it is unknown";
}

TEST_F(LogTest, aThresholdLetsThroughWhatIsAtLeastAsSerious)
{
    for (int module = Log::SDK; module <= Log::DCC; ++module)
        EXPECT_TRUE(getLog()->mustLog(Log::Module(module), Log::LOG_INFO) &&
                    !getLog()->mustLog(Log::Module(module), Log::LOG_DEBUG))
            << "a new log lets everything but LOG_DEBUG through";

    Log::TraceKey key(0);
    for (int threshold = Log::LOG_ERROR; threshold <= Log::LOG_DEBUG; ++threshold)
        for (int severity = Log::LOG_ERROR; severity <= Log::LOG_DEBUG; ++severity)
        {
            getLog()->setSeverity(Log::ORVEL, Log::Severity(threshold));
            EXPECT_EQ(getLog()->mustLog(Log::ORVEL, Log::Severity(severity)), severity <= threshold);
            EXPECT_EQ(getLog()->mustLog(Log::ORVEL, Log::Severity(severity), key), severity <= threshold);
        }
    EXPECT_FALSE(getLog()->mustLog(Log::SDK, Log::LOG_DEBUG)) << "the other modules keep theirs";
}

int countCalls(int& calls)
{
    return ++calls;
}

void logEachWay(int& calls)
{
    MRV_LOG(SDK, LOG_DEBUG, countCalls(calls));
    MRV_LOG_LIMITED(SDK, LOG_DEBUG, countCalls(calls));
    MRV_LOG(ORVEL, LOG_ERROR, "plain " << countCalls(calls) << ' ' << 1234567 << ' ' << 0.5);
    MRV_LOG_LIMITED(SDK, LOG_INFO, "limited " << countCalls(calls));
}

TEST_F(LogTest, theMacrosBuildATextOnlyWhenItIsWanted)
{
    const CommaLocale commas;
    int calls = 0;
    logEachWay(calls);
    EXPECT_EQ(calls, 2);
    ASSERT_EQ(logger->lines.size(), 2u);
    EXPECT_NE(logger->lines[0].find("mrvLogTest.cpp"), std::string::npos);
    EXPECT_NE(logger->lines[0].find(" logEachWay: plain 1 1234567 0.5"), std::string::npos)
        << logger->lines[0];
    EXPECT_EQ(logger->lines[0].rfind("1 0 ", 0), 0u);
    EXPECT_NE(logger->lines[1].find(" logEachWay: limited 2"), std::string::npos);
    EXPECT_EQ(logger->lines[1].rfind("0 2 ", 0), 0u);

    for (int i = 1; i < 9; ++i)
        logEachWay(calls);
    EXPECT_EQ(calls, 9 + 6) << "the limited one builds no text after its sixth line";
    getLog()->resetTraceCounts();

    logger.reset();
    deallocateLog();
    logEachWay(calls);
    EXPECT_EQ(calls, 9 + 6) << "without a log";
}

/// The text of a message behind its heading.
std::string messageOf(const std::string& line)
{
    return line.substr(line.find(": ") + 2);
}

struct NumberFormat
{
    const char* name;
    void (*set)(std::ostream&);
};

std::ostream& operator<<(std::ostream& stream, const NumberFormat& format)
{
    format.set(stream);
    return stream;
}

const NumberFormat numberFormats[] = {
    { "default", [](std::ostream&) {} },
    { "fixed", [](std::ostream& s) { s << std::fixed; } },
    { "scientific", [](std::ostream& s) { s << std::scientific; } },
    { "hexadecimal", [](std::ostream& s) { s << std::hexfloat; } },
    { "withSign", [](std::ostream& s) { s << std::showpos; } },
    { "withPoint", [](std::ostream& s) { s << std::showpoint; } },
    { "upperCase", [](std::ostream& s) { s << std::uppercase << std::hex; } },
    { "noDigits", [](std::ostream& s) { s << std::setprecision(0); } },
    { "noDigitsFixed", [](std::ostream& s) { s << std::fixed << std::setprecision(0); } },
    { "negativePrecision", [](std::ostream& s) { s << std::setprecision(-1); } },
    { "seventeenDigits", [](std::ostream& s) { s << std::setprecision(17); } },
    { "fortyDigitsFixed", [](std::ostream& s) { s << std::fixed << std::setprecision(40); } },
    { "wide", [](std::ostream& s) { s << std::setw(12) << std::setfill('*') << std::left; } },
};

TEST_F(LogTest, textsAreThoseOfAFreshStream)
{
    const CommaLocale commas;
    const double numbers[] = { 0.0,      -0.0,      0.5,       0.1,   -2.5,     1e-7,
                               123456.5, 1234567.0, 1e15,      1e300, -1.7e308, 5e-324,
                               2.0 / 3,  INFINITY,  -INFINITY, NAN,   -NAN };
    for (const NumberFormat& format : numberFormats)
        for (const double number : numbers)
        {
            std::ostringstream expected;
            expected.imbue(std::locale::classic());
            format.set(expected);
            expected << number << ' ' << static_cast<float>(number) << ' ' << 1234567 << ' ' << true;
            logger->lines.clear();
            MRV_LOG(SDK, LOG_INFO,
                    format << number << ' ' << static_cast<float>(number) << ' ' << 1234567 << ' ' << true);
            EXPECT_EQ(messageOf(logger->lines[0]), expected.str()) << format.name;
        }
}

int logInside(int depth)
{
    if (depth > 0)
        MRV_LOG(SDK, LOG_INFO, "level " << std::hex << depth << ' ' << logInside(depth - 1));
    return depth;
}

TEST_F(LogTest, aTextLeavesNothingToTheNextOne)
{
    const std::string longText(100000, 'x');
    const char* const none = nullptr;
    MRV_LOG(SDK, LOG_INFO, std::hex << std::setfill('0') << std::setprecision(2) << "left" << std::setw(9));
    MRV_LOG(SDK, LOG_INFO, "cut " << none << "off");
    MRV_LOG(SDK, LOG_INFO, longText << '.' << longText);
    MRV_LOG(SDK, LOG_INFO, std::setw(3) << 17 << ' ' << 1.25);
    const std::string expected[] = { "left", "cut ", longText + '.' + longText, " 17 1.25" };
    ASSERT_EQ(logger->lines.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i)
        EXPECT_TRUE(messageOf(logger->lines[i]) == expected[i])
            << i << messageOf(logger->lines[i]).substr(0, 80);
}

TEST_F(LogTest, aTextMayHoldACallThatLogs)
{
    for (int round = 0; round < 2; ++round)
    {
        logger->lines.clear();
        logInside(20); // deeper than streams are kept
        ASSERT_EQ(logger->lines.size(), 20u);
        EXPECT_EQ(messageOf(logger->lines[0]), "level 1 0");
        EXPECT_EQ(messageOf(logger->lines[19]), "level 14 13");
    }
}

TEST_F(LogTest, threadsLoseNothingAndShareALimit)
{
    constexpr int threadCount = 4;
    constexpr int messageCount = 500;
    Log::TraceKey shared(0);
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&] {
            for (int message = 0; message < messageCount; ++message)
            {
                MRV_LOG(SDK, LOG_INFO, "unlimited " << std::hex << 255 << ' ' << 0.5);
                if (getLog()->mustLog(Log::ORVEL, Log::LOG_WARNING, shared))
                    say(shared);
                Log::TraceKey own(0);
                say(own, Log::LOG_INFO, "own");
            }
        });
    for (std::thread& thread : threads)
        thread.join();

    int unlimited = 0;
    int own = 0;
    std::vector<std::string> limited;
    for (const std::string& line : logger->lines)
    {
        if (line.find(": unlimited ff 0.5") != std::string::npos)
            ++unlimited;
        else if (line.find(": own") != std::string::npos)
            ++own;
        else
            limited.push_back(line);
    }
    EXPECT_EQ(unlimited, threadCount * messageCount);
    EXPECT_EQ(own, threadCount * messageCount);
    EXPECT_EQ(limited, allSixLines);
    EXPECT_EQ(counts(Log::LOG_INFO), "") << "every own key has left";
}

} // namespace
} // namespace mrv
