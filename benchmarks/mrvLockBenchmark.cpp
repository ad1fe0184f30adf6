// benchmarks/mrvLockBenchmark.cpp
// Our spinning locks beside the standard ones, alone and under two threads: a counter that every section
// increments, and a table that is read 15 times for each time it is changed.
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/system/thread/mrvRWSpinLock.h"
#include "mrvCore/system/thread/mrvSpinLock.h"

#include <mutex>
#include <shared_mutex>
#include <thread>

using namespace mrvBenchmark;

namespace {

constexpr int sectionCount = 200000;
constexpr int readsPerWrite = 15;

/// The names of the standard locks for ours.
class RWSpinLock : public mrv::RWSpinLock
{
public:
    void lock() { lockWriter(); }
    void unlock() { unlockWriter(); }
    void lock_shared() { lockReader(); }
    void unlock_shared() { unlockReader(); }
};

/// Times `section(lock, i)`, sectionCount times on each of the threads.
template <class Lock, class Section>
void addSections(const std::string& name, Section section)
{
    for (int threadCount : { 1, 2 })
        add("lock/" + name + (threadCount == 1 ? "_1_thread" : "_2_threads"), [=](State& state) {
            for (auto _ : state)
            {
                Lock lock;
                const auto work = [&] {
                    for (int i = 0; i < sectionCount; ++i)
                        section(lock, i);
                };
                std::vector<std::thread> others;
                for (int thread = 1; thread < threadCount; ++thread)
                    others.emplace_back(work);
                work();
                for (std::thread& other : others)
                    other.join();
            }
            perItem(state, double(sectionCount) * threadCount, "ns/section");
        })->UseRealTime();
}

int counter = 0;
int table[16] = {};

template <class Lock>
void addCounter(const std::string& peer)
{
    addSections<Lock>(peer + "/counter", [](Lock& lock, int) {
        lock.lock();
        benchmark::DoNotOptimize(++counter);
        lock.unlock();
    });
}

template <class Lock>
void addTable(const std::string& peer)
{
    addSections<Lock>(peer + "/table", [](Lock& lock, int i) {
        if (i % (readsPerWrite + 1) == 0)
        {
            lock.lock();
            for (int& value : table)
                ++value;
            benchmark::ClobberMemory();
            lock.unlock();
        }
        else
        {
            lock.lock_shared();
            int sum = 0;
            for (int value : table)
                sum += value;
            benchmark::DoNotOptimize(sum);
            lock.unlock_shared();
        }
    });
}

} // namespace

int main(int argc, char** argv)
{
    addCounter<mrv::SpinLock>("mrvCore");
    addCounter<std::mutex>("std");
    addTable<RWSpinLock>("mrvCore");
    addTable<std::shared_mutex>("std");
    return run(argc, argv);
}
