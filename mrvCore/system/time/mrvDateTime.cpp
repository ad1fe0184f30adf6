// mrvCore/system/time/mrvDateTime.cpp
// Calendar value packed into one word.
#include "mrvCore/system/time/mrvDateTime.h"

#include "mrvCore/system/utils/mrvCharOperators.h"

#include <time.h>

namespace mrv {

MrvDateTime::MrvDateTime()
    : _Year(0)
    , _Month(0)
    , _DayOfYear(0)
    , _DayOfMonth(0)
    , _DayOfWeek(0)
    , _Hour(0)
    , _Minute(0)
    , _Second(0)
    , _Milliseconds(0)
{}

MrvDateTime MrvDateTime::getTimeGMT()
{
    const time_t now = time(nullptr);
    tm calendar = {};
    gmtime_r(&now, &calendar);

    MrvDateTime value;
    value._Year = static_cast<unsigned int>(calendar.tm_year + 1900) & 0x7fffu;
    value._Month = static_cast<unsigned int>(calendar.tm_mon + 1) & 0xfu;
    value._DayOfYear = static_cast<unsigned int>(calendar.tm_yday + 1) & 0x1ffu;
    value._DayOfMonth = static_cast<unsigned int>(calendar.tm_mday) & 0x1fu;
    value._DayOfWeek = static_cast<unsigned int>(calendar.tm_wday) & 0xfu;
    value._Hour = static_cast<unsigned int>(calendar.tm_hour) & 0x1fu;
    value._Minute = static_cast<unsigned int>(calendar.tm_min) & 0x3fu;
    value._Second = static_cast<unsigned int>(calendar.tm_sec) & 0x3fu;
    return value;
}

int MrvDateTime::convertDateTimeToString(MrvDateTime value, char* buffer, size_t size)
{
    constexpr size_t textLength = 19;
    if (size <= textLength)
        return 0;
    return sprintfSafe(buffer, size, "%04d-%02d-%02d_%02d:%02d:%02d", static_cast<int>(value._Year),
                       static_cast<int>(value._Month), static_cast<int>(value._DayOfMonth),
                       static_cast<int>(value._Hour), static_cast<int>(value._Minute),
                       static_cast<int>(value._Second));
}

} // namespace mrv
