// mrvCore/system/thread/mrvMutex.cpp
// Lock that lets waiting threads sleep.
#include "mrvCore/system/thread/mrvMutex.h"

#include <mutex>

namespace mrv {

struct Mutex::mutex_type
{
    std::mutex _impl;
};

Mutex::Mutex() : _mutex(new mutex_type) {}

Mutex::~Mutex()
{
    delete _mutex;
}

void Mutex::lock()
{
    _mutex->_impl.lock();
}

bool Mutex::trylock()
{
    return _mutex->_impl.try_lock();
}

void Mutex::unlock()
{
    _mutex->_impl.unlock();
}

} // namespace mrv
