// mrvCore/system/log/mrvILogger.h
// What a host derives from to receive the messages of the log.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/log/mrvLog.h"

namespace mrv {

/// Receiver of messages, active from construction to destruction.
///
/// The log must exist at construction; it may be gone at destruction. Construct and destroy a logger while
/// no other thread logs: the derived part does not exist yet, or not any more, when the log knows the base.
class MRV_CORE_API ILogger
{
public:
    /// Registers with the log.
    ILogger();

    /// Leaves the log.
    virtual ~ILogger();

    ILogger(const ILogger&) = delete;
    ILogger& operator=(const ILogger&) = delete;

    /// Receives one message; the texts are valid during the call only, and any of them may be null.
    /// Runs under the log's spin lock: be short, do not log or assert, and make or end no logger in here.
    virtual void trace(Log::Module module, Log::Severity severity, const char* message, const char* file,
                       int line, const char* function) = 0;
};

} // namespace mrv
