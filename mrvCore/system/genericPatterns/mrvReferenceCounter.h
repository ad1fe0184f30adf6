// mrvCore/system/genericPatterns/mrvReferenceCounter.h
// The count of owners of a shared object.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/thread/mrvAtomic.h"

namespace mrv {

/// Base of a class whose objects are shared: such an object is its own counter (see SmartPointer).
///
/// The count belongs to the object, not to its value: a copy starts at 0 and an assignment keeps both
/// counts as they are. Threads: the count is atomic, everything else is the derived class's concern.
class MRV_CORE_API ReferenceCounter
{
public:
    ReferenceCounter() { atomicStoreRelaxed(_referenceCount, 0); }
    ReferenceCounter(const ReferenceCounter&) : ReferenceCounter() {}
    ReferenceCounter& operator=(const ReferenceCounter&) { return *this; }
    virtual ~ReferenceCounter() = default;

    /// A snapshot; with owners on other threads it may be outdated when it arrives.
    int getReferenceCount() const { return atomicLoadRelaxed(_referenceCount); }

    /// Counts one more owner.
    void incrementReferenceCount() { atomicFetchAddRelaxed(_referenceCount, 1); }

    /// Returns the count that is left. What any owner did before its decrement is visible to the one who
    /// gets 0, so that one may delete.
    int decrementReferenceCount() { return atomicFetchAddSequentiallyConsistent(_referenceCount, -1) - 1; }

private:
    atomic32_t _referenceCount;
};

} // namespace mrv
