// mrvCore/system/debug/mrvAssert.h
// The two fatal ends: a condition that must hold and a place that must not be reached.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Prints site, expression and formatted message (printf style, null for none) to the standard error
/// stream, and to the log if there is one. What is beyond 2047 characters is cut. Returns: ending the
/// process is left to the caller. Any thread, but not inside a logger, where the log lock is held.
MRV_CORE_API void assertFailedOutput(const char* expression, const char* file, const char* function,
                                     unsigned int line, const char* format, ...)
    __attribute__((cold, format(printf, 5, 6)));

/// The same without a message.
MRV_CORE_API void assertFailedOutput(const char* expression, const char* file, const char* function,
                                     unsigned int line) __attribute__((cold));

/// The same for a place that must not be reached, where there is no expression to show.
MRV_CORE_API void exitOutput(const char* file, const char* function, unsigned int line, const char* format,
                             ...) __attribute__((cold, format(printf, 4, 5)));

/// The one end of the process: shows the call stack, raises SIGTRAP so that a debugger stops here,
/// and calls exit(-1).
[[noreturn]] MRV_CORE_API void fatalEnd() __attribute__((cold));

#ifdef MRV_FUZZ_BUILD
/// Sets what fatalEnd calls first, null for nothing. The hook may leave by an exception or a longjmp,
/// so that a fuzzer goes on with its next input.
MRV_CORE_API void setFatalEndHook(void (*hook)());
#endif

namespace internal {

/// A place that must not be reached. The call of end() takes the message alone, so that there may be none.
struct MRV_CORE_API ExitSite
{
    const char* file;
    const char* function;
    unsigned int line;

    /// exitOutput, then fatalEnd.
    [[noreturn]] void end() const __attribute__((cold));
    [[noreturn]] void end(const char* format, ...) const __attribute__((cold, format(printf, 2, 3)));
};

} // namespace internal
} // namespace mrv

// A macro's "..." without an argument is an extension before C++20; a system header may use it in silence.
#pragma GCC system_header

/// MRV_ASSERT(condition) or MRV_ASSERT(condition, "format %d", x): ends the process if the condition does
/// not hold, showing its text as written. Active in every build.
#define MRV_ASSERT(condition, ...)                                                                           \
    do                                                                                                       \
    {                                                                                                        \
        if (!(condition))                                                                                    \
        {                                                                                                    \
            ::mrv::assertFailedOutput(#condition, __FILE__, __func__, __LINE__, ##__VA_ARGS__);              \
            ::mrv::fatalEnd();                                                                               \
        }                                                                                                    \
    } while (false)

/// MRV_UNREACHABLE() or MRV_UNREACHABLE("format %d", x): ends the process. Active in every build.
#define MRV_UNREACHABLE(...) ::mrv::internal::ExitSite{ __FILE__, __func__, __LINE__ }.end(__VA_ARGS__)
