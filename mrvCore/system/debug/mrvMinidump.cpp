// mrvCore/system/debug/mrvMinidump.cpp
// Writes a minidump of the process when it crashes.
#include "mrvCore/system/debug/mrvMinidump.h"

#include <cstdlib>
#include <cstring>

#ifdef MRV_HAS_BREAKPAD
#    include <client/linux/handler/exception_handler.h>

#    include <sys/uio.h>
#    include <unistd.h>
#else
#    include "mrvCore/system/log/mrvLogMacros.h"
#endif

namespace mrv {

Minidump::Minidump() : _exceptionHandler(nullptr), _crashCallback(nullptr), _minidumpDescriptor(nullptr)
{
    getDefaultDirectory(_directory, _directoryPathLengthMax);
}

void Minidump::getDefaultDirectory(char* directory, unsigned int length)
{
    const char* found = "/tmp";
    for (const char* name : { "TMPDIR", "TMP", "TEMP", "TEMPDIR" })
    {
        if (const char* value = std::getenv(name))
        {
            found = value;
            break;
        }
    }
    strcpySafe(directory, length, found);
}

void Minidump::strcpySafe(char* destination, unsigned int length, const char* source)
{
    if (length == 0)
        return;
    std::strncpy(destination, source, length);
    destination[length - 1] = '\0';
}

#ifdef MRV_HAS_BREAKPAD

bool Minidump::isAvailable()
{
    return true;
}

void Minidump::start(Reporting::Value)
{
    stop();
    _minidumpDescriptor = new google_breakpad::MinidumpDescriptor(_directory);
    _exceptionHandler =
        new google_breakpad::ExceptionHandler(*_minidumpDescriptor, nullptr, dumpCallback, this, true, -1);
}

void Minidump::stop()
{
    delete _exceptionHandler;
    _exceptionHandler = nullptr;
    delete _minidumpDescriptor;
    _minidumpDescriptor = nullptr;
}

bool Minidump::dumpCallback(const google_breakpad::MinidumpDescriptor& descriptor, void* context,
                            bool succeeded)
{
    // The process is broken: no stream and no heap any more, one plain write.
    const auto part = [](const char* text) { return iovec{ const_cast<char*>(text), std::strlen(text) }; };
    const iovec line[] = { part("Maravo minidump generated at "), part(descriptor.path()), part("\n") };
    if (writev(STDOUT_FILENO, line, 3) < 0)
        succeeded = false;

    const Minidump* minidump = static_cast<const Minidump*>(context);
    if (minidump != nullptr && minidump->_crashCallback != nullptr)
        minidump->_crashCallback();
    return succeeded;
}

#else

bool Minidump::isAvailable()
{
    return false;
}

void Minidump::start(Reporting::Value)
{
    MRV_LOG(SDK, LOG_WARNING, "Crash capture is not built into this library: no minidump will be written.");
}

void Minidump::stop() {}

bool Minidump::dumpCallback(const google_breakpad::MinidumpDescriptor&, void*, bool succeeded)
{
    return succeeded;
}

#endif

} // namespace mrv
