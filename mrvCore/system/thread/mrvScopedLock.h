// mrvCore/system/thread/mrvScopedLock.h
// Holds a lock for the length of a block.
#pragma once

namespace mrv {

/// Locks a borrowed SpinLock or Mutex at construction and unlocks it at destruction, on every way out.
template <class T>
class ScopedLock
{
public:
    explicit ScopedLock(T& locked) : _locked(&locked) { _locked->lock(); }
    ~ScopedLock() { _locked->unlock(); }

    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;

private:
    T* _locked;
};

} // namespace mrv
