// mrvCore/system/thread/mrvTaskBase.h
// A unit of long-running work with its own thread, see startTask and stopTask.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>

namespace mrv {

/// Derive from it, start with startTask, end with stopTask. The owner keeps it alive in between.
class MRV_CORE_API TaskBase
{
public:
    /// For tasks without needs of their own.
    static const size_t s_defaultStackSizeInBytes;

    TaskBase() = default;
    virtual ~TaskBase();

    TaskBase(const TaskBase&) = delete;
    TaskBase& operator=(const TaskBase&) = delete;

    /// The work, on the task's thread; returns soon after a requestStopTask.
    virtual void runTask() = 0;

    /// Called from another thread than the task's own.
    virtual void requestStopTask() = 0;

    /// Any thread may ask.
    virtual bool isRunningTask() = 0;

    /// In bytes, for createThread. The default size here.
    virtual size_t getRequiredStackSize();
};

} // namespace mrv
