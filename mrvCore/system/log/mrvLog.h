// mrvCore/system/log/mrvLog.h
// The one sink of all messages of the process. Call sites use mrvLogMacros.h, receivers mrvILogger.h.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"

#include <cstdint>

namespace mrv {

class ILogger;

/// Decides whether a message may be emitted, counts the repeats of a call site, and hands what is left to
/// every registered logger.
///
/// Calling order at a site: ask mustLog, build the text, call trace, which does not ask again.
/// Threads: any thread may log. One spin lock guards keys and loggers and is held while the loggers run, so
/// that messages are never interleaved and all loggers see the same order.
class MRV_CORE_API Log
{
public:
    /// The lower, the more serious.
    enum Severity { LOG_ERROR, LOG_WARNING, LOG_INFO, LOG_DEBUG };

    /// Who speaks: the library (SDK, ORVEL) or the application around it (DCC).
    enum Module { SDK, ORVEL, DCC };

    /// One per call site whose repeats are limited, normally a function-local static with a counter of 0.
    class MRV_CORE_API TraceKey
    {
    public:
        explicit constexpr TraceKey(int32_t counter) : _counter(counter) {}

        /// Leaves the log's records. Harmless after the log has gone.
        ~TraceKey();

        TraceKey(const TraceKey&) = delete;
        TraceKey& operator=(const TraceKey&) = delete;

    private:
        friend class Log;

        int32_t _counter;    ///< keyed trace calls since the last reset, also those that printed nothing
        Log* _log = nullptr; ///< set once the key stands in the log's records
    };

    /// What the log remembers of a key.
    struct TraceCounter
    {
        MrvString _trace; ///< text of the key's first message
    };

    /// All thresholds at LOG_INFO, a limit of 5 messages per key.
    Log();

    /// Forgets its keys, which may outlive it, and leaves the loggers to their owners.
    ~Log();

    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /// Whether a message of this severity passes the module's threshold. Takes no lock.
    bool mustLog(Module module, Severity severity) const { return _logSeverity[module] >= severity; }

    /// The same for a limited call site: false as well once the key has printed its last line.
    bool mustLog(Module module, Severity severity, const TraceKey& key) const
    {
        return mustLog(module, severity) && isBelowLimit(key);
    }

    /// Sets the threshold of a module. Not synchronised with mustLog: call it while no other thread logs.
    void setSeverity(Module module, Severity severity) { _logSeverity[module] = severity; }

    /// Hands the message to every logger. An exception of a logger passes through, with the lock released.
    void trace(Module module, Severity severity, const char* message, const char* file, int line,
               const char* function);

    /// The same for a limited call site: five messages, one line that says so, then nothing but counting.
    void trace(Module module, Severity severity, TraceKey& key, const char* message, const char* file,
               int line, const char* function);

    /// Adds a logger at the end of the order; borrowed. ILogger does this by itself.
    void addLogger(ILogger* logger);

    /// Removes the first entry of this logger; unknown ones are ignored.
    void removeLogger(ILogger* logger);

    /// Reports the recorded keys and their counters through the loggers, one text for each severity up to
    /// the module's threshold. The keys of all modules are reported alike.
    void traceCounts(Module module);

    /// Forgets all keys: every call site prints its messages again.
    void resetTraceCounts();

private:
    static constexpr int _moduleCount = DCC + 1;
    static constexpr int _severityCount = LOG_DEBUG + 1;

    bool isBelowLimit(const TraceKey& key) const;
    void dispatch(Module module, Severity severity, const char* message, const char* file, int line,
                  const char* function);

    Severity _logSeverity[_moduleCount];
    int _maxTraceCount;
    MrvMap<TraceKey*, TraceCounter> _traceCounts[_severityCount];
    Array<ILogger*> _loggers;
};

namespace internal {

extern MRV_CORE_API Log* gLog;

} // namespace internal

/// The log of the process, null outside allocateLog and deallocateLog. Tests and locks nothing.
inline Log* getLog()
{
    return internal::gLog;
}

/// Creates the log unless there is one. For the single-threaded start of the core: takes no lock.
MRV_CORE_API void allocateLog();

/// Destroys the log, if any. For the single-threaded end of the core: takes no lock.
MRV_CORE_API void deallocateLog();

} // namespace mrv
