// mrvCore/system/log/mrvLog.cpp
// The one sink of all messages of the process.
#include "mrvCore/system/log/mrvLog.h"

#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/log/mrvLogText.h"
#include "mrvCore/system/thread/mrvScopedLock.h"
#include "mrvCore/system/thread/mrvSpinLock.h"

namespace mrv {

namespace {

SpinLock gLogMutex; // guards the keys, their records and the list of loggers

using LogLock = ScopedLock<SpinLock>;

MrvString orEmpty(const char* text)
{
    return text != nullptr ? MrvString(text) : MrvString();
}

} // namespace

Log* internal::gLog = nullptr;

void allocateLog()
{
    if (internal::gLog == nullptr)
        internal::gLog = new Log;
}

void deallocateLog()
{
    delete internal::gLog;
    internal::gLog = nullptr;
    internal::LogText::freeWaitingStreams();
}

Log::Log() : _maxTraceCount(5)
{
    for (Severity& severity : _logSeverity)
        severity = LOG_INFO;
}

Log::~Log()
{
    for (auto& keys : _traceCounts)
        for (auto entry = keys.begin(); entry != keys.end(); ++entry)
            entry.getKey()->_log = nullptr;
}

bool Log::isBelowLimit(const TraceKey& key) const
{
    const LogLock lock(gLogMutex);
    return key._counter <= _maxTraceCount;
}

void Log::trace(Module module, Severity severity, const char* message, const char* file, int line,
                const char* function)
{
    const LogLock lock(gLogMutex);
    dispatch(module, severity, message, file, line, function);
}

void Log::trace(Module module, Severity severity, TraceKey& key, const char* message, const char* file,
                int line, const char* function)
{
    const LogLock lock(gLogMutex);
    if (key._counter == _maxTraceCount)
    {
        MrvString text("Too many messages (>");
        text += _maxTraceCount;
        text += ") of type: ";
        text += orEmpty(message);
        text += " -- not printing any more!";
        dispatch(module, severity, text.c_str(), file, line, function);
    }
    else if (key._counter < _maxTraceCount)
    {
        if (key._counter == 0)
        {
            _traceCounts[severity][&key]._trace = orEmpty(message);
            key._log = this;
        }
        dispatch(module, severity, message, file, line, function);
    }
    ++key._counter; // not reached when a logger throws
}

void Log::dispatch(Module module, Severity severity, const char* message, const char* file, int line,
                   const char* function)
{
    for (ILogger* logger : _loggers)
        logger->trace(module, severity, message, file, line, function);
}

void Log::addLogger(ILogger* logger)
{
    const LogLock lock(gLogMutex);
    _loggers.push_back(logger);
}

void Log::removeLogger(ILogger* logger)
{
    const LogLock lock(gLogMutex);
    _loggers.eraseIfExists(logger);
}

void Log::traceCounts(Module module)
{
    const LogLock lock(gLogMutex);
    for (int level = LOG_ERROR; level <= _logSeverity[module]; ++level)
    {
        MrvString text("\n");
        auto& keys = _traceCounts[level];
        for (auto entry = keys.begin(); entry != keys.end(); ++entry)
        {
            text += '\t';
            text += entry.getKey()->_counter;
            text += ": ";
            text += entry.getValue()._trace;
            text += '\n';
        }
        // The usual layout of a logger makes a heading of these.
        dispatch(module, static_cast<Severity>(level), text.c_str(), "Number of log messages for level ",
                 level, "log messages type:");
    }
}

void Log::resetTraceCounts()
{
    const LogLock lock(gLogMutex);
    for (auto& keys : _traceCounts)
    {
        for (auto entry = keys.begin(); entry != keys.end(); ++entry)
        {
            entry.getKey()->_counter = 0;
            entry.getKey()->_log = nullptr;
        }
        keys.clear();
    }
}

Log::TraceKey::~TraceKey()
{
    if (_log == nullptr)
        return;
    const LogLock lock(gLogMutex);
    for (auto& keys : _log->_traceCounts)
        keys.erase(this);
}

} // namespace mrv
