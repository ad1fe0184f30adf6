// mrvCore/system/log/mrvLogText.cpp
// The text of one message while it is built.
#include "mrvCore/system/log/mrvLogText.h"

#include <locale>

namespace mrv::internal {

LogText::LogText()
{
    // Asked first, since a change costs as much as all the rest of an empty stream.
    if (_stream.getloc() != std::locale::classic())
        _stream.imbue(std::locale::classic());
}

LogText::~LogText() = default;

void LogText::trace(Log::Module module, Log::Severity severity, const char* file, int line,
                    const char* function)
{
    getLog()->trace(module, severity, _stream.str().c_str(), file, line, function);
}

void LogText::trace(Log::Module module, Log::Severity severity, Log::TraceKey& key, const char* file,
                    int line, const char* function)
{
    getLog()->trace(module, severity, key, _stream.str().c_str(), file, line, function);
}

} // namespace mrv::internal
