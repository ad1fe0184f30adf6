// mrvCore/system/debug/mrvAssert.cpp
// The two fatal ends.
#include "mrvCore/system/debug/mrvAssert.h"

#include "mrvCore/system/debug/mrvDebugging.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/utils/mrvCharOperators.h"

#include <csignal>
#include <cstdarg>
#include <cstdlib>

namespace mrv {

namespace {

#ifdef MRV_FUZZ_BUILD
void (*fatalEndHook)() = nullptr;
#endif

struct Site
{
    const char* expression; ///< null for a place that must not be reached
    const char* file;
    const char* function;
    int line;
};

void logFailure(const Site& site, const char* text)
{
    // The last resort: a logger that throws must not keep the process from ending.
    try
    {
        Log* log = getLog();
        if (log != nullptr && log->mustLog(Log::SDK, Log::LOG_ERROR))
            log->trace(Log::SDK, Log::LOG_ERROR, text, site.file, site.line, site.function);
    }
    catch (...)
    {}
}

__attribute__((format(printf, 2, 0))) void output(const Site& site, const char* format, va_list arguments)
{
    constexpr int size = 2048;
    char buffer[size] = {};
    int length = 0;
    if (site.expression != nullptr)
        length = sprintfSafe(buffer, size, "%s(%d) : %s\n\nMaravo assert failed: %s\n", site.file, site.line,
                             site.function, site.expression);
    else
        length =
            sprintfSafe(buffer, size, "%s(%d) : %s\n\nMaravo exit:\n", site.file, site.line, site.function);
    if (length >= 1 && length <= size - 2 && format != nullptr)
        vsprintfSafe(buffer + length, static_cast<size_t>(size - length), format, arguments);

    printErrorMessage(buffer);
    logFailure(site, buffer);
}

} // namespace

void assertFailedOutput(const char* expression, const char* file, const char* function, unsigned int line,
                        const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    output({ expression, file, function, static_cast<int>(line) }, format, arguments);
    va_end(arguments);
}

void assertFailedOutput(const char* expression, const char* file, const char* function, unsigned int line)
{
    assertFailedOutput(expression, file, function, line, nullptr);
}

void exitOutput(const char* file, const char* function, unsigned int line, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    output({ nullptr, file, function, static_cast<int>(line) }, format, arguments);
    va_end(arguments);
}

void fatalEnd()
{
#ifdef MRV_FUZZ_BUILD
    if (fatalEndHook != nullptr)
        fatalEndHook();
#endif
    showCallStack();
    std::raise(SIGTRAP);
    std::exit(-1);
}

#ifdef MRV_FUZZ_BUILD
void setFatalEndHook(void (*hook)())
{
    fatalEndHook = hook;
}
#endif

void internal::ExitSite::end() const
{
    exitOutput(file, function, line, nullptr);
    fatalEnd();
}

void internal::ExitSite::end(const char* format, ...) const
{
    va_list arguments;
    va_start(arguments, format);
    output({ nullptr, file, function, static_cast<int>(line) }, format, arguments);
    va_end(arguments);
    fatalEnd();
}

} // namespace mrv
