// mrvCore/system/log/mrvFileLogger.h
// Logger to a text file.
#pragma once

#include "mrvCore/system/log/mrvILogger.h"

#include <fstream>

namespace mrv {

/// Writes each message as two lines: "file(line) : function", then "ERROR: message".
///
/// A file that cannot be opened, or a null text, fails the stream for good: what follows is dropped.
class MRV_CORE_API FileLogger : public ILogger
{
public:
    /// Append to the file or empty it first.
    enum OutputMode { APP, TRUNC };

    /// Flush after each message or leave it to the stream.
    enum FlushMode { FLUSH, NO_FLUSH };

    FileLogger(const char* fileName, OutputMode outputMode, FlushMode flushMode);

    /// Closes the file.
    ~FileLogger() override;

    void trace(Log::Module module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override;

private:
    std::ofstream _fileStream;
    FlushMode _flushMode;
};

} // namespace mrv
