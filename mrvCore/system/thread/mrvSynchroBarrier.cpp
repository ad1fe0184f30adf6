// mrvCore/system/thread/mrvSynchroBarrier.cpp
// A place where threads wait for each other, or for a launch.
#include "mrvCore/system/thread/mrvSynchroBarrier.h"

#include "mrvCore/system/debug/mrvAssert.h"

namespace mrv {

const unsigned int SynchroBarrier::_timeOut = 0xffffffffu;

SynchroBarrier::SynchroBarrier() : _threadCount(0), _currentThreadsWaiting(0), _condIndex(0)
{
    pthread_cond_init(&_condition[0], nullptr);
    pthread_cond_init(&_condition[1], nullptr);
    pthread_mutex_init(&_mutex, nullptr);
}

SynchroBarrier::~SynchroBarrier()
{
    pthread_cond_destroy(&_condition[0]);
    pthread_cond_destroy(&_condition[1]);
    pthread_mutex_destroy(&_mutex);
}

void SynchroBarrier::setThreadCount(unsigned int threadCount)
{
    lock();
    MRV_ASSERT(_currentThreadsWaiting == 0,
               "Barrier thread count can only be set, via setThreadCount, when not currently waiting.");
    _threadCount = threadCount;
    unlock();
}

unsigned int SynchroBarrier::getCurrentThreadsWaiting()
{
    if (!lock())
        return 0;
    const unsigned int waiting = _currentThreadsWaiting;
    unlock();
    return waiting;
}

bool SynchroBarrier::wait()
{
    lock();
    ++_currentThreadsWaiting;
    // With a count of 0 the subtraction wraps: no thread is the last.
    const bool result = _currentThreadsWaiting > _threadCount - 1
                            ? internal_launch()
                            : pthread_cond_wait(&_condition[_condIndex], &_mutex) == 0;
    unlock();
    return result;
}

bool SynchroBarrier::launch()
{
    if (!lock())
        return false;
    const bool result = internal_launch();
    unlock();
    return result;
}

bool SynchroBarrier::lock()
{
    return pthread_mutex_lock(&_mutex) == 0;
}

bool SynchroBarrier::unlock()
{
    return pthread_mutex_unlock(&_mutex) == 0;
}

bool SynchroBarrier::internal_launch()
{
    _currentThreadsWaiting = 0;
    const bool result = pthread_cond_broadcast(&_condition[_condIndex]) == 0;
    _condIndex = 1 - _condIndex;
    return result;
}

} // namespace mrv
