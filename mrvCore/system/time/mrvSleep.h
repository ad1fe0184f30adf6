// mrvCore/system/time/mrvSleep.h
// The two sleeps.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Sleeps once; a signal ends it early. Call it as mrv::sleep: the system has a sleep in seconds.
MRV_CORE_API void sleep(unsigned int milliseconds);

/// Sleeps the whole time, whatever signals come.
MRV_CORE_API void sleepFor(unsigned int microseconds);

} // namespace mrv
