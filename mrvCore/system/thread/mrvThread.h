// mrvCore/system/thread/mrvThread.h
// Creates, joins and yields threads of the operating system.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>
#include <cstdint>

#include <pthread.h>

namespace mrv {

class TaskBase;

/// Identity of a running thread; 0 after resetThreadId.
struct threadid_t
{
    pthread_t _id = 0;
};

/// What a new thread runs.
using threadroutine_t = void (*)(void*);

/// Definition of one thread. Must stay at its place from createThread to joinThread.
struct threaddef_t
{
    pthread_t _pthread = 0;
    threadroutine_t _start_routine = nullptr;
    void* _arg = nullptr;  ///< borrowed; set while the definition is in use
    size_t _stackSize = 0; ///< in bytes, recorded only
    threadid_t _threadId;
};

/// Starts a thread that calls routine(arg). True on success.
///
/// The definition must be new or joined: its `_arg` must be null. The stack size in bytes is recorded, and
/// one that the system refuses gives false, but the thread runs with the system's default stack. A thread
/// that cannot be made is logged; its definition keeps `_arg`. The routine must not let an exception escape.
MRV_CORE_API bool createThread(threaddef_t& threadDef, threadroutine_t routine, void* arg, size_t stackSize);

/// Waits for the end of the thread; the definition can then be used again. False without a thread.
MRV_CORE_API bool joinThread(threaddef_t& threadDef);

/// Makes it the id of no thread.
MRV_CORE_API void resetThreadId(threadid_t& threadId);

/// The id as an integer, 0 for none.
MRV_CORE_API uint64_t convertThreadId(threadid_t threadId);

/// Starts a thread that calls runTask of the borrowed task. False as for createThread.
MRV_CORE_API bool startTask(threaddef_t& threadDef, TaskBase* task);

/// Requests the task to stop and waits for its thread. False as for joinThread.
MRV_CORE_API bool stopTask(threaddef_t& threadDef, TaskBase* task);

/// Lets another thread run; every spin of the library calls it after each failure.
MRV_CORE_API void yieldCurrentThread();

/// Sleeps; an interruption by a signal ends it early.
MRV_CORE_API void sleepCurrentThread(unsigned int milliseconds);

/// Number of processors online.
MRV_CORE_API int getSupportedConcurrentThreadCount();

} // namespace mrv
