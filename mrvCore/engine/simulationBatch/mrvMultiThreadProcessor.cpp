// mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.cpp
// The worker pool of the process.
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"

#include "mrvCore/engine/simulationBatch/mrvWorkerThread.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/memory/mrvLargePages.h"

#include <algorithm>

MRV_DEFINE_SINGLETON(mrv::MultiThreadProcessor)

namespace mrv {

namespace {

constexpr size_t workerStackSize = 0x100000;

/// A look at the barrier takes its mutex, which the workers need on their way there. One that finds it taken
/// goes to sleep, and to wake it again costs more than this.
void pauseBetweenLooks()
{
#ifdef __SSE2__
    for (int i = 0; i < 16; ++i)
        __builtin_ia32_pause();
#endif
}

} // namespace

MultiThreadProcessor* getMultiThreadProcessor()
{
    return Singleton<MultiThreadProcessor>::getInstance();
}

MultiThreadProcessor::MultiThreadProcessor(const char* name)
    : _workerThreadsName(name)
    , _workerThreadCount(0)
    , _logicalCPUsCount(getSupportedConcurrentThreadCount())
    , _someThreadsDied(false)
    , _threadsLaunchFailed(false)
    , _threadedProcessingInProgress(false)
    , _threadsInUse(0)
{
    atomicStoreRelaxed(_threadsDoneCount, 0);
    atomicStoreRelaxed(_stopThreads, 0);
    atomicStoreRelaxed(_currentBatchToProcess, 0);
    atomicStoreRelaxed(_sharesInUse, 0);
}

MultiThreadProcessor::~MultiThreadProcessor()
{
    updateThreadCount(1);
}

void MultiThreadProcessor::init(int threadCount)
{
    if (Log* const log = getLog())
        log->resetTraceCounts();
    updateThreadCount(threadCount);
}

void MultiThreadProcessor::finish()
{
    updateThreadCount(1);
}

void MultiThreadProcessor::processThreadable(ThreadUpdateMethod* method, void* userData, int64_t lastIndex,
                                             int64_t batchSize, Time dt)
{
    ProcessingBatch batch;
    batch._updateMethod = method;
    batch._userData = userData;
    batch._dt = dt;
    batch._blocking = false;
    if (!_mySpinLock.trylock())
    {
        MRV_LOG_LIMITED(SDK, LOG_INFO,
                        "MultiThreadProcessor is already in use, this parts of the processus will be "
                        "executed monothreaded instead of multithreaded.");
        batch._firstIndex = 0;
        batch._lastIndex = lastIndex;
        method(batch);
        return;
    }
    fillBatchQueue(batch, lastIndex, batchSize);
    if (_batchQueueForMultithread.any())
    {
        atomicStoreRelease(_sharesInUse, 0);
        atomicStoreRelease(_currentBatchToProcess, 0);
        launchThreadedUpdate();
        consumeBatchQueueTask(); // the calling thread is one of getThreadCount()
        waitForThreadedUpdateEnd();
        _batchQueueForMultithread.set_capacity(0); // no memory stays between requests
    }
    _mySpinLock.unlock();
}

void MultiThreadProcessor::fillBatchQueue(ProcessingBatch batch, int64_t lastIndex, int64_t batchSize)
{
    if (lastIndex < 0)
        return;
    MRV_ASSERT(batchSize >= 1, "A batch has at least one index, not %lld.",
               static_cast<long long>(batchSize));
    // Unsigned, so that the index behind the last one is never out of range.
    const uint64_t end = static_cast<uint64_t>(lastIndex) + 1;
    const uint64_t step = static_cast<uint64_t>(batchSize);
    _batchQueueForMultithread.reserve((end - 1) / step + 1);
    internal::adviseLargePages(_batchQueueForMultithread.begin(),
                               _batchQueueForMultithread.capacity() * sizeof(ProcessingBatch));
    for (uint64_t first = 0; first < end; first += step)
    {
        batch._firstIndex = static_cast<int64_t>(first);
        batch._lastIndex = static_cast<int64_t>(first + std::min(step, end - first) - 1);
        _batchQueueForMultithread.push_back(batch);
    }
}

void MultiThreadProcessor::consumeBatchQueueTask()
{
    // Read once: the queue does not change during a round.
    ProcessingBatch* const batches = _batchQueueForMultithread.begin();
    const int count = _batchQueueForMultithread.sizeInt();
    const int shareIndex = atomicFetchAddSequentiallyConsistent(_sharesInUse, 1);
    BatchShare* const own = _shares && shareIndex < getThreadCount() ? &_shares[shareIndex] : nullptr;
    int index;
    while ((index = takeBatch(own, count)) >= 0)
        batches[index]._updateMethod(batches[index]);
}

int MultiThreadProcessor::takeBatch(BatchShare* own, int count)
{
    const int ready = own != nullptr ? own->take() : -1;
    if (ready >= 0)
        return ready;
    const int left = count - atomicLoadAcquire(_currentBatchToProcess);
    if (left > 0)
    {
        // A good part of what is left, as neighbours are best treated by one thread, and ever fewer.
        const int wanted = std::max(left / (2 * getThreadCount()), 1);
        const int index = own != nullptr ? own->fetch(_currentBatchToProcess, count, wanted)
                                         : fetchAndIncrementIndexOfBatchToProcess();
        if (index < count)
            return index;
    }
    for (int i = 0; _shares && i < getThreadCount(); ++i)
    {
        const int foreign = _shares[i].take();
        if (foreign >= 0)
            return foreign;
    }
    return -1;
}

void MultiThreadProcessor::launchThreadedUpdate()
{
    // Workers that died are not replaced; waiting for them, below, does not end.
    if (atomicLoadAcquireBool(_someThreadsDied))
        atomicStoreReleaseBool(_someThreadsDied, false);
    _threadsLaunchFailed = false;
    if (_workerThreadCount == 0)
        return;
    resetThreadDoneCount();
    waitForThreadedUpdateReady();
    if (!_launchUpdateProcessBarrier.launch())
        _threadsLaunchFailed = true;
    _threadedProcessingInProgress = true;
}

void MultiThreadProcessor::waitForThreadedUpdateReady()
{
    if (_workerThreadCount == 0)
        return;
    const unsigned int workerCount = static_cast<unsigned int>(_workerThreadCount);
    while (_launchUpdateProcessBarrier.getCurrentThreadsWaiting() != workerCount)
        pauseBetweenLooks();
}

void MultiThreadProcessor::waitForThreadedUpdateEnd()
{
    // After a failed launch no worker runs: the calling thread has done all by itself.
    if (_workerThreadCount == 0 || _threadsLaunchFailed)
        return;
    while (getThreadDoneCount() != _workerThreadCount)
    {}
    _threadedProcessingInProgress = false;
}

void MultiThreadProcessor::updateThreadCount(int threadCount)
{
    if (getThreadCount() == threadCount)
        return;
    closeWorkerThreads();
    if (threadCount >= 2)
        setupWorkerThreads(threadCount, workerStackSize);
}

void MultiThreadProcessor::setupWorkerThreads(int threadCount, size_t stackSize)
{
    closeWorkerThreads(); // their definitions give way to new ones
    atomicStoreRelease(_stopThreads, 0);
    _threadsInUse = 0;
    if (threadCount < 1 || threadCount > _logicalCPUsCount)
        MRV_LOG(SDK, LOG_ERROR,
                "Cannot set Maravo Engine worker threads number below 1 or above logical CPUs of the "
                "computer, bounding value "
                    << threadCount << " to [1," << _logicalCPUsCount
                    << "]. Note : ThreadCount includes main thread.");
    const int boundedCount = std::min(threadCount, _logicalCPUsCount);
    if (boundedCount < 2)
        return;
    _workerThreads.clear(); // a definition that the system refused cannot be used again
    _workerThreads.resize(static_cast<size_t>(boundedCount - 1));
    _shares = std::make_unique<BatchShare[]>(static_cast<size_t>(boundedCount));
    for (threaddef_t& worker : _workerThreads)
    {
        if (!createThread(worker, WorkerThread::startRoutine, this, stackSize))
        {
            MRV_LOG(SDK, LOG_ERROR, "Could not create new thread. See last error message.");
            break;
        }
        ++_workerThreadCount;
    }
}

void MultiThreadProcessor::closeWorkerThreads()
{
    if (_workerThreadCount == 0)
        return;
    waitForThreadedUpdateReady();
    atomicStoreRelease(_stopThreads, 1);
    if (!_launchUpdateProcessBarrier.launch())
        MRV_LOG(SDK, LOG_ERROR, "Unable to launch stop thread signal, undefined behavior may follow.");
    for (int i = 0; i < _workerThreadCount; ++i)
        joinThread(_workerThreads[static_cast<size_t>(i)]);
    _workerThreadCount = 0;
    _workerThreads.set_capacity(0);
    _shares.reset();
}

} // namespace mrv
