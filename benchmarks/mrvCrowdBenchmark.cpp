// benchmarks/mrvCrowdBenchmark.cpp
// What a crowd costs: its character files on several threads beside one, its random numbers beside other
// generators of the same kind, and its choices by weights.
//   load_200_F             200 files of the form F, from the cache of the system
//   words                  10^6 numbers
//   choose_N_of_W          a sequence of N by W different weights, _even by equal ones
#include "benchmarks/mrvBenchmarkReport.h"
#include "benchmarks/mrvGeneratedCharacter.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/mrvCore.h"

#include <cmath>
#include <filesystem>
#include <random>

#if __has_include(<boost/random/mersenne_twister.hpp>)
#    include <boost/random/mersenne_twister.hpp>
#    define MRV_HAS_BOOST_RANDOM
#endif

using namespace mrvBenchmark;

namespace {

constexpr int fileCount = 200;

/// A list of files in a folder that goes with this object.
class CrowdFiles
{
public:
    explicit CrowdFiles(const std::string& extension)
        : _folder(std::filesystem::temp_directory_path() / ("mrvCrowdBenchmark_" + extension))
    {
        std::filesystem::create_directories(_folder);
        mrv::MaravoCharacterV24 character;
        fillCharacter(character, { 80, 60, 20, 8 });
        for (int i = 0; i < fileCount; ++i)
        {
            const std::string file = (_folder / ("character" + std::to_string(i) + '.' + extension)).string();
            character.saveCharacterFile(file);
            _list += file + ';';
        }
    }
    ~CrowdFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(_folder, ignored);
    }
    CrowdFiles(const CrowdFiles&) = delete;
    CrowdFiles& operator=(const CrowdFiles&) = delete;

    mrv::MrvString getList() const { return _list; }

private:
    std::filesystem::path _folder;
    std::string _list;
};

void addLoading(const std::string& peer, const std::string& extension, const CrowdFiles& files, bool onPool)
{
    add("crowd/" + peer + "/load_200_" + extension, [&files, onPool](State& state) {
        mrv::PODArray<mrv::MaravoCharacterV24*> characters;
        for (auto _ : state)
        {
            mrv::loadCharacterFiles(characters, files.getList(), false, onPool, nullptr);
            state.PauseTiming(); // those of the last round go
            for (const mrv::MaravoCharacterV24* character : characters)
                if (character == nullptr)
                    state.SkipWithError("a file was not loaded");
            mrv::loadCharacterFiles(characters, "", false, false, nullptr);
            state.ResumeTiming();
        }
        time(state);
    })->UseRealTime();
}

template <class Generator, class Draw>
void addWords(const std::string& peer, Draw draw)
{
    add("random/" + peer + "/words", [draw](State& state) {
        Generator generator(1);
        for (auto _ : state)
        {
            uint32_t sum = 0;
            for (int i = 0; i < 1000000; ++i)
                sum += static_cast<uint32_t>(draw(generator));
            benchmark::DoNotOptimize(sum);
        }
        perItem(state, 1e6, "ns/number");
    });
}

/// The rule as it reads, one candidate and one term after the other.
void choosePlainly(mrv::PODArray<int>& sequence, const mrv::PODArray<float>& weights, unsigned long count)
{
    const size_t size = weights.size();
    std::vector<int> counts(size, 0);
    float total = 0;
    for (const float weight : weights)
        total += weight;
    sequence.clear();
    for (unsigned long step = 1; step <= count; ++step)
    {
        float best = float(size) * total;
        size_t chosen = 0;
        for (size_t c = 0; c < size; ++c)
        {
            float distance = 0;
            for (size_t i = 0; i < size; ++i)
                distance += std::fabs(float(counts[i] + (i == c)) * total / float(step) - weights[i]);
            if (distance < best)
            {
                best = distance;
                chosen = c;
            }
        }
        ++counts[chosen];
        sequence.push_back(int(chosen));
    }
}

void addChoices(size_t size, unsigned long count, bool isEven, bool isPlain)
{
    const std::string name = "choose_" + std::to_string(count) + "_of_" + std::to_string(size);
    add("choice/" + std::string(isPlain ? "plain_loops/" : "mrvCore/") + name + (isEven ? "_even" : ""),
        [=](State& state) {
            mrv::PODArray<int> values, sequence;
            mrv::PODArray<float> weights;
            std::mt19937 random(1);
            for (size_t i = 0; i < size; ++i)
            {
                values.push_back(int(i));
                weights.push_back(isEven ? 1.0f : float(random() % 1000) / 1000.0f);
            }
            for (auto _ : state)
            {
                if (isPlain)
                    choosePlainly(sequence, weights, count);
                else
                    mrv::computeWeightedSequence(sequence, values, weights, count, false, 0);
                benchmark::ClobberMemory();
            }
            time(state);
        });
}

} // namespace

int main(int argc, char** argv)
{
    mrv::initCore();
    int result = 0;
    {
        const CrowdFiles xmlFiles("mvcf"), binaryFiles("mvc");
        const std::string threads = std::to_string(mrv::getMultiThreadProcessor()->getThreadCount());
        for (const bool onPool : { true, false })
        {
            const std::string peer = onPool ? "mrvCore_threads_" + threads : "one_thread";
            addLoading(peer, "mvcf", xmlFiles, onPool);
            addLoading(peer, "mvc", binaryFiles, onPool);
        }
        addWords<mrv::RandomNumberGenerator>("mrvCore", [](auto& generator) { return generator.rand(); });
        addWords<std::mt19937>("std_mt19937", [](auto& generator) { return generator(); });
#ifdef MRV_HAS_BOOST_RANDOM
        addWords<boost::random::mt19937>("boost_mt19937", [](auto& generator) { return generator(); });
#endif
        for (const size_t size : { 4, 25, 50, 100, 200, 400 })
            addChoices(size, 10000, false, false);
        addChoices(100, 10000, false, true);
        addChoices(100, 10000, true, false);
        addChoices(100, 100000, false, false);
        result = run(argc, argv);
    }
    mrv::finishCore(true);
    return result;
}
