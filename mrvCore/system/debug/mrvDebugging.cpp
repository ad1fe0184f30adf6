// mrvCore/system/debug/mrvDebugging.cpp
// Raw output for programmers.
#include "mrvCore/system/debug/mrvDebugging.h"

#include "mrvCore/system/debug/mrvStackWalker.h"

#include <cstdio>

namespace mrv {

void printErrorMessage(const char* text)
{
    // One call, so that the line feed cannot be parted from the text by another thread.
    std::fprintf(stderr, "%s\n", text);
    std::fflush(stderr);
}

void printDebugMessage(const char* text)
{
    printErrorMessage(text);
}

void showCallStack()
{
    StackWalker::ShowCallstack();
}

void debugBreakIf(bool) {}

} // namespace mrv
