// mrvCore/system/time/mrvTimeCounter.h
// Stop watch in ticks of a steady clock.
#pragma once

#include "mrvCore/system/time/mrvTime.h"

#include <time.h>

namespace mrv {

/// Measures short stretches; does not jump with the system's time. One thread at a time.
class TimeCounter
{
public:
    /// @{
    /// Each notes the time.
    void start() { _startTimeInTicks = now(); }
    void stop() { _stopTimeInTicks = now(); }
    /// @}

    timetick_t getStartTimeInTicks() const { return _startTimeInTicks; }
    timetick_t getStopTimeInTicks() const { return _stopTimeInTicks; }

    /// From the last start to the last stop.
    timetick_t getTimeInTicks() const { return _stopTimeInTicks - _startTimeInTicks; }

    static double getSecondsPerTick() { return 1e-9; }

private:
    static timetick_t now()
    {
        timespec value;
        clock_gettime(CLOCK_MONOTONIC, &value);
        return static_cast<timetick_t>(value.tv_sec) * 1000000000 + value.tv_nsec;
    }

    timetick_t _startTimeInTicks = 0;
    timetick_t _stopTimeInTicks = 0;
};

} // namespace mrv
