// mrvCore/assetManagement/mrvAssetSelection.cpp
// Choice by weights.
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/types/mrvFloat4.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace mrv {

namespace {

template <class T>
const T* findAsset(const Array<T>& assets, int index)
{
    return index >= 0 && index < assets.sizeInt() ? &assets[static_cast<size_t>(index)] : nullptr;
}

float computeSum(const PODArray<float>& weights, size_t count)
{
    float sum = 0.0f;
    for (size_t i = 0; i < count; ++i)
        sum += weights[i];
    return sum;
}

/// The first of the largest weight, 0 if none is above 0.
size_t findLargest(const PODArray<float>& weights)
{
    size_t largest = 0;
    float weight = 0.0f;
    for (size_t i = 0; i < weights.size(); ++i)
        if (weights[i] > weight)
        {
            weight = weights[i];
            largest = i;
        }
    return largest;
}

/// Chooses one candidate after the other, each time the one that leaves the shares nearest to the weights.
///
/// The distance of a candidate is a sum over all in a fixed order, of which all but its own term is the
/// same for all candidates. So the terms are computed once a step, the sum up to a block of candidates is
/// shared, and the rest is summed for the block at once, a candidate a lane, each in its own order.
class QuotaChooser
{
public:
    explicit QuotaChooser(const PODArray<float>& weights)
        : _weights(weights)
        , _counts(weights.size(), 0)
        , _terms(weights.size(), 0.0f)
        , _chosenTerms(weights.size(), 0.0f)
        , _total(computeSum(weights, weights.size()))
        , _largest(findLargest(weights))
    {}

    /// The choice of step `step`, which begins with 1.
    size_t choose(unsigned long step)
    {
        const size_t size = _weights.size();
        for (size_t i = 0; i < size; ++i)
        {
            _terms[i] = computeTerm(_counts[i], step, i);
            _chosenTerms[i] = computeTerm(_counts[i] + 1, step, i);
        }
        Best best = { static_cast<float>(size) * _total, _largest };
        float sumBefore = 0.0f;
        for (size_t block = 0; block < size; block += blockSize)
            addBlock(best, block, sumBefore);
        ++_counts[best.index];
        return best.index;
    }

private:
    struct Best
    {
        float distance;
        size_t index;
    };

    static constexpr size_t laneCount = 4;
    static constexpr size_t registerCount = 8;
    static constexpr size_t blockSize = laneCount * registerCount;

    float computeTerm(int count, unsigned long step, size_t i) const
    {
        return std::fabs(static_cast<float>(count) * _total / static_cast<float>(step) - _weights[i]);
    }

    /// Tries the candidates of one block. `sumBefore` goes on from the sum up to it to that behind it.
    void addBlock(Best& best, size_t block, float& sumBefore) const
    {
        const size_t end = std::min(block + blockSize, _weights.size());
        internal::Float4 sums[registerCount] = {};
        for (size_t i = block; i < end; ++i)
        {
            const size_t own = (i - block) / laneCount;
            for (size_t r = 0; r <= own; ++r)
                sums[r] += internal::broadcast(_terms[i]);
            // Whatever a lane summed before its own candidate came does not count.
            sums[own][(i - block) % laneCount] = sumBefore + _chosenTerms[i];
            sumBefore += _terms[i];
        }
        addRest(sums, end);
        for (size_t i = block; i < end; ++i)
        {
            const float distance = sums[(i - block) / laneCount][(i - block) % laneCount];
            if (distance < best.distance)
                best = { distance, i };
        }
    }

    /// Written out, so that the sums stay in registers: their chains of additions overlap.
    void addRest(internal::Float4 (&sums)[registerCount], size_t begin) const
    {
        using internal::Float4;
        Float4 a = sums[0], b = sums[1], c = sums[2], d = sums[3];
        Float4 e = sums[4], f = sums[5], g = sums[6], h = sums[7];
        for (size_t i = begin; i < _terms.size(); ++i)
        {
            const Float4 term = internal::broadcast(_terms[i]);
            a += term, b += term, c += term, d += term;
            e += term, f += term, g += term, h += term;
        }
        sums[0] = a, sums[1] = b, sums[2] = c, sums[3] = d;
        sums[4] = e, sums[5] = f, sums[6] = g, sums[7] = h;
    }

    const PODArray<float>& _weights;
    PODArray<int> _counts;
    PODArray<float> _terms;       ///< of the distance, for a candidate that is not chosen in this step
    PODArray<float> _chosenTerms; ///< the same for one that is
    float _total;
    size_t _largest;
};

void shuffleSequence(PODArray<int>& sequence, uint32_t seed)
{
    RandomNumberGenerator rng(seed);
    for (size_t left = sequence.size(); left > 1; --left)
        std::swap(sequence[rng.rand() % left], sequence[left - 1]);
}

/// The distance of the shares from the weights if `chosen` is counted once more.
float computeDistance(const PODArray<int>& counts, const PODArray<float>& weights, size_t size, size_t chosen,
                      float countSum, float total)
{
    float distance = 0.0f;
    for (size_t i = 0; i < size; ++i)
    {
        const int64_t count = int64_t(counts[i]) + (i == chosen ? 1 : 0);
        distance += std::fabs(static_cast<float>(count) / countSum * total - weights[i]);
    }
    return distance;
}

/// The whole number of a float that any weights may have led to.
int toInt(float number)
{
    if (!(std::fabs(number) < 2147483648.0f))
        return number > 0.0f ? INT_MAX : number < 0.0f ? INT_MIN : 0;
    return static_cast<int>(number);
}

/// `Sum` holds the percentages that are left, and `compute` gives the share of one as T.
template <class Sum, class T, class Compute>
void fillPercents(PODArray<T>& percents, const PODArray<float>& weights, Compute compute)
{
    percents.resize(weights.size(), T(0));
    const float sum = computeSum(weights, weights.size());
    if (sum == 0.0f)
        return;
    size_t last = weights.size() - 1;
    while (last > 0 && weights[last] == 0.0f)
        --last;
    Sum left = 100;
    for (size_t i = 0; i < weights.size(); ++i)
    {
        percents[i] = i == last ? static_cast<T>(left) : compute(weights[i] / sum * 100.0f);
        left -= static_cast<Sum>(percents[i]);
    }
}

} // namespace

void computeWeights(PODArray<float>& weights, const MaravoCharacterV24& character, int renderingTypeIdx,
                    int assetIndex, WeightOverrideType::Value type)
{
    const WeightOverrideV1* weightOverride = nullptr;
    MaravoCharacterV24::findWeightOverride(weightOverride, character._renderingTypes, renderingTypeIdx,
                                           assetIndex, type);
    const AssetGroupV4* const group = findAsset(character._allAssetGroups, assetIndex);
    const ShaderAttributeV3* const attribute = findAsset(character._shaderAttributes, assetIndex);
    if (weightOverride != nullptr)
        weights = weightOverride->_weights;
    else if (type == WeightOverrideType::GROUP && group != nullptr)
        weights = group->_weights;
    else if (type == WeightOverrideType::SHADER_ATTRIBUTE && attribute != nullptr)
        weights = attribute->_weights;
}

void computeWeightedSequence(PODArray<int>& sequence, const PODArray<int>& values,
                             const PODArray<float>& weights, unsigned long count, bool shuffle,
                             unsigned int seed)
{
    MRV_ASSERT(values.size() == weights.size(), "%zu values and %zu weights", values.size(), weights.size());
    sequence.clear();
    if (values.empty())
        return;
    sequence.reserve(count);
    QuotaChooser chooser(weights);
    for (unsigned long step = 1; step <= count; ++step)
        sequence.push_back(values[chooser.choose(step)]);
    if (!shuffle)
        return;
    for (const int value : values)
        seed += value < 0 ? 0u - static_cast<unsigned int>(value) : static_cast<unsigned int>(value);
    shuffleSequence(sequence, seed);
}

void computeWeightedSequence(PODArray<int>& sequence, const PODArray<int>& values,
                             const PODArray<int>& weights, bool shuffle, unsigned int seed)
{
    PODArray<float> floatWeights;
    int64_t count = 0;
    for (const int weight : weights)
    {
        floatWeights.push_back(static_cast<float>(weight));
        count += weight;
    }
    computeWeightedSequence(sequence, values, floatWeights,
                            static_cast<unsigned long>(std::max<int64_t>(count, 0)), shuffle, seed);
}

int computeNextIndex(PODArray<int>& counts, const PODArray<float>& weights, RandomNumberGenerator& rng)
{
    const size_t size = std::min(counts.size(), weights.size());
    const float total = computeSum(weights, size);
    if (!(total > 0.0f))
        return -1;
    int64_t countSum = 1;
    for (const int count : counts)
        countSum += count;

    size_t best = 0;
    float bestDistance = -1.0f;
    for (size_t i = 0; i < size; ++i)
    {
        const float distance = computeDistance(counts, weights, size, i, static_cast<float>(countSum), total);
        // Candidates that were chosen equally often are drawn for, whatever their distances are.
        const bool isBetter =
            bestDistance == -1.0f || distance < bestDistance ||
            (counts[best] == counts[i] && weights[i] > rng.frand() * (weights[best] + weights[i]));
        if (!isBetter)
            continue;
        best = i;
        bestDistance = distance;
    }
    ++counts[best];
    return static_cast<int>(best);
}

void computePercents(PODArray<int>& percents, const PODArray<float>& weights)
{
    fillPercents<int64_t>(percents, weights, [](float share) { return toInt(std::floor(share + 0.5f)); });
}

void computePercents(PODArray<float>& percents, const PODArray<float>& weights)
{
    fillPercents<float>(percents, weights, [](float share) { return share; });
}

void getAssetGroupWeightAttributeNames(const PODArray<MaravoCharacterV24*>& characters,
                                       MrvMap<MrvString, PODArray<int>>& attributeNames)
{
    for (const MaravoCharacterV24* character : characters)
    {
        if (character == nullptr)
            continue;
        for (const AssetGroupV4& group : character->_allAssetGroups)
            if (group._weightType == AssetGroupWeightType::ATTRIBUTE && !group._weightAttributeName.empty())
                attributeNames[group._weightAttributeName].clear();
    }
}

} // namespace mrv
