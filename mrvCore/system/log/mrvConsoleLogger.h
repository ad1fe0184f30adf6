// mrvCore/system/log/mrvConsoleLogger.h
// Logger to the standard error stream.
#pragma once

#include "mrvCore/system/log/mrvILogger.h"

namespace mrv {

/// Writes each message as two lines and an empty one: "file(line) : function", then "[ERROR] - message".
class MRV_CORE_API ConsoleLogger : public ILogger
{
public:
    void trace(Log::Module module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override;
};

} // namespace mrv
