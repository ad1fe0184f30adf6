// mrvCore/system/debug/mrvDebugging.h
// Raw output for programmers: it works before the log exists and after it is gone.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Writes the text and a line feed to the standard error stream and flushes it. Any thread.
MRV_CORE_API void printErrorMessage(const char* text);

/// The same as printErrorMessage; ConsoleLogger writes through it.
MRV_CORE_API void printDebugMessage(const char* text);

/// Prints the stack of the calling thread to the standard error stream, see StackWalker.
MRV_CORE_API void showCallStack();

/// A place for a breakpoint: does nothing.
MRV_CORE_API void debugBreakIf(bool condition);

} // namespace mrv
