// mrvCore/system/progress/mrvIProgressListener.h
// Receives the events of processes.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class ProgressEvent;

/// Added to a Progress by addListener, which borrows it: remove it before it dies.
class MRV_CORE_API IProgressListener
{
public:
    virtual ~IProgressListener();

    /// Called on the thread that made the change. The event changes when the process sends the next one, so
    /// copy what is to last.
    virtual void onProgressEvent(const ProgressEvent& event) = 0;
};

} // namespace mrv
