// mrvCore/system/thread/mrvSynchroBarrier.h
// A place where threads wait for each other, or for a launch.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <pthread.h>

namespace mrv {

/// Barrier that is used round after round.
///
/// The thread that makes the count full releases the others; with a count of 0 only launch() releases them.
/// Two condition variables alternate, so that a thread that is released and comes back waits on the other
/// one and is not caught by the broadcast still under way. Any thread; destroy it when nobody waits.
class MRV_CORE_API SynchroBarrier
{
public:
    SynchroBarrier();
    ~SynchroBarrier();

    SynchroBarrier(const SynchroBarrier&) = delete;
    SynchroBarrier& operator=(const SynchroBarrier&) = delete;

    /// How many threads make a full round; 0 for as many as come until launch(). Fatal while a thread waits.
    void setThreadCount(unsigned int threadCount);

    /// Threads waiting now; 0 on a failure of the mutex.
    unsigned int getCurrentThreadsWaiting();

    /// Waits for the end of the round, without a time limit; a wake-up counts as the launch.
    /// False on a failure.
    bool wait();

    /// Ends the round for those who wait now. False on a failure.
    bool launch();

    /// @{
    /// Hold and release what guards the barrier, so that nobody arrives or leaves. False on a failure.
    bool lock();
    bool unlock();
    /// @}

private:
    bool internal_launch();

    static const unsigned int _timeOut; ///< declared for callers that will want a limit; no wait has one

    unsigned int _threadCount;
    unsigned int _currentThreadsWaiting;
    unsigned int _condIndex; ///< which condition the current round waits on
    pthread_mutex_t _mutex;
    pthread_cond_t _condition[2];
};

} // namespace mrv
