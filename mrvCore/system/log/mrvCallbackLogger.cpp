// mrvCore/system/log/mrvCallbackLogger.cpp
// Logger to a function of the host.
#include "mrvCore/system/log/mrvCallbackLogger.h"

#include "mrvCore/system/log/mrvLogLayout.h"

#include <sstream>

namespace mrv {

void CallbackLogger::registerCallback(logCallback callback, void* userData)
{
    _logCallback._callback = callback;
    _logCallback._userData = userData;
}

void CallbackLogger::trace(Log::Module, Log::Severity severity, const char* message, const char*, int,
                           const char*)
{
    if (_logCallback._callback == nullptr)
        return;
    std::ostringstream text;
    text << "Maravo [" << internal::getSeverityName(severity) << "] - " << message << '\n';
    _logCallback._callback(text.str().c_str(), _logCallback._userData);
}

} // namespace mrv
