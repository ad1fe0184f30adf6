// benchmarks/mrvBenchmarkReport.h
// Registration of benchmarks and the report of their figures, our own beside those of the peers.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <map>
#include <string>
#include <vector>

namespace mrvBenchmark {

using benchmark::Counter;
using benchmark::State;

// A benchmark is named topic/peer/case, and the peer's name of our own library begins with "mrvCore". Each
// counter of a benchmark is one figure whose unit is the counter's name. Standard output gets a line for
// each figure, the median of the repetitions:
//     topic,peer,case,value,unit
// and then a line for each pair of a figure of ours and one of a peer that have topic, case and unit in
// common; of the ratio less is better and 1 is equal:
//     topic,ours,case,value,unit,peer,value of the peer,ratio

/// Time for each of `items` things that one iteration does.
inline void perItem(State& state, double items, const char* unit = "ns/op", double unitsPerSecond = 1e9)
{
    state.counters[unit] =
        Counter(items / unitsPerSecond, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

/// Time of one iteration, in milliseconds.
inline void time(State& state)
{
    perItem(state, 1, "ms", 1e3);
}

/// Amount for each second, `amount` being that of one iteration. The unit ends in "/s".
inline void rate(State& state, double amount, const char* unit)
{
    state.counters[unit] = Counter(amount, Counter::kIsIterationInvariantRate);
}

/// A plain count that the timing does not touch.
inline void fact(State& state, double value, const char* unit)
{
    state.counters[unit] = Counter(value);
}

/// Names in the order of registration, which is that of the report: the runs may be shuffled.
inline std::vector<std::string>& registeredNames()
{
    static std::vector<std::string> names;
    return names;
}

template <class Body>
benchmark::internal::Benchmark* add(const std::string& name, Body body)
{
    registeredNames().push_back(name);
    return benchmark::RegisterBenchmark(name.c_str(), body);
}

/// Collects the repetitions and prints the report at the end.
class Reporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
        {
            if (run.run_type == Run::RT_Aggregate)
                continue;
            if (run.error_occurred)
            {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                _failed = true;
                continue;
            }
            for (const auto& counter : run.counters)
                _values[run.run_name.function_name][counter.first].push_back(counter.second.value);
        }
    }

    void Finalize() override
    {
        const std::vector<Figure> figures = collectFigures();
        for (const Figure& figure : figures)
        {
            print(figure);
            std::putchar('\n');
        }
        for (const Figure& ours : figures)
            for (const Figure& theirs : figures)
                if (isOurs(ours) && !isOurs(theirs) && ours.topic == theirs.topic &&
                    ours.benchmarkCase == theirs.benchmarkCase && ours.unit == theirs.unit)
                    printPair(ours, theirs);
    }

    bool hasFailed() const { return _failed; }

private:
    struct Figure
    {
        std::string topic, peer, benchmarkCase, unit;
        double median;
    };

    static bool isOurs(const Figure& figure) { return figure.peer.compare(0, 7, "mrvCore") == 0; }

    static double ratio(const Figure& ours, const Figure& theirs)
    {
        const std::string& unit = ours.unit;
        const bool isRate = unit.size() > 2 && unit.compare(unit.size() - 2, 2, "/s") == 0;
        return isRate ? theirs.median / ours.median : ours.median / theirs.median;
    }

    static double median(std::vector<double> values)
    {
        std::sort(values.begin(), values.end());
        const size_t n = values.size();
        return n % 2 != 0 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
    }

    static void print(const Figure& figure)
    {
        std::printf("%s,%s,%s,%.6g,%s", figure.topic.c_str(), figure.peer.c_str(),
                    figure.benchmarkCase.c_str(), figure.median, figure.unit.c_str());
    }

    static void printPair(const Figure& ours, const Figure& theirs)
    {
        print(ours);
        std::printf(",%s,%.6g,%.3g\n", theirs.peer.c_str(), theirs.median, ratio(ours, theirs));
    }

    std::vector<Figure> collectFigures() const
    {
        std::vector<Figure> figures;
        for (const std::string& name : registeredNames())
        {
            const auto found = _values.find(name);
            if (found == _values.end())
                continue;
            const size_t first = name.find('/');
            const size_t second = name.find('/', first + 1);
            for (const auto& figure : found->second)
                figures.push_back({ name.substr(0, first), name.substr(first + 1, second - first - 1),
                                    name.substr(second + 1), figure.first, median(figure.second) });
        }
        return figures;
    }

    std::map<std::string, std::map<std::string, std::vector<double>>> _values;
    bool _failed = false;
};

/// Keeps freed memory with the process. The first write to a page costs more than most of what is measured,
/// and whether the heap gives pages back between two iterations is a matter of luck. Cases named "fresh"
/// ask for the other by freshHeap(), outside their timing.
inline void keepHeap()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
}

inline void freshHeap()
{
    malloc_trim(0);
}

/// Joins the freed pieces, so that the next nodes lie one behind the other as they do in a young process,
/// whichever cases ran before. A large request makes the heap do that; unlike malloc_trim() it keeps the
/// pages, whose return would be charged to the case that follows.
inline void tidyHeap()
{
    void* block = std::malloc(size_t(1) << 20);
    benchmark::DoNotOptimize(block);
    std::free(block);
}

/// Runs what is registered; the result of main(). Without other wishes on the command line every case is
/// repeated 7 times, shuffled among the others.
inline int run(int argc, char** argv)
{
    keepHeap();
    std::string defaults[] = { "--benchmark_repetitions=7", "--benchmark_min_time=0.05",
                               "--benchmark_enable_random_interleaving=true" };
    std::vector<char*> arguments = { argv[0] };
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.hasFailed() ? 1 : 0;
}

} // namespace mrvBenchmark
