// mrvCore/engine/simulationBatch/mrvBatchShare.h
// The batches that one thread of the pool has fetched and not begun.
#pragma once

#include "mrvCore/system/thread/mrvAtomic.h"

#include <algorithm>

namespace mrv {

/// A run of consecutive batches, from which its thread and all others take one at a time.
///
/// To move the counter of a round from processor to processor takes longer than many a batch. So a thread
/// fetches several batches at once, and begins them one by one. Who finds no batch left at the counter takes
/// from the shares of others: none is held up behind a long one, or behind one that waits for it.
/// Threads: one thread fills a share, any may take from it.
class alignas(64) BatchShare
{
public:
    BatchShare() { atomicStoreRelaxed(_run, empty); }

    /// Fetches `wanted` consecutive batches of the `count` of a round from its counter. Returns the first,
    /// which the caller is to begin, and keeps the others; `count` or more where the counter is at its end.
    int fetch(atomic32_t& counter, int count, int wanted)
    {
        // Who finds the counter at its end finds the announcement too, and waits for what is coming.
        atomicStoreRelease(_run, fetching);
        const int first = atomicFetchAddSequentiallyConsistent(counter, wanted);
        const int end = std::min(first + wanted, count);
        atomicStoreRelease(_run, first + 1 < end ? pack(first + 1, end) : empty);
        return first;
    }

    /// A batch to begin, or -1 where there is none.
    int take()
    {
        long run = atomicLoadAcquire(_run);
        for (;;)
        {
            if (run == empty)
                return -1;
            const int first = static_cast<int>(run & 0xFFFFFFFF);
            const int end = static_cast<int>(static_cast<unsigned long>(run) >> 32);
            if (run == fetching)
                run = atomicLoadAcquire(_run);
            else if (internal::compareExchange(_run, run, first + 1 < end ? pack(first + 1, end) : empty,
                                               std::memory_order_acq_rel))
                return first;
        }
    }

private:
    static constexpr long empty = 0;
    static constexpr long fetching = -1;

    static long pack(int first, int end) { return static_cast<long>(end) << 32 | first; }

    atomic64_t _run; ///< end and first; the same run never comes twice in a round, so that exchanges are safe
};

} // namespace mrv
