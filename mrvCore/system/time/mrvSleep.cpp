// mrvCore/system/time/mrvSleep.cpp
// The two sleeps.
#include "mrvCore/system/time/mrvSleep.h"

#include <cerrno>
#include <ctime>

namespace mrv {

namespace {

timespec toDuration(unsigned int count, unsigned int countPerSecond)
{
    timespec duration;
    duration.tv_sec = count / countPerSecond;
    duration.tv_nsec = static_cast<long>(count % countPerSecond) * (1000000000L / countPerSecond);
    return duration;
}

} // namespace

void sleep(unsigned int milliseconds)
{
    const timespec duration = toDuration(milliseconds, 1000);
    nanosleep(&duration, nullptr);
}

void sleepFor(unsigned int microseconds)
{
    if (microseconds == 0)
        return;
    timespec remaining = toDuration(microseconds, 1000000);
    while (nanosleep(&remaining, &remaining) != 0 && errno == EINTR)
    {}
}

} // namespace mrv
