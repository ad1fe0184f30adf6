// mrvCore/system/log/mrvConsoleLogger.cpp
// Logger to the standard error stream.
#include "mrvCore/system/log/mrvConsoleLogger.h"

#include "mrvCore/system/debug/mrvDebugging.h"
#include "mrvCore/system/log/mrvLogLayout.h"

#include <locale>
#include <sstream>

namespace mrv {

void ConsoleLogger::trace(Log::Module, Log::Severity severity, const char* message, const char* file,
                          int line, const char* function)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    internal::writeSite(text, file, line, function);
    text << '[' << internal::getSeverityName(severity) << "] - " << message << '\n';
    printDebugMessage(text.str().c_str());
}

} // namespace mrv
