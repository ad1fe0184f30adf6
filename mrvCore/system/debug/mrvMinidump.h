// mrvCore/system/debug/mrvMinidump.h
// Writes a minidump of the process when it crashes.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace google_breakpad {

class ExceptionHandler;
class MinidumpDescriptor;

} // namespace google_breakpad

namespace mrv {

/// Crash capture, active from start() to stop(). A process needs one.
/// Threads: start and stop on one thread; a crash of any thread is captured.
class MRV_CORE_API Minidump
{
public:
    /// What a user hears of a crash.
    struct Reporting
    {
        enum Value { NO_REPORT, MESSAGE_BOX, END };
    };

    /// Called on the crashing thread, inside the signal's handler, after the dump was written.
    using mrvCrashCallback = void (*)();

    static constexpr unsigned int _directoryPathLengthMax = 1024;

    /// Dumps go to the default directory.
    Minidump();

    /// Does nothing: stop() must have been called.
    ~Minidump() = default;

    Minidump(const Minidump&) = delete;
    Minidump& operator=(const Minidump&) = delete;

    /// Whether the library was built with crash capture. Without it start() only logs that.
    static bool isAvailable();

    /// Installs the handlers. `reporting` has no effect. A second start takes the place of the first.
    void start(Reporting::Value reporting);

    /// Removes the handlers. Harmless without a start.
    void stop();

    void setCrashCallback(mrvCrashCallback callback) { _crashCallback = callback; }
    mrvCrashCallback getCrashCallback() const { return _crashCallback; }

    /// The first of TMPDIR, TMP, TEMP and TEMPDIR that is set in the environment, otherwise "/tmp"; cut to
    /// the `length` bytes of the buffer.
    static void getDefaultDirectory(char* directory, unsigned int length);

    /// Copies at most `length` characters; the last is always 0, and what is left is filled with 0.
    /// A length of 0 writes nothing.
    static void strcpySafe(char* destination, unsigned int length, const char* source);

private:
    static bool dumpCallback(const google_breakpad::MinidumpDescriptor& descriptor, void* context,
                             bool succeeded);

    char _directory[_directoryPathLengthMax];
    // Both owned, null while not started; unused where crash capture is not built in.
    [[maybe_unused]] google_breakpad::ExceptionHandler* _exceptionHandler;
    mrvCrashCallback _crashCallback;
    [[maybe_unused]] google_breakpad::MinidumpDescriptor* _minidumpDescriptor;
};

} // namespace mrv
