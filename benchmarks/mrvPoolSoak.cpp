// benchmarks/mrvPoolSoak.cpp
// Runs rounds of random sizes on the pool for as long as one wants and checks every sum: 100000 rounds, or as
// many as the first argument says. The thread count changes on the way, and another thread asks the pool
// meanwhile. Ends with 1 at the first wrong sum.
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

namespace {

void addIndices(mrv::ProcessingBatch& batch)
{
    int64_t sum = 0;
    for (int64_t i = batch._firstIndex; i <= batch._lastIndex; ++i)
        sum += i;
    *static_cast<std::atomic<int64_t>*>(batch._userData) += sum;
}

/// Whether one request of random size gave the sum of its indices.
bool runRound(mrv::MultiThreadProcessor& pool, std::mt19937& random)
{
    std::atomic<int64_t> sum(0);
    const int64_t lastIndex = int64_t(random() % (random() % 16 == 0 ? 20000 : 200)) - 1;
    pool.processThreadable(addIndices, &sum, lastIndex, 1 + random() % 100, 0);
    if (sum == lastIndex * (lastIndex + 1) / 2)
        return true;
    std::fprintf(stderr, "indices to %lld add up to %lld\n", static_cast<long long>(lastIndex),
                 static_cast<long long>(sum));
    return false;
}

bool runRounds(mrv::MultiThreadProcessor& pool, int rounds, uint32_t seed)
{
    std::mt19937 random(seed);
    for (int round = 0; round < rounds; ++round)
        if (!runRound(pool, random))
            return false;
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 100000;
    constexpr int parts = 10;
    mrv::MultiThreadProcessor pool("soak");
    const auto start = std::chrono::steady_clock::now();
    for (int part = 0; part < parts; ++part)
    {
        pool.updateThreadCount(part % 2 == 0 ? pool.getLogicalCPUsCount() : 1);
        bool isOtherRight = true;
        std::thread other([&] { isOtherRight = runRounds(pool, rounds / parts / 10, uint32_t(100 + part)); });
        const bool isRight = runRounds(pool, rounds / parts, uint32_t(part));
        other.join();
        if (!isRight || !isOtherRight)
            return 1;
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::printf("%d rounds in %.2f s, all sums right\n", rounds, elapsed.count());
    return 0;
}
