// tests/system/time/mrvTimeTest.cpp
#include "mrvCore/system/time/mrvDateTime.h"
#include "mrvCore/system/time/mrvSleep.h"
#include "mrvCore/system/time/mrvTimeCounter.h"
#include "mrvCore/system/time/mrvTimeFrameCounter.h"
#include "mrvCore/system/time/mrvTimer.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <string>
#include <vector>

#include <sys/time.h>

namespace mrv {
namespace {

double elapsedSeconds(const TimeCounter& counter)
{
    return double(counter.getTimeInTicks()) * TimeCounter::getSecondsPerTick();
}

TEST(Timers, measureInTheirUnitAndOnlyWhileTheyRun)
{
    Timer inSeconds(1);
    Timer inMilliseconds(1000);
    EXPECT_FALSE(inSeconds.isStarted());
    EXPECT_EQ(inSeconds.getTime(), 0.0);
    EXPECT_EQ(inSeconds.stop(), 0.0);
    EXPECT_EQ(inSeconds.start(), 0.0);
    inMilliseconds.start();
    EXPECT_TRUE(inSeconds.isStarted());

    sleepFor(20000);
    const Time milliseconds = inMilliseconds.getTime();
    const Time seconds = inSeconds.getTime(); // later, thus longer
    EXPECT_GE(milliseconds, 20.0);
    EXPECT_GE(seconds * 1000.0, milliseconds);
    EXPECT_LT(seconds * 1000.0, milliseconds + 1000.0);

    EXPECT_GE(inMilliseconds.start(), milliseconds) << "a restart gives the time so far";
    EXPECT_LT(inMilliseconds.getTime(), milliseconds) << "and begins anew";
    EXPECT_GE(inSeconds.stop(), seconds);
    EXPECT_FALSE(inSeconds.isStarted());
    EXPECT_EQ(inSeconds.getTime(), 0.0);
    EXPECT_EQ(inSeconds.stop(), 0.0);
}

TEST(Counters, countTicksAndFrames)
{
    TimeCounter counter;
    counter.start();
    sleepFor(2000);
    counter.stop();
    EXPECT_GE(elapsedSeconds(counter), 0.002);
    EXPECT_EQ(counter.getTimeInTicks(), counter.getStopTimeInTicks() - counter.getStartTimeInTicks());

    TimeFrameCounter frames;
    EXPECT_EQ(frames.getFrameCount(), 0u);
    frames.increment();
    frames.increment();
    EXPECT_EQ(frames.getFrameCount(), 2u);
}

/// Interrupts whatever sleeps, every 5 milliseconds.
class Interruptions
{
public:
    Interruptions()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, &_formerAction);
        set(5000);
    }
    ~Interruptions()
    {
        set(0);
        sigaction(SIGALRM, &_formerAction, nullptr);
    }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

private:
    static void set(suseconds_t microseconds)
    {
        const itimerval interval = { { 0, microseconds }, { 0, microseconds } };
        setitimer(ITIMER_REAL, &interval, nullptr);
    }

    struct sigaction _formerAction;
};

TEST(Sleeps, oneIsEndedByASignalAndTheOtherIsNot)
{
    TimeCounter counter;
    const auto measure = [&](auto sleeping) {
        counter.start();
        sleeping();
        counter.stop();
        return elapsedSeconds(counter);
    };
    EXPECT_GE(measure([] { mrv::sleep(10); }), 0.010);
    EXPECT_GE(measure([] { sleepFor(1100000); }), 1.1);
    EXPECT_LT(measure([] { sleepFor(0); }), 1.0);

    const Interruptions interruptions;
    EXPECT_LT(measure([] { mrv::sleep(20000); }), 20.0);
    EXPECT_GE(measure([] { sleepFor(40000); }), 0.040);
}

TEST(DateTimes, packTheirFieldsFromTheLowBitsUp)
{
    const auto word = [](const MrvDateTime& value) {
        uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof(bits));
        return bits;
    };
    MrvDateTime value;
    EXPECT_EQ(word(value), 0u);
    uint64_t expected = 0;
    const auto check = [&](uint64_t content, int lowestBit) {
        expected += content << lowestBit;
        EXPECT_EQ(word(value), expected) << "bit " << lowestBit;
    };
    // The greatest content of each field: one bit out of place runs into a neighbour.
    check(value._Year = 0x7fff, 0);
    check(value._Month = 0xf, 15);
    check(value._DayOfYear = 0x1ff, 19);
    check(value._DayOfMonth = 0x1f, 28);
    check(value._DayOfWeek = 0xf, 33);
    check(value._Hour = 0x1f, 37);
    check(value._Minute = 0x3f, 42);
    check(value._Second = 0x3f, 48);
    check(value._Milliseconds = 0x3ff, 54);
}

TEST(DateTimes, tellThePresentTimeInGreenwich)
{
    setenv("TZ", "HERE-5:30", 1);
    tzset();
    const time_t before = time(nullptr);
    const MrvDateTime value = MrvDateTime::getTimeGMT();
    const time_t after = time(nullptr);
    unsetenv("TZ");
    tzset();

    tm calendar = {};
    calendar.tm_year = int(value._Year) - 1900;
    calendar.tm_mon = int(value._Month) - 1;
    calendar.tm_mday = int(value._DayOfMonth);
    calendar.tm_hour = int(value._Hour);
    calendar.tm_min = int(value._Minute);
    calendar.tm_sec = int(value._Second);
    const time_t told = timegm(&calendar); // fills in the days of year and week
    EXPECT_GE(told, before);
    EXPECT_LE(told, after);
    EXPECT_EQ(int(value._DayOfYear), calendar.tm_yday + 1);
    EXPECT_EQ(int(value._DayOfWeek), calendar.tm_wday);
    EXPECT_EQ(int(value._Milliseconds), 0);
}

TEST(DateTimes, areWrittenOnlyWhereTheWholeTextFits)
{
    MrvDateTime value;
    value._Year = 987;
    value._Month = 6;
    value._DayOfMonth = 5;
    value._Hour = 4;
    value._Minute = 3;
    value._Second = 60;
    for (size_t size : { 0u, 19u, 20u, 32u })
    {
        SCOPED_TRACE(size);
        char buffer[32];
        std::memset(buffer, '#', sizeof(buffer));
        const int length = MrvDateTime::convertDateTimeToString(value, buffer, size);
        EXPECT_EQ(length, size >= 20 ? 19 : 0);
        if (size >= 20)
            EXPECT_STREQ(buffer, "0987-06-05_04:03:60");
        else
            EXPECT_EQ(std::string(buffer, sizeof(buffer)), std::string(sizeof(buffer), '#'));
    }
}

} // namespace
} // namespace mrv
