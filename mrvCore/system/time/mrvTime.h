// mrvCore/system/time/mrvTime.h
// The types that measure time.
#pragma once

#include <cstdint>

namespace mrv {

using Time = double;          ///< in seconds unless a unit is told
using timetick_t = int64_t;   ///< nanoseconds of a steady clock, see TimeCounter
using timeframe_t = uint64_t; ///< a count of frames

} // namespace mrv
