// mrvCore/engine/simulationBatch/mrvWorkerThread.cpp
// The life of one worker of the pool.
#include "mrvCore/engine/simulationBatch/mrvWorkerThread.h"

#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <sys/prctl.h>

namespace mrv {

void WorkerThread::startRoutine(void* pool)
{
    MultiThreadProcessor* const multiThreadProcessor = static_cast<MultiThreadProcessor*>(pool);
    MRV_ASSERT(multiThreadProcessor != NULL);
    while (multiThreadProcessor->_launchUpdateProcessBarrier.wait())
    {
        if (atomicLoadAcquire(multiThreadProcessor->_stopThreads) != 0)
            return;
        multiThreadProcessor->consumeBatchQueueTask();
        multiThreadProcessor->incrementThreadDoneCount(); // in each round, also without a batch
    }
    MRV_LOG_LIMITED(SDK, LOG_INFO,
                    "Maravo Engine Thread issue : unable to get a launch signal in the given time "
                    "(default to infinite).");
    atomicStoreReleaseBool(multiThreadProcessor->_someThreadsDied, true);
}

void SetThreadName(const char* name)
{
    prctl(PR_SET_NAME, name, 0, 0, 0);
}

} // namespace mrv
