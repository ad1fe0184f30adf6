// mrvCore/system/log/mrvCallbackLogger.h
// Logger to a function of the host.
#pragma once

#include "mrvCore/system/log/mrvILogger.h"

namespace mrv {

/// Receives a finished text, valid during the call only, and the user data.
using logCallback = void (*)(const char* text, void* userData);

/// A callback with its data; both borrowed.
struct LogCallback
{
    logCallback _callback = nullptr;
    void* _userData = nullptr;
};

/// Passes each message on as "Maravo [ERROR] - message" and a line feed; silent until a callback is
/// registered.
class MRV_CORE_API CallbackLogger : public ILogger
{
public:
    /// Takes the place of the one before, null for none. Call it while no other thread logs.
    void registerCallback(logCallback callback, void* userData);

    void trace(Log::Module module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override;

private:
    LogCallback _logCallback;
};

} // namespace mrv
