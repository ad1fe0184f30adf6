// mrvCore/system/genericPatterns/mrvSmartPointer.h
// Shared ownership of an object by count.
#pragma once

#include "mrvCore/system/genericPatterns/mrvReferenceCounter.h"

#include <type_traits>
#include <utility>

namespace mrv {

/// One of several owners of a `T`; the last owner, and only the last, deletes it.
///
/// A `T` that derives from ReferenceCounter counts for itself: new owners may be made from its plain
/// pointer at any time. Any other `T` gets a counter of its own on the heap, which dies with it; its plain
/// pointer is handed over once, and further owners are copies of the first. Owners in a ring keep each
/// other alive for ever; a long chain of owners is destroyed link in link, by recursion.
/// Threads: owners of one object may live on several threads; one owner belongs to one thread at a time.
template <typename T>
class SmartPointer
{
public:
    SmartPointer() = default;

    /// Takes (a share of) the ownership; null makes an empty pointer without a counter.
    SmartPointer(T* pointee) : _pointee(pointee)
    {
        setReferenceCounter(_referenceCounter, pointee);
        increaseCounter();
    }

    SmartPointer(const SmartPointer& other)
        : _referenceCounter(other._referenceCounter)
        , _pointee(other._pointee)
    {
        increaseCounter();
    }

    virtual ~SmartPointer() { decreaseCounter(); }

    /// Safe also when `other` lives inside the object that this one lets go of, as in `p = p->next`.
    SmartPointer& operator=(const SmartPointer& other)
    {
        SmartPointer former(other);
        std::swap(_referenceCounter, former._referenceCounter);
        std::swap(_pointee, former._pointee);
        return *this;
    }

    T* operator->() const { return _pointee; }
    T& operator*() const { return *_pointee; }
    bool operator!() const { return _pointee == nullptr; }
    operator void*() const { return _pointee; }

    /// The object itself, still owned by its owners; null for an empty pointer.
    T* getImpl() const { return _pointee; }

    /// Number of owners; 0 for an empty pointer.
    int getReferenceCount() const
    {
        return _referenceCounter == nullptr ? 0 : _referenceCounter->getReferenceCount();
    }

private:
    static constexpr bool countsForItself() { return std::is_base_of_v<ReferenceCounter, T>; }

    static void setReferenceCounter(ReferenceCounter*& counter, T* pointee)
    {
        if (pointee == nullptr)
            counter = nullptr;
        else if constexpr (countsForItself())
            counter = pointee;
        else
            counter = new ReferenceCounter;
    }

    void increaseCounter()
    {
        if (_referenceCounter != nullptr)
            _referenceCounter->incrementReferenceCount();
    }

    void decreaseCounter()
    {
        if (_referenceCounter == nullptr)
            return;
        const int ownersLeft = _referenceCounter->decrementReferenceCount();
        atomicThreadFenceAcquire();
        if (ownersLeft != 0)
            return;

        ReferenceCounter* counter = std::exchange(_referenceCounter, nullptr);
        delete _pointee;
        if constexpr (!countsForItself())
            delete counter;
        _pointee = nullptr;
    }

    ReferenceCounter* _referenceCounter = nullptr;
    T* _pointee = nullptr;
};

} // namespace mrv
