// mrvCore/system/time/mrvTimer.cpp
// Restartable timer.
#include "mrvCore/system/time/mrvTimer.h"

namespace mrv {

namespace {

constexpr int64_t nanosecondsPerSecond = 1000000000;

} // namespace

Timer::Timer(unsigned int unit)
    : _timerStarted(false)
    , _unit(unit)
    , _startValue()
    , _lastRequestedValue()
    , _scaling(nanosecondsPerSecond / unit)
{}

Timer::~Timer() = default;

Time Timer::start()
{
    const Time elapsed = _timerStarted ? stop() : 0.0;
    clock_gettime(CLOCK_REALTIME, &_startValue);
    _timerStarted = true;
    return elapsed;
}

Time Timer::stop()
{
    const Time elapsed = getTime();
    _timerStarted = false;
    return elapsed;
}

Time Timer::getTime()
{
    if (!_timerStarted)
        return 0.0;
    clock_gettime(CLOCK_REALTIME, &_lastRequestedValue);
    const int64_t nanoseconds = (_lastRequestedValue.tv_sec - _startValue.tv_sec) * nanosecondsPerSecond +
                                (_lastRequestedValue.tv_nsec - _startValue.tv_nsec);
    return static_cast<double>(nanoseconds) / static_cast<double>(_scaling);
}

} // namespace mrv
