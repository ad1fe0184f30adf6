// mrvCore/system/time/mrvTimer.h
// Restartable timer.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/time/mrvTime.h"

#include <cstdint>

#include <time.h>

namespace mrv {

/// Measures elapsed time in a unit of choice, by the system's clock: it jumps when that is set. One thread
/// at a time.
class MRV_CORE_API Timer
{
public:
    /// `unit` counts per second: 1 for seconds, 1000 for milliseconds; not 0. The timer is stopped.
    explicit Timer(unsigned int unit);
    virtual ~Timer();

    /// Starts or restarts. Returns what stop() gives for the run before, 0 if there was none.
    virtual Time start();

    /// Stops. Returns the elapsed time, 0 if the timer was not running.
    virtual Time stop();

    /// Time since the start, 0 when stopped.
    Time getTime();

    bool isStarted() const { return _timerStarted; }
    unsigned int getUnit() const { return _unit; }

private:
    bool _timerStarted;
    unsigned int _unit;
    timespec _startValue;
    timespec _lastRequestedValue;
    uint64_t _scaling; ///< nanoseconds per unit
};

} // namespace mrv
