// mrvCore/system/progress/mrvPerfAnalysisSocketConnectionThread.h
// The thread that sends performance events.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// What the sending thread runs.
struct MRV_CORE_API PerfAnalysisSocketConnectionThread
{
    /// `manager` is the borrowed PerfAnalysisManager; null is fatal.
    static void startRoutine(void* manager);
};

} // namespace mrv
