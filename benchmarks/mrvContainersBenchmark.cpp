// benchmarks/mrvContainersBenchmark.cpp
// Our containers beside the standard ones. Goals, as ratios of time: PODArray, MrvString and a map of heap
// nodes at most 1.0; a map with a pool at most 0.7.
#include "benchmarks/mrvBenchmarkInputs.h"
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

#include <map>
#include <memory>

using namespace mrvBenchmark;

namespace {

template <class Vector>
void addArrays(const std::string& peer)
{
    add(peer + "push_back_1e6", [](State& state) {
        for (auto _ : state)
        {
            Vector v;
            for (int i = 0; i < vectorCount; ++i)
                v.push_back(i);
            benchmark::DoNotOptimize(v.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, vectorCount);
    });
    add(peer + "push_back_fresh_1e6", [](State& state) {
        for (auto _ : state)
        {
            state.PauseTiming();
            freshHeap();
            state.ResumeTiming();
            Vector v;
            for (int i = 0; i < vectorCount; ++i)
                v.push_back(i);
            benchmark::DoNotOptimize(v.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, vectorCount);
    });
    add(peer + "push_back_reserved_1e6", [](State& state) {
        for (auto _ : state)
        {
            Vector v;
            v.reserve(vectorCount);
            for (int i = 0; i < vectorCount; ++i)
                v.push_back(i);
            benchmark::DoNotOptimize(v.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, vectorCount);
    });
    add(peer + "copy_1e6", [](State& state) {
        Vector v;
        for (const int i : permutation(vectorCount, seedMapInsert))
            v.push_back(i);
        for (auto _ : state)
        {
            Vector copy(v);
            benchmark::DoNotOptimize(copy.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, vectorCount);
    });
    add(peer + "insert_front_1e4", [](State& state) {
        for (auto _ : state)
        {
            Vector v;
            for (int i = 0; i < 10000; ++i)
                v.insert(v.begin(), i);
            benchmark::DoNotOptimize(v.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, 10000);
    });
}

/// The operations of a map, so that one body measures all of them.
struct StandardMap
{
    std::map<int, int> map;

    void insert(int key, int value) { map.emplace(key, value); }
    void erase(int key) { map.erase(key); }
    int find(int key) const
    {
        const auto it = map.find(key);
        return it == map.end() ? 0 : it->second;
    }
    long long sum() const
    {
        long long result = 0;
        for (const auto& entry : map)
            result += entry.second;
        return result;
    }
    size_t size() const { return map.size(); }
};

template <bool pooled>
struct OurMap
{
    using Map = mrv::MrvMap<int, int>;
    std::unique_ptr<Map::MapNodePool> pool = pooled ? std::make_unique<Map::MapNodePool>(1024) : nullptr;
    Map map{ pool.get() };

    void insert(int key, int value) { map.insert(key, value); }
    void erase(int key) { map.erase(key); }
    int find(int key) const
    {
        const auto it = map.find(key);
        return it == map.end() ? 0 : it.getValue();
    }
    long long sum() const
    {
        long long result = 0;
        for (auto it = map.begin(); it != map.end(); ++it)
            result += it.getValue();
        return result;
    }
    size_t size() const { return map.size(); }
};

/// The map is built between two runs, on a tidy heap and outside the timing.
template <class Map>
std::unique_ptr<Map> makeFilledMap(const std::vector<int>& keys)
{
    tidyHeap();
    auto map = std::make_unique<Map>();
    for (int i = 0; i < mapCount; ++i)
        map->insert(keys[static_cast<size_t>(i)], i);
    return map;
}

template <class Map>
void addInsertion(const std::string& name, const std::vector<int>& keys)
{
    add(name, [keys](State& state) {
        for (auto _ : state)
        {
            auto map = std::make_unique<Map>();
            for (int i = 0; i < mapCount; ++i)
                map->insert(keys[static_cast<size_t>(i)], i);
            benchmark::DoNotOptimize(map->size());
            state.PauseTiming();
            map.reset();
            tidyHeap();
            state.ResumeTiming();
        }
        perItem(state, mapCount);
    });
}

template <class Map>
void addMaps(const std::string& peer)
{
    const std::vector<int> keys = mapKeys(seedMapInsert);
    const std::vector<int> order = mapKeys(seedMapFind);
    std::vector<int> ascending(mapCount);
    for (int i = 0; i < mapCount; ++i)
        ascending[static_cast<size_t>(i)] = 2 * i;
    addInsertion<Map>(peer + "insert_1e5", keys);
    addInsertion<Map>(peer + "insert_ascending_1e5", ascending);

    add(peer + "erase_1e5", [keys, order](State& state) {
        for (auto _ : state)
        {
            state.PauseTiming();
            auto map = makeFilledMap<Map>(keys);
            state.ResumeTiming();
            for (const int key : order)
                map->erase(key);
            benchmark::DoNotOptimize(map->size());
        }
        perItem(state, mapCount);
    });
    for (const int offset : { 0, 1 })
        add(peer + (offset == 0 ? "find_1e5" : "find_missing_1e5"), [keys, order, offset](State& state) {
            const auto map = makeFilledMap<Map>(keys);
            for (auto _ : state)
            {
                long long sum = 0;
                for (const int key : order)
                    sum += map->find(key + offset);
                benchmark::DoNotOptimize(sum);
            }
            perItem(state, mapCount);
        });
    add(peer + "iterate_1e5", [keys](State& state) {
        const auto map = makeFilledMap<Map>(keys);
        for (auto _ : state)
            benchmark::DoNotOptimize(map->sum());
        perItem(state, mapCount);
    });
}

template <class String>
void addStrings(const std::string& peer)
{
    add(peer + "append_char_1e6", [](State& state) {
        for (auto _ : state)
        {
            String s;
            for (int i = 0; i < 1000000; ++i)
                s += static_cast<char>('a' + i % 26);
            benchmark::DoNotOptimize(s.data());
            benchmark::ClobberMemory();
        }
        perItem(state, 1000000);
    });
    add(peer + "append_10_chars_1e5", [](State& state) {
        for (auto _ : state)
        {
            String s;
            for (int i = 0; i < 100000; ++i)
                s += "0123456789";
            benchmark::DoNotOptimize(s.data());
            benchmark::ClobberMemory();
        }
        perItem(state, 100000);
    });
    add(peer + "find_8_chars_in_1e6", [](State& state) {
        const Haystack h = haystack();
        const String text(h.text.c_str());
        const String needle(h.needle.c_str());
        for (auto _ : state)
        {
            const size_t at = text.find(needle);
            if (at != 1000000)
                state.SkipWithError("needle not at the end");
            benchmark::DoNotOptimize(at);
        }
        rate(state, 1.0, "MB/s");
    });
    add(peer + "find_char_in_1e6", [](State& state) {
        const String text(haystack().text.c_str());
        for (auto _ : state)
        {
            size_t at = text.find('z');
            benchmark::DoNotOptimize(at);
        }
        rate(state, 1.0, "MB/s");
    });
    for (const size_t length : { 8, 40 })
        add(peer + "copy_" + std::to_string(length) + "_chars_1e5", [length](State& state) {
            const String name(std::string(length, 'n').c_str());
            for (auto _ : state)
                for (int i = 0; i < 100000; ++i)
                {
                    String copy(name);
                    benchmark::DoNotOptimize(copy.data());
                    benchmark::ClobberMemory();
                }
            perItem(state, 100000);
        });
}

} // namespace

int main(int argc, char** argv)
{
    addArrays<mrv::PODArray<int>>("containers/mrvCore/");
    addArrays<std::vector<int>>("containers/std_vector/");
    addMaps<OurMap<false>>("containers/mrvCore/");
    addMaps<OurMap<true>>("containers/mrvCore_pool/");
    addMaps<StandardMap>("containers/std_map/");
    addStrings<mrv::MrvString>("containers/mrvCore/");
    addStrings<std::string>("containers/std_string/");
    return run(argc, argv);
}
