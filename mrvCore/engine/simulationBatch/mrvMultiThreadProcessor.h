// mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h
// The worker pool of the process.
#pragma once

#include "mrvCore/engine/simulationBatch/mrvBatchShare.h"
#include "mrvCore/engine/simulationBatch/mrvProcessingBatch.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvSingleton.h"
#include "mrvCore/system/thread/mrvSpinLock.h"
#include "mrvCore/system/thread/mrvSynchroBarrier.h"
#include "mrvCore/system/thread/mrvThread.h"

#include <memory>

namespace mrv {

/// Cuts a range of indices into batches and runs them on its workers and on the calling thread.
///
/// Batches are handed out through an atomic counter to whoever is free. A thread fetches a few at a time and
/// begins them one by one, and threads that find none left take what others have not begun. Nothing is said
/// of the order in which batches begin and end. Workers sleep on a barrier between rounds.
/// Threads: any thread may call processThreadable; the pool serves one request at a time, and a second one
/// runs alone on its caller's thread. Everything that changes the number of threads takes no lock: it must
/// not run during a round.
class MRV_CORE_API MultiThreadProcessor
{
public:
    /// A pool without workers, whose requests the calling thread does alone.
    explicit MultiThreadProcessor(const char* name);
    virtual ~MultiThreadProcessor();

    MultiThreadProcessor(const MultiThreadProcessor&) = delete;
    MultiThreadProcessor& operator=(const MultiThreadProcessor&) = delete;

    /// Starts the workers, and forgets the repeats of limited log messages so that they print again.
    virtual void init(int threadCount);

    /// Ends the workers.
    virtual void finish();

    /// Calls `method` on batches of `batchSize` indices, from 0 to `lastIndex` inclusive, and returns when
    /// all are done. The last batch may be shorter; a negative lastIndex makes no batch.
    ///
    /// `batchSize` is at least 1, else this is fatal. The method reads `userData` and `dt` from its batch.
    /// While the pool is busy, and so in every call from inside a method, the method is called once for the
    /// whole range, even for an empty one.
    void processThreadable(ThreadUpdateMethod* method, void* userData, int64_t lastIndex, int64_t batchSize,
                           Time dt);

    /// The workers and the calling thread.
    int getThreadCount() const { return _workerThreadCount + 1; }
    /// Processors online when the pool was made.
    int getLogicalCPUsCount() const { return _logicalCPUsCount; }
    const MrvString& getThreadsName() const { return _workerThreadsName; }

    /// Ends the workers and starts others, unless the count is the same already; below 2 there are none.
    void updateThreadCount(int threadCount);

    /// Starts `threadCount` - 1 workers in place of those that run. A count outside of 1 to
    /// getLogicalCPUsCount() is logged; below 1 there are no workers, above it counts as the limit. A thread
    /// that the system refuses is logged, and the pool goes on with fewer.
    void setupWorkerThreads(int threadCount, size_t stackSize);

    /// Waits until every worker rests, then ends them all.
    void closeWorkerThreads();

    /// @{
    /// The steps of a round, for callers that put one together themselves. A wait is a pure spin, since
    /// rounds are short: without workers it returns at once, and a worker lost for good holds it for ever.
    void launchThreadedUpdate();
    void waitForThreadedUpdateReady();
    void waitForThreadedUpdateEnd();
    /// @}

    /// Takes and runs batches until none is left that nobody has begun.
    void consumeBatchQueueTask();

    /// The next batch that nobody has fetched; beyond the last where there is none.
    int fetchAndIncrementIndexOfBatchToProcess()
    {
        return atomicFetchAddSequentiallyConsistent(_currentBatchToProcess, 1);
    }
    /// Workers that have finished the current round.
    int getThreadDoneCount() const { return atomicLoadAcquire(_threadsDoneCount); }
    /// For a worker that has finished.
    void incrementThreadDoneCount() { atomicFetchAddSequentiallyConsistent(_threadsDoneCount, 1); }
    /// Before a round.
    void resetThreadDoneCount() { atomicStoreRelease(_threadsDoneCount, 0); }

private:
    friend class WorkerThread;

    void fillBatchQueue(ProcessingBatch batch, int64_t lastIndex, int64_t batchSize);
    /// A batch to begin; -1 where none is left.
    int takeBatch(BatchShare* own, int count);

    atomic32_t _threadsDoneCount;
    MrvString _workerThreadsName;
    int _workerThreadCount;
    Array<threaddef_t> _workerThreads; ///< never grows while threads run on its elements
    atomic32_t _stopThreads;           ///< 1 tells workers to leave
    int _logicalCPUsCount;
    SynchroBarrier _launchUpdateProcessBarrier; ///< its thread count stays 0, so only a launch releases it
    bool _someThreadsDied;                      ///< written by workers: by atomic operations only
    bool _threadsLaunchFailed;
    bool _threadedProcessingInProgress;
    Array<ProcessingBatch> _batchQueueForMultithread;
    std::unique_ptr<BatchShare[]> _shares;         ///< one a thread, the calling thread's first
    alignas(64) atomic32_t _currentBatchToProcess; ///< on a cache line of its own: all threads fight for it
    atomic32_t _sharesInUse;                       ///< of the current round
    SpinLock _mySpinLock;                          ///< held by the one request that the pool serves
    int _threadsInUse;
};

/// The pool between start and stop of the library, else null. Takes no lock: it does not change meanwhile.
MRV_CORE_API MultiThreadProcessor* getMultiThreadProcessor();

} // namespace mrv

MRV_DECLARE_SINGLETON(mrv::MultiThreadProcessor)
