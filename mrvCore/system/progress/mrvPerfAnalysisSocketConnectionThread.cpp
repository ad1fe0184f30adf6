// mrvCore/system/progress/mrvPerfAnalysisSocketConnectionThread.cpp
// The thread that sends performance events.
#include "mrvCore/system/progress/mrvPerfAnalysisSocketConnectionThread.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

namespace mrv {

void PerfAnalysisSocketConnectionThread::startRoutine(void* manager)
{
    PerfAnalysisManager* const perfMgr = static_cast<PerfAnalysisManager*>(manager);
    MRV_ASSERT(perfMgr != NULL);
    perfMgr->socketCommunicationThreadMain();
}

} // namespace mrv
