// mrvCore/system/debug/mrvStackWalker.h
// Prints the call stack on the way to a fatal end.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Reads the stack of the calling thread.
class MRV_CORE_API StackWalker
{
public:
    /// Prints how many return addresses there are (100 at most), then one line per address,
    /// to the standard error stream. Ends the process with exit(1) if they cannot be resolved.
    static void ShowCallstack();
};

} // namespace mrv
