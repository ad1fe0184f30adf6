// hosts/mrvcharacter/mrvCrowd.cpp
#include "hosts/mrvcharacter/mrvCrowd.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include <cmath>
#include <numeric>

namespace mrvcharacter {

namespace {

template <class T>
mrv::PODArray<T> toArray(const std::vector<T>& values)
{
    mrv::PODArray<T> array;
    array.assign(values.size(), values.data());
    return array;
}

} // namespace

Crowd::Crowd(const mrv::MaravoCharacterV24& character, int renderingType, size_t count, uint32_t seed)
    : _character(character)
    , _renderingType(renderingType)
    , _choices(count)
{
    std::vector<size_t> everyone(count);
    std::iota(everyone.begin(), everyone.end(), size_t(0));
    for (const int group : character._mainAssetGroups)
        if (isGroup(group))
            _visits.push_back({ group, _visits.size(), everyone });
        else
            _warnings.push_back("there is no main group " + std::to_string(group));
    // A seed for each visit: groups with equally many children are to be shuffled differently.
    mrv::RandomNumberGenerator seeds(seed);
    for (size_t number = 0; number < _visits.size(); ++number)
        visit(number, seeds.rand());
}

std::vector<float> Crowd::getWeights(int group) const
{
    mrv::PODArray<float> weights;
    mrv::computeWeights(weights, _character, _renderingType, group, mrv::WeightOverrideType::GROUP);
    std::vector<float> usable(_character._allAssetGroups[static_cast<size_t>(group)]._children.size(), 0.0f);
    for (size_t i = 0; i < std::min(usable.size(), weights.size()); ++i)
        if (std::isfinite(weights[i]) && weights[i] > 0.0f)
            usable[i] = weights[i];
    return usable;
}

void Crowd::visit(size_t number, uint32_t seed)
{
    const int group = _visits[number].group;
    const std::vector<size_t> entities = std::move(_visits[number].entities);
    const mrv::AssetGroupV4& asset = _character._allAssetGroups[static_cast<size_t>(group)];
    const std::vector<float> weights = getWeights(group);
    std::vector<int> children(weights.size());
    std::iota(children.begin(), children.end(), 0);
    mrv::PODArray<int> sequence;
    mrv::computeWeightedSequence(sequence, toArray(children), toArray(weights), entities.size(), true, seed);

    std::vector<std::vector<size_t>> takers(children.size());
    for (size_t i = 0; i < sequence.size(); ++i)
        takers[static_cast<size_t>(sequence[i])].push_back(entities[i]);
    for (size_t child = 0; child < takers.size(); ++child)
    {
        const GroupChild choice(group, static_cast<int>(child));
        _counts[choice] += takers[child].size();
        const int next = asset._children[child]._assetGroupIdx;
        if (takers[child].empty())
            continue;
        if (next == -1)
            for (const size_t entity : takers[child])
                _choices[entity].push_back(choice);
        else if (!isGroup(next) || isInside(number, next))
            _warnings.push_back("group " + std::to_string(group) + " leads to " + std::to_string(next) +
                                ", which is no group or holds it");
        else
            _visits.push_back({ next, number, std::move(takers[child]) });
    }
}

bool Crowd::isInside(size_t number, int group) const
{
    for (; _visits[number].group != group; number = _visits[number].former)
        if (_visits[number].former == number)
            return false;
    return true;
}

bool Crowd::isGroup(int group) const
{
    return group >= 0 && group < _character._allAssetGroups.sizeInt();
}

} // namespace mrvcharacter
