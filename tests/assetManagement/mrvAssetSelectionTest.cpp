// tests/assetManagement/mrvAssetSelectionTest.cpp
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "tests/support/mrvCoreFixture.h"

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace mrv {
namespace {

using Numbers = std::vector<int>;
using Weights = std::vector<float>;

constexpr float infinity = std::numeric_limits<float>::infinity();

template <class T>
PODArray<T> toArray(const std::vector<T>& values)
{
    PODArray<T> array;
    array.assign(values.size(), values.data());
    return array;
}

template <class T>
std::vector<T> toVector(const PODArray<T>& array)
{
    return std::vector<T>(array.begin(), array.end());
}

Numbers choose(const Numbers& values, const Weights& weights, unsigned long count, bool shuffle = false,
               unsigned int seed = 0)
{
    PODArray<int> sequence(2, -1);
    computeWeightedSequence(sequence, toArray(values), toArray(weights), count, shuffle, seed);
    return toVector(sequence);
}

TEST(WeightedSequenceTest, takesTheShareOfEachWeight)
{
    struct Case
    {
        const char* name;
        Numbers values;
        Weights weights;
        unsigned long count;
        Numbers sequence;
    };
    const Case cases[] = {
        { "lower index on a tie", { 7, 9 }, { 1, 1 }, 4, { 7, 9, 7, 9 } },
        { "scale does not matter", { 7, 9 }, { 1e-6f, 1e-6f }, 4, { 7, 9, 7, 9 } },
        { "every prefix", { 1, 2 }, { 3, 1 }, 8, { 1, 1, 2, 1, 1, 1, 2, 1 } },
        { "no weight, no turn", { 1, 2, 3 }, { 0, 5, 0 }, 3, { 2, 2, 2 } },
        { "nothing wanted", { 1, 2 }, { 1, 1 }, 0, {} },
        { "nothing there", {}, {}, 3, {} },
        { "all zero", { 4, 5 }, { 0, 0 }, 2, { 4, 4 } },
        { "no numbers", { 4, 5 }, { 1, NAN }, 2, { 4, 4 } },
        { "endless", { 4, 5 }, { 1, infinity }, 2, { 5, 5 } },
        { "negative sum", { 4, 5 }, { -3, 1 }, 2, { 5, 5 } },
    };
    for (const Case& c : cases)
        EXPECT_EQ(choose(c.values, c.weights, c.count), c.sequence) << c.name;
}

/// The rule, one candidate and one term after the other.
Numbers chooseSlowly(const Weights& weights, unsigned long count)
{
    const size_t n = weights.size();
    float total = 0.0f;
    size_t largest = 0;
    for (size_t i = 0; i < n; ++i)
    {
        total += weights[i];
        if (weights[i] > (largest == 0 && !(weights[0] > 0.0f) ? 0.0f : weights[largest]))
            largest = i;
    }
    Numbers counts(n, 0), sequence;
    for (unsigned long k = 1; k <= count; ++k)
    {
        float best = static_cast<float>(n) * total;
        size_t chosen = largest;
        for (size_t c = 0; c < n; ++c)
        {
            float distance = 0.0f;
            for (size_t j = 0; j < n; ++j)
            {
                const float product = static_cast<float>(counts[j] + (j == c ? 1 : 0)) * total;
                distance += std::fabs(product / static_cast<float>(k) - weights[j]);
            }
            if (distance < best)
            {
                best = distance;
                chosen = c;
            }
        }
        ++counts[chosen];
        sequence.push_back(static_cast<int>(chosen));
    }
    return sequence;
}

TEST(WeightedSequenceTest, sumsInTheOrderOfTheWeights)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> anyWeight(0.0f, 1.0f);
    for (const size_t size : { 1, 2, 3, 4, 5, 31, 32, 33, 64, 65, 100, 131 })
        for (const int kind : { 0, 1, 2 })
        {
            Weights weights;
            Numbers values;
            for (size_t i = 0; i < size; ++i)
            {
                const float weight = anyWeight(random);
                weights.push_back(kind == 0 ? weight : kind == 1 ? 1.0f : std::floor(weight * 4.0f));
                values.push_back(static_cast<int>(i));
            }
            EXPECT_EQ(choose(values, weights, 300), chooseSlowly(weights, 300)) << size << ' ' << kind;
        }
}

TEST(WeightedSequenceTest, wholeWeightsAreCounts)
{
    struct Case
    {
        Numbers values, weights, sequence;
    };
    const Case cases[] = {
        { { 8, 9 }, { 2, 1 }, { 8, 9, 8 } },
        { {}, {}, {} },
        { { 8, 9 }, { 1, -2 }, {} },
        { { 8 }, { 3 }, { 8, 8, 8 } },
    };
    for (const Case& c : cases)
    {
        PODArray<int> sequence;
        computeWeightedSequence(sequence, toArray(c.values), toArray(c.weights), false, 0);
        EXPECT_EQ(toVector(sequence), c.sequence);
    }
}

TEST(WeightedSequenceTest, shufflesFromTheEndByTheSeedAndTheValues)
{
    const Numbers values = { 1, -2, INT_MIN, 40 };
    const Weights weights = { 1, 2, 3, 4 };
    Numbers expected = choose(values, weights, 50);
    RandomNumberGenerator rng(9u + 1u + 2u + 0x80000000u + 40u);
    for (uint32_t left = 50; left >= 2; --left)
        std::swap(expected[rng.rand() % left], expected[left - 1]);
    EXPECT_EQ(choose(values, weights, 50, true, 9), expected);
    EXPECT_NE(choose(values, weights, 50, true, 10), expected);
    EXPECT_EQ(choose({ 3 }, { 1 }, 1, true, 9), Numbers{ 3 });
}

TEST(NextIndexTest, drawsWhereCandidatesWereChosenEquallyOften)
{
    // By the first words of each seed as shares: 0.3236 0.0443 0.1844 0.9971, and 0.2266.
    struct Case
    {
        const char* name;
        uint32_t seed;
        Weights weights;
        Numbers counts, chosen;
        int draws;
    };
    const Case cases[] = {
        { "pairs", 0, { 1, 1 }, { 0, 0 }, { 1, 0, 1, 0, 1, 0, 0, 1 }, 4 },
        { "nearer one stays", 0, { 3, 1 }, { 0, 0 }, { 0 }, 1 },
        { "farther one wins the draw", 0xFFFFFFFFu, { 3, 1 }, { 0, 0 }, { 1 }, 1 },
        { "no draw for different counts", 0, { 3, 1 }, { 1, 0 }, { 0 }, 0 },
        { "no counts", 0, { 1 }, {}, { -1 }, 0 },
        { "no weights", 0, {}, { 0 }, { -1 }, 0 },
        { "all zero", 0, { 0, 0 }, { 0, 0 }, { -1, -1 }, 0 },
        { "negative", 0, { 1, -2 }, { 0, 0 }, { -1 }, 0 },
        { "no number", 0, { 1, NAN }, { 0, 0 }, { -1 }, 0 },
        { "more weights than counts", 0, { 1, 5 }, { 0 }, { 0, 0 }, 0 },
        { "more counts than weights", 0, { 1 }, { 0, 0 }, { 0, 0 }, 0 },
    };
    for (const Case& c : cases)
    {
        RandomNumberGenerator rng(c.seed), expected(c.seed);
        PODArray<int> counts = toArray(c.counts);
        Numbers sums = c.counts;
        for (const int chosen : c.chosen)
        {
            EXPECT_EQ(computeNextIndex(counts, toArray(c.weights), rng), chosen) << c.name;
            if (chosen >= 0)
                ++sums[static_cast<size_t>(chosen)];
        }
        EXPECT_EQ(toVector(counts), sums) << c.name;
        for (int i = 0; i < c.draws; ++i)
            expected.rand();
        EXPECT_EQ(rng.rand(), expected.rand()) << c.name;
    }
}

TEST(PercentsTest, addUpToAHundred)
{
    struct Case
    {
        Weights weights;
        Numbers before, percents;
        Weights exact;
    };
    const Case cases[] = {
        { { 1, 1, 1 }, {}, { 33, 33, 34 }, { 33.333336f, 33.333336f, 33.333328f } },
        { { 0, 1, 0 }, { 7 }, { 0, 100, 0 }, { 0, 100, 0 } },
        { { 1, 1, 1, 1, 1, 1, 1, 1, 0 },
          {},
          { 13, 13, 13, 13, 13, 13, 13, 9, 0 },
          { 12.5f, 12.5f, 12.5f, 12.5f, 12.5f, 12.5f, 12.5f, 12.5f, 0 } },
        { { 0, 0, 0 }, { 7, 8 }, { 7, 8, 0 }, { 7, 8, 0 } },
        { {}, { 7 }, {}, {} },
        { { 3, -1 }, {}, { 150, -50 }, { 150, -50 } },
        { { 1, infinity }, {}, { 0, 100 }, { 0, 100 } },
    };
    for (const Case& c : cases)
    {
        PODArray<int> percents = toArray(c.before);
        computePercents(percents, toArray(c.weights));
        EXPECT_EQ(toVector(percents), c.percents);
        PODArray<float> exact = toArray(Weights(c.before.begin(), c.before.end()));
        computePercents(exact, toArray(c.weights));
        EXPECT_EQ(toVector(exact), c.exact);
    }
    PODArray<int> percents;
    computePercents(percents, toArray(Weights{ 1e30f, -1e30f, 1e-10f, 2.0f, NAN }));
    EXPECT_EQ(percents.size(), 5u);
}

using WeightsTest = CoreTest;

TEST_F(WeightsTest, comeFromTheNearestOverrideElseFromTheAsset)
{
    MaravoCharacterV24 character;
    character._allAssetGroups.resize(2);
    character._allAssetGroups[0]._weights = toArray(Weights{ 1 });
    character._allAssetGroups[1]._weights = toArray(Weights{ 2 });
    character._shaderAttributes.resize(1);
    character._shaderAttributes[0]._weights = toArray(Weights{ 3 });
    character._renderingTypes.resize(4);
    const auto addOverride = [&](size_t type, int parent, float weight) {
        character._renderingTypes[type]._parentRenderingType = parent;
        WeightOverrideV1& added = character._renderingTypes[type]._weightOverrides.addOne();
        added._assetIndex = 1;
        added._weights = toArray(Weights{ weight });
    };
    addOverride(0, -1, 10);
    addOverride(1, 0, 11);
    character._renderingTypes[2]._parentRenderingType = 0;
    character._renderingTypes[3]._parentRenderingType = 3;
    struct Case
    {
        int renderingType, asset, type;
        float weight;
    };
    const Case cases[] = {
        { -1, 1, WeightOverrideType::GROUP, 2 },
        { 4, 1, WeightOverrideType::GROUP, 2 },
        { 0, 1, WeightOverrideType::GROUP, 10 },
        { 1, 1, WeightOverrideType::GROUP, 11 },
        { 2, 1, WeightOverrideType::GROUP, 10 },
        { 3, 1, WeightOverrideType::GROUP, 2 },
        { 1, 0, WeightOverrideType::GROUP, 1 },
        { 1, 0, WeightOverrideType::SHADER_ATTRIBUTE, 3 },
        { 1, 2, WeightOverrideType::GROUP, -5 },
        { 1, -1, WeightOverrideType::GROUP, -5 },
        { 1, 1, WeightOverrideType::SHADER_ATTRIBUTE, -5 },
        { 1, 0, WeightOverrideType::END, -5 },
    };
    for (const Case& c : cases)
    {
        PODArray<float> weights(1, -5.0f);
        computeWeights(weights, character, c.renderingType, c.asset,
                       static_cast<WeightOverrideType::Value>(c.type));
        EXPECT_EQ(toVector(weights), Weights{ c.weight })
            << c.renderingType << ' ' << c.asset << ' ' << c.type;
    }
}

TEST_F(WeightsTest, attributeNamesOfGroupsAreCollected)
{
    MaravoCharacterV24 character;
    character._allAssetGroups.resize(3);
    character._allAssetGroups[0]._weightAttributeName = "unused";
    character._allAssetGroups[1]._weightType = AssetGroupWeightType::ATTRIBUTE;
    character._allAssetGroups[1]._weightAttributeName = "team";
    character._allAssetGroups[2]._weightType = AssetGroupWeightType::ATTRIBUTE;
    MrvMap<MrvString, PODArray<int>> names;
    names["team"].push_back(3);
    names["other"].push_back(4);
    PODArray<MaravoCharacterV24*> characters(1, nullptr);
    characters.push_back(&character);
    getAssetGroupWeightAttributeNames(characters, names);
    EXPECT_EQ(names.size(), 2u);
    EXPECT_TRUE(names["team"].empty());
    EXPECT_EQ(names["other"].size(), 1u);
}

TEST(AssetOverrideTest, changesTheListInOrder)
{
    const PODArray<int> chosen = toArray(Numbers{ 5, 1, 5, 3 });
    const auto meshesOf = [&](const AssetOverride& assetOverride) {
        PODArray<int> meshes = chosen;
        assetOverride.getMeshAssetWithOverride(meshes, meshes);
        return toVector(meshes);
    };
    AssetOverride assetOverride;
    EXPECT_EQ(assetOverride._entityId, -1);
    EXPECT_EQ(meshesOf(assetOverride), (Numbers{ 1, 3, 5 }));
    assetOverride.forceAddMeshAsset(9);
    assetOverride.forceAddMeshAsset(0);
    assetOverride.forceRemoveMeshAsset(9);
    assetOverride.forceRemoveMeshAsset(3);
    EXPECT_EQ(meshesOf(assetOverride), (Numbers{ 0, 1, 5 }));
    assetOverride.overrideMeshAssetList(toArray(Numbers{ 8, 7 }));
    EXPECT_EQ(meshesOf(assetOverride), (Numbers{ 7, 8 }));
    assetOverride.forceRemoveMeshAsset(7);
    EXPECT_EQ(meshesOf(assetOverride), Numbers{ 8 });
    EXPECT_EQ(toVector(assetOverride.getOverrideMeshList()), (Numbers{ 8, 7 }));
}

} // namespace
} // namespace mrv
