// mrvCore/system/log/mrvFileLogger.cpp
// Logger to a text file.
#include "mrvCore/system/log/mrvFileLogger.h"

#include "mrvCore/system/log/mrvLogLayout.h"

#include <locale>

namespace mrv {

FileLogger::FileLogger(const char* fileName, OutputMode outputMode, FlushMode flushMode)
    : _flushMode(flushMode)
{
    _fileStream.imbue(std::locale::classic());
    _fileStream.open(fileName, outputMode == TRUNC ? std::ios::trunc : std::ios::app);
}

FileLogger::~FileLogger() = default;

void FileLogger::trace(Log::Module, Log::Severity severity, const char* message, const char* file, int line,
                       const char* function)
{
    internal::writeSite(_fileStream, file, line, function);
    _fileStream << internal::getSeverityName(severity) << ": " << message << '\n';
    if (_flushMode == FLUSH)
        _fileStream.flush();
}

} // namespace mrv
