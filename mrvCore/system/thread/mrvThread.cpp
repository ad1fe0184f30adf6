// mrvCore/system/thread/mrvThread.cpp
// Creates, joins and yields threads of the operating system.
#include "mrvCore/system/thread/mrvThread.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/thread/mrvTaskBase.h"
#include "mrvCore/system/time/mrvSleep.h"

#include <sched.h>
#include <unistd.h>

namespace mrv {

namespace {

void* trampoline(void* definition)
{
    const threaddef_t& threadDef = *static_cast<const threaddef_t*>(definition);
    threadDef._start_routine(threadDef._arg);
    return nullptr;
}

void runTask(void* task)
{
    TaskBase* taskToStart = static_cast<TaskBase*>(task);
    MRV_ASSERT(taskToStart != NULL);
    taskToStart->runTask();
}

} // namespace

bool createThread(threaddef_t& threadDef, threadroutine_t routine, void* arg, size_t stackSize)
{
    MRV_ASSERT(threadDef._arg == NULL);
    threadDef._start_routine = routine;
    threadDef._arg = arg;
    threadDef._stackSize = stackSize;

    // The attributes only try the size: they are neither passed on nor destroyed (they own nothing),
    // and workers have the system's default stack.
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0 || pthread_attr_setstacksize(&attributes, stackSize) != 0)
        return false;

    const int result = pthread_create(&threadDef._pthread, nullptr, trampoline, &threadDef);
    if (result != 0)
    {
        MRV_LOG(SDK, LOG_ERROR, "pthread_create return code: " << result);
        return false;
    }
    threadDef._threadId._id = threadDef._pthread;
    return true;
}

bool joinThread(threaddef_t& threadDef)
{
    // The platform call must not see the id of a thread that never was.
    if (convertThreadId(threadDef._threadId) == 0 || pthread_join(threadDef._pthread, nullptr) != 0)
        return false;
    resetThreadId(threadDef._threadId);
    threadDef._arg = nullptr;
    return true;
}

void resetThreadId(threadid_t& threadId)
{
    threadId._id = 0;
}

uint64_t convertThreadId(threadid_t threadId)
{
    return threadId._id;
}

bool startTask(threaddef_t& threadDef, TaskBase* task)
{
    return createThread(threadDef, runTask, task, task->getRequiredStackSize());
}

bool stopTask(threaddef_t& threadDef, TaskBase* task)
{
    task->requestStopTask();
    return joinThread(threadDef);
}

void yieldCurrentThread()
{
    sched_yield();
}

void sleepCurrentThread(unsigned int milliseconds)
{
    mrv::sleep(milliseconds);
}

int getSupportedConcurrentThreadCount()
{
    const long availableCpuCount = sysconf(_SC_NPROCESSORS_ONLN);
    MRV_ASSERT(availableCpuCount >= 0);
    return static_cast<int>(availableCpuCount);
}

} // namespace mrv
