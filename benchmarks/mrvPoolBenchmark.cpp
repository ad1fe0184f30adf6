// benchmarks/mrvPoolBenchmark.cpp
// Index ranges run in batches by our pool, by oneTBB with batches of the same size, and by one thread; the
// hand-over between two threads that bounds short rounds; and what an event costs the thread that adds it.
//   cheap_1e6_grain_G   a multiplication, a shift and an exclusive or an index, batches of G
//   work_1e4_grain_16   about half a microsecond an index
//   rounds_1000_of_R    1000 times a range of R cheap indices in batches of 1; the time of one round
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <tbb/blocked_range.h>
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#include <tbb/partitioner.h>

using namespace mrvBenchmark;

namespace {

constexpr int64_t cheapCount = 1000000;
constexpr int64_t workCount = 10000;
constexpr int roundCount = 1000;

/// Treats the indices from `begin` to below `end`. Never inlined, so that all peers run the same code.
using Body = void (*)(uint32_t* out, int64_t begin, int64_t end);

[[gnu::noinline]] void cheapBatch(uint32_t* out, int64_t begin, int64_t end)
{
    for (int64_t i = begin; i < end; ++i)
    {
        const uint32_t x = uint32_t(i);
        out[i] = x * 2654435761u ^ (x >> 7);
    }
}

[[gnu::noinline]] void workBatch(uint32_t* out, int64_t begin, int64_t end)
{
    for (int64_t i = begin; i < end; ++i)
    {
        uint32_t x = uint32_t(i) + 1;
        for (int k = 0; k < 256; ++k)
        {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
        }
        out[i] = x;
    }
}

/// `forRange(body, out, count, grain)` runs the body on all of the range in batches of `grain`.
template <class ForRange>
void addPeer(const std::string& peer, ForRange forRange)
{
    const auto addRange = [=](const std::string& name, Body body, int64_t count, int64_t grain) {
        add("pool/" + peer + "/" + name, [=](State& state) {
            std::vector<uint32_t> out(static_cast<size_t>(count));
            for (auto _ : state)
            {
                forRange(body, out.data(), count, grain);
                benchmark::ClobberMemory();
            }
            time(state);
        })->UseRealTime();
    };
    for (int64_t grain : { 1, 64, 4096 })
        addRange("cheap_1e6_grain_" + std::to_string(grain), cheapBatch, cheapCount, grain);
    addRange("work_1e4_grain_16", workBatch, workCount, 16);
    for (int64_t range : { 2, 8, 64 })
        add("pool/" + peer + "/rounds_1000_of_" + std::to_string(range), [=](State& state) {
            std::vector<uint32_t> out(static_cast<size_t>(range));
            for (auto _ : state)
                for (int round = 0; round < roundCount; ++round)
                {
                    forRange(cheapBatch, out.data(), range, int64_t(1));
                    benchmark::ClobberMemory();
                }
            perItem(state, roundCount, "us/round", 1e6);
        })->UseRealTime();
}

struct PoolJob
{
    Body body;
    uint32_t* out;
};

void runJob(mrv::ProcessingBatch& batch)
{
    const PoolJob& job = *static_cast<const PoolJob*>(batch._userData);
    job.body(job.out, batch._firstIndex, batch._lastIndex + 1);
}

/// Two threads that wake each other by a condition variable, there and back.
void handOver(State& state)
{
    std::mutex mutex;
    std::condition_variable condition;
    int turn = 0; // odd for the other thread
    bool isOver = false;
    std::thread other([&] {
        std::unique_lock<std::mutex> lock(mutex);
        for (;;)
        {
            condition.wait(lock, [&] { return turn % 2 == 1 || isOver; });
            if (isOver)
                return;
            ++turn;
            condition.notify_one();
        }
    });
    for (auto _ : state)
    {
        std::unique_lock<std::mutex> lock(mutex);
        ++turn;
        condition.notify_one();
        condition.wait(lock, [&] { return turn % 2 == 0; });
    }
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isOver = true;
        condition.notify_one();
    }
    other.join();
    perItem(state, 1, "us/round", 1e6);
}

/// A server on a port of the loopback address that reads what comes and throws it away.
class Profiler
{
public:
    Profiler() : _listener(socket(AF_INET, SOCK_STREAM, 0))
    {
        _address.sin_family = AF_INET;
        _address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(_address);
        bind(_listener, reinterpret_cast<sockaddr*>(&_address), size);
        getsockname(_listener, reinterpret_cast<sockaddr*>(&_address), &size);
        listen(_listener, 1);
        _reader = std::thread([this] {
            const int connection = accept(_listener, nullptr, nullptr);
            char text[65536];
            while (recv(connection, text, sizeof(text), 0) > 0)
            {}
            close(connection);
        });
    }
    ~Profiler()
    {
        shutdown(_listener, SHUT_RDWR);
        _reader.join();
        close(_listener);
    }
    Profiler(const Profiler&) = delete;
    Profiler& operator=(const Profiler&) = delete;

    unsigned short getPort() const { return ntohs(_address.sin_port); }

private:
    int _listener;
    sockaddr_in _address = {};
    std::thread _reader;
};

using Manager = mrv::PerfAnalysisManager;

constexpr int eventsPerFrame = 1000;

/// Seconds for the events of one frame. The sending thread has time to take them afterwards.
double addFrame(Manager& manager)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < eventsPerFrame; ++i)
        manager.addEvent(Manager::Event(Manager::EventType::PERF, "updateSkeletons", i, uint32_t(i), 1.5,
                                        Manager::EventUnit::MILLISECOND, 0));
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return elapsed.count();
}

/// Events made and added frame after frame while they are sent.
void addEvents(State& state)
{
    const Profiler profiler;
    Manager manager;
    manager.setWakeIntervals(1);
    manager.setServer("127.0.0.1", profiler.getPort());
    for (int frame = 0; frame < 10; ++frame) // both buffers have their room then
        addFrame(manager);
    for (auto _ : state)
        state.SetIterationTime(addFrame(manager));
    perItem(state, eventsPerFrame, "ns/event");
    manager.finish();
}

/// The first frame, which pays for the growth of the buffer.
void addFirstEvents(State& state)
{
    const Profiler profiler;
    for (auto _ : state)
    {
        Manager manager;
        manager.setServer("127.0.0.1", profiler.getPort());
        state.SetIterationTime(addFrame(manager));
    }
    perItem(state, eventsPerFrame, "ns/event");
}

} // namespace

int main(int argc, char** argv)
{
    mrv::MultiThreadProcessor pool("benchmark");
    pool.init(2);
    const tbb::global_control limit(tbb::global_control::max_allowed_parallelism,
                                    size_t(pool.getThreadCount()));

    addPeer("mrvCore", [&pool](Body body, uint32_t* out, int64_t count, int64_t grain) {
        PoolJob job = { body, out };
        pool.processThreadable(runJob, &job, count - 1, grain, 0);
    });
    addPeer("tbb_simple", [](Body body, uint32_t* out, int64_t count, int64_t grain) {
        tbb::parallel_for(
            tbb::blocked_range<int64_t>(0, count, size_t(grain)),
            [=](const auto& range) { body(out, range.begin(), range.end()); }, tbb::simple_partitioner());
    });
    addPeer("one_thread", [](Body body, uint32_t* out, int64_t count, int64_t grain) {
        for (int64_t begin = 0; begin < count; begin += grain)
            body(out, begin, std::min(begin + grain, count));
    });
    for (int range : { 2, 8, 64 })
        add("pool/condition_variable/rounds_1000_of_" + std::to_string(range), handOver)->UseRealTime();
    add("events/mrvCore/add", addEvents)->UseManualTime()->Iterations(100);
    add("events/mrvCore/add_first_thousand", addFirstEvents)->UseManualTime()->Iterations(20);
    return run(argc, argv);
}
