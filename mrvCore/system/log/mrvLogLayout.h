// mrvCore/system/log/mrvLogLayout.h
// What the texts of the loggers have in common. Internal to the log; for .cpp files only.
#pragma once

#include "mrvCore/system/log/mrvLog.h"

#include <ostream>

namespace mrv::internal {

/// "ERROR", "WARNING", "INFO" or "DEBUG".
inline const char* getSeverityName(Log::Severity severity)
{
    static const char* const names[] = { "ERROR", "WARNING", "INFO", "DEBUG" };
    return names[severity];
}

/// Writes where the message comes from, up to the indentation of the second line. A null text fails the
/// stream, so that the rest is lost.
inline void writeSite(std::ostream& stream, const char* file, int line, const char* function)
{
    stream << file << '(' << line << ") : " << function << "\n\t";
}

} // namespace mrv::internal
