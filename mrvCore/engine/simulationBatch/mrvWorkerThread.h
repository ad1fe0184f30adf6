// mrvCore/engine/simulationBatch/mrvWorkerThread.h
// The life of one worker of the pool.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// What a worker runs from its creation to its end.
class MRV_CORE_API WorkerThread
{
public:
    /// Rests on the pool's barrier, takes part in each round that is launched, and ends when the pool says
    /// so. `pool` is the borrowed MultiThreadProcessor; null is fatal.
    static void startRoutine(void* pool);
};

/// Names the calling thread for debuggers and process lists; the system keeps 15 characters.
MRV_CORE_API void SetThreadName(const char* name);

} // namespace mrv
