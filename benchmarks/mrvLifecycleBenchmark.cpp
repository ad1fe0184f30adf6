// benchmarks/mrvLifecycleBenchmark.cpp
// What a host pays for a whole start and stop of the library, all classes included.
#include "benchmarks/mrvBenchmarkReport.h"

#include "mrvCore/mrvCore.h"

int main(int argc, char** argv)
{
    using namespace mrvBenchmark;
    add("lifecycle/mrvCore/start_and_stop", [](State& state) {
        for (auto _ : state)
        {
            mrv::initCore();
            mrv::finishCore(true);
        }
        time(state);
    });
    return run(argc, argv);
}
