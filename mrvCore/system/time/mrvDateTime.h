// mrvCore/system/time/mrvDateTime.h
// Calendar value packed into one word.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>
#include <cstdint>

namespace mrv {

/// Date and time of day, low bits first. All fields 0 when new.
struct MRV_CORE_API MrvDateTime
{
    uint64_t _Year : 15;      ///< the full year
    uint64_t _Month : 4;      ///< from 1
    uint64_t _DayOfYear : 9;  ///< from 1
    uint64_t _DayOfMonth : 5; ///< from 1
    uint64_t _DayOfWeek : 4;  ///< from 0 for Sunday
    uint64_t _Hour : 5;
    uint64_t _Minute : 6;
    uint64_t _Second : 6;        ///< 60 in a leap second
    uint64_t _Milliseconds : 10; ///< left at 0 by getTimeGMT

    MrvDateTime();

    /// The present time in Greenwich.
    static MrvDateTime getTimeGMT();

    /// Writes "2026-05-20_13:05:00" and returns its length. A buffer below 20 bytes stays as it is: 0.
    static int convertDateTimeToString(MrvDateTime value, char* buffer, size_t size);
};

static_assert(sizeof(MrvDateTime) == 8, "the fields fill one word");

} // namespace mrv
