// mrvCore/system/time/mrvTimeFrameCounter.h
// Counts frames.
#pragma once

#include "mrvCore/system/time/mrvTime.h"

namespace mrv {

/// Number of frames since construction. One thread at a time.
class TimeFrameCounter
{
public:
    /// One frame more.
    void increment() { ++_timeFrameCount; }
    timeframe_t getFrameCount() const { return _timeFrameCount; }

private:
    timeframe_t _timeFrameCount = 0;
};

} // namespace mrv
