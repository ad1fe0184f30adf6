// mrvCore/system/log/mrvLogText.h
// The text of one message while it is built. Internal to mrvLogMacros.h.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/log/mrvLog.h"

#include <ostream>

namespace mrv::internal {

/// Whether there is a log that lets the message through.
inline bool mustLog(Log::Module module, Log::Severity severity)
{
    return getLog() != nullptr && getLog()->mustLog(module, severity);
}

/// A stream in the classic locale, whatever that of the host is. Its parts are functions of their own, out of
/// the way of call sites that are filtered out.
///
/// A new stream costs more than most texts, so that those which are done with wait for the next message; a
/// message that is built inside another one gets a stream of its own.
class MRV_CORE_API LogText
{
public:
    LogText() __attribute__((cold));
    ~LogText();

    LogText(const LogText&) = delete;
    LogText& operator=(const LogText&) = delete;

    std::ostream& stream() { return _stream; }

    /// Hands the text to the log, which must exist.
    void trace(Log::Module module, Log::Severity severity, const char* file, int line, const char* function);
    void trace(Log::Module module, Log::Severity severity, Log::TraceKey& key, const char* file, int line,
               const char* function);

    /// Frees the streams that wait. For the single-threaded end of the log.
    static void freeWaitingStreams();

private:
    std::ostream& _stream;
};

} // namespace mrv::internal
