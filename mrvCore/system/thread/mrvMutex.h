// mrvCore/system/thread/mrvMutex.h
// Lock that lets waiting threads sleep.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Mutual exclusion for sections that may last. Any thread; not re-entrant. Costs one allocation.
class MRV_CORE_API Mutex
{
public:
    Mutex();
    ~Mutex();

    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    /// Throws std::system_error if the platform call fails.
    void lock();
    /// Takes the mutex if it is free; never waits.
    bool trylock();
    /// On the thread that holds it.
    void unlock();

private:
    struct mutex_type;

    mutex_type* _mutex; ///< owned
};

} // namespace mrv
