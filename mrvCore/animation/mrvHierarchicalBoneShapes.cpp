// mrvCore/animation/mrvHierarchicalBoneShapes.cpp
// What the tree of bones looks like: levels, leaves, equal branches, common ancestors.
#include "mrvCore/animation/mrvBoneWalks.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mrv {

namespace internal {

BoneLevels::BoneLevels(const HierarchicalBoneV1& top)
{
    bones.push_back(&top);
    fathers.push_back(-1);
    for (size_t begin = 0, end = 0; begin < bones.size(); begin = end)
    {
        starts.push_back(begin);
        end = bones.size();
        for (size_t i = begin; i < end; ++i)
            addChildren(i);
    }
    starts.push_back(bones.size());
}

void BoneLevels::addChildren(size_t position)
{
    const HierarchicalBoneV1* const father = bones[position];
    for (const HierarchicalBoneV1* child : father->getChildren())
    {
        if (!isLinked(father, child) || child == bones[0])
            continue;
        bones.push_back(child);
        fathers.push_back(static_cast<int>(position));
    }
}

} // namespace internal

namespace {

using Bone = HierarchicalBoneV1;
using internal::BoneInSet;
using internal::BoneLevels;
using internal::FatherClimb;

/// A morph signature as a sorted list.
using Signature = std::vector<unsigned int>;

Signature getSignature(const Bone* bone)
{
    Signature signature;
    signature.reserve(bone->getNbChildren());
    for (const Bone* child : bone->getChildren())
        if (child != nullptr)
            signature.push_back(child->getNbChildren());
    std::sort(signature.begin(), signature.end());
    return signature;
}

/// The signatures of one level, sorted.
std::vector<Signature> getSignatures(const BoneLevels& levels, size_t level)
{
    std::vector<Signature> signatures;
    for (size_t i = levels.starts[level]; i < levels.starts[level + 1]; ++i)
        signatures.push_back(getSignature(levels.bones[i]));
    std::sort(signatures.begin(), signatures.end());
    return signatures;
}

/// The way from the end of the search down to the bone; null in front where it does not come by `root`.
PODArray<const Bone*> getPath(const Bone* root, const Bone* bone)
{
    PODArray<const Bone*> path;
    FatherClimb climb(bone);
    for (; climb.get() != nullptr; climb.climb())
    {
        path.push_back(climb.get());
        // A bone that is the root does not end its own way.
        if (climb.get() == root && path.size() > 1)
            break;
    }
    if (climb.get() == nullptr)
        path.push_back(nullptr);
    std::reverse(path.begin(), path.end());
    return path;
}

/// The search for equal branches.
///
/// Bones are numbers here, in the order of sets of bones ("ranks"), and so are signatures and the classes of
/// bones of equal signature and depth. Two bones of a group form a pair if their fathers are of one class and
/// not the same bone; so a bone has partners exactly if its class of fathers shows two of them in the group,
/// and no pair needs to be looked at.
class EqualBranches
{
public:
    explicit EqualBranches(const Bone& root);
    void search();
    void getResult(Array<MrvSet<const Bone*>>& result) const;

private:
    using Ranks = std::vector<int>;
    static constexpr int NONE = -1;
    static constexpr size_t NEVER = static_cast<size_t>(-1);

    struct Member
    {
        const Bone* bone;
        int father; ///< NONE below the root, whose children never move up
        int signature;
        int shapeClass;
        size_t firstGroup;     ///< the bone has left all groups before this one
        size_t childrensGroup; ///< the last group from which children moved up to the bone
    };
    /// The fathers of one class as the members of a group show them.
    struct FathersSeen
    {
        size_t group = NEVER;
        int first = NONE;
        bool areSeveral = false;
    };
    /// Fathers of one signature, to become a group.
    struct NewGroup
    {
        int firstChild; ///< least rank of those who moved up: that of the first pair
        Ranks fathers;
    };

    static size_t asIndex(int rank) { return static_cast<size_t>(rank); }
    Member& touchMember(int rank) { return _members[asIndex(rank)]; }
    const Member& getMember(int rank) const { return _members[asIndex(rank)]; }
    bool hasLeft(size_t group, int rank) const { return getMember(rank).firstGroup > group; }
    void dropThoseWhoLeft(size_t group);
    void noteFathers(size_t group);
    void moveUp(size_t group);
    void splitBySignature(const Ranks& group, std::vector<Ranks>& candidates) const;

    std::vector<Member> _members;          ///< by rank
    std::vector<FathersSeen> _fathersSeen; ///< by class
    std::vector<Ranks> _groups;            ///< in no order; may still hold bones that have left
};

EqualBranches::EqualBranches(const Bone& root)
{
    const BoneLevels levels(root);
    const size_t count = levels.bones.size();
    std::vector<std::pair<BoneInSet, size_t>> order;
    order.reserve(count);
    for (size_t i = 0; i < count; ++i)
        order.emplace_back(levels.bones[i], i);
    std::sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<int> ranks(count);
    for (size_t rank = 0; rank < count; ++rank)
        ranks[order[rank].second] = static_cast<int>(rank);

    const auto number = [](auto& numbers, const auto& key) {
        return numbers.emplace(key, static_cast<int>(numbers.size())).first->second;
    };
    std::map<Signature, int> signatures;
    std::map<std::pair<int, size_t>, int> shapeClasses;
    _members.resize(count);
    _groups.resize(1);
    for (size_t level = 0; level < levels.getCount(); ++level)
    {
        for (size_t i = levels.starts[level]; i < levels.starts[level + 1]; ++i)
        {
            const Bone* const bone = levels.bones[i];
            const int father = levels.fathers[i] > 0 ? ranks[asIndex(levels.fathers[i])] : NONE;
            const int signature = number(signatures, getSignature(bone));
            const int shapeClass = number(shapeClasses, std::make_pair(signature, level));
            touchMember(ranks[i]) = { bone, father, signature, shapeClass, 0, NEVER };
            if (bone->getNbChildren() == 0)
                _groups[0].push_back(ranks[i]);
        }
    }
    _fathersSeen.resize(shapeClasses.size());
}

void EqualBranches::search()
{
    for (size_t group = 0; group < _groups.size(); ++group)
    {
        dropThoseWhoLeft(group);
        noteFathers(group);
        moveUp(group);
    }
}

void EqualBranches::dropThoseWhoLeft(size_t group)
{
    Ranks& ranks = _groups[group];
    ranks.erase(std::remove_if(ranks.begin(), ranks.end(), [&](int rank) { return hasLeft(group, rank); }),
                ranks.end());
}

void EqualBranches::noteFathers(size_t group)
{
    for (const int rank : _groups[group])
    {
        const int father = getMember(rank).father;
        if (father == NONE)
            continue;
        FathersSeen& seen = _fathersSeen[asIndex(getMember(father).shapeClass)];
        if (seen.group != group)
            seen = { group, father, false };
        else if (seen.first != father)
            seen.areSeveral = true;
    }
}

/// Bones with a partner leave all groups, and their fathers form new ones, one per signature.
void EqualBranches::moveUp(size_t group)
{
    const size_t groupsBefore = _groups.size();
    std::map<int, NewGroup> newGroups; // by signature
    NewGroup* newGroup = nullptr;
    int signature = NONE;
    for (const int rank : _groups[group])
    {
        if (getMember(rank).father == NONE)
            continue;
        Member& father = touchMember(getMember(rank).father);
        if (!_fathersSeen[asIndex(father.shapeClass)].areSeveral)
            continue;
        touchMember(rank).firstGroup = groupsBefore;
        if (father.signature != signature)
            newGroup = &newGroups.emplace(father.signature, NewGroup{ rank, {} }).first->second;
        signature = father.signature;
        newGroup->firstChild = std::min(newGroup->firstChild, rank);
        if (father.childrensGroup != group)
            newGroup->fathers.push_back(getMember(rank).father);
        father.childrensGroup = group;
    }
    dropThoseWhoLeft(group);
    std::map<int, Ranks*> inOrder;
    for (auto& entry : newGroups)
        inOrder[entry.second.firstChild] = &entry.second.fathers;
    for (const auto& entry : inOrder)
        _groups.push_back(std::move(*entry.second));
}

void EqualBranches::splitBySignature(const Ranks& group, std::vector<Ranks>& candidates) const
{
    std::map<int, size_t> partOf;
    std::vector<Ranks> parts;
    for (const int rank : group)
    {
        const size_t place = partOf.emplace(getMember(rank).signature, parts.size()).first->second;
        if (place == parts.size())
            parts.emplace_back();
        parts[place].push_back(rank);
    }
    for (Ranks& part : parts)
        if (part.size() > 1)
            candidates.push_back(std::move(part));
}

void EqualBranches::getResult(Array<MrvSet<const Bone*>>& result) const
{
    // Groups of two or three stay whole even where their signatures differ after others have left.
    constexpr size_t largestWholeGroup = 3;
    std::vector<bool> isTaken(_members.size());
    for (size_t group = 0; group < _groups.size(); ++group)
    {
        Ranks ranks;
        std::remove_copy_if(_groups[group].begin(), _groups[group].end(), std::back_inserter(ranks),
                            [&](int rank) { return hasLeft(group, rank); });
        std::sort(ranks.begin(), ranks.end());
        std::vector<Ranks> candidates;
        if (ranks.size() > largestWholeGroup)
            splitBySignature(ranks, candidates);
        else if (ranks.size() > 1)
            candidates.push_back(std::move(ranks));
        for (const Ranks& candidate : candidates)
        {
            if (isTaken[asIndex(candidate.front())])
                continue;
            MrvSet<const Bone*>& bones = result.addOne();
            for (const int rank : candidate)
            {
                bones.insert(getMember(rank).bone);
                isTaken[asIndex(rank)] = true;
            }
        }
    }
}

} // namespace

int HierarchicalBoneV1::depth() const
{
    int count = -1;
    for (FatherClimb climb(this); climb.get() != nullptr; climb.climb())
        ++count;
    return count;
}

int HierarchicalBoneV1::height() const
{
    return static_cast<int>(BoneLevels(*this).getCount()) - 1;
}

void HierarchicalBoneV1::getSubNodes(Array<MrvSet<const HierarchicalBoneV1*>>& levels) const
{
    const BoneLevels found(*this);
    levels.clear();
    levels.resize(found.getCount());
    for (size_t level = 0; level < found.getCount(); ++level)
        for (size_t i = found.starts[level]; i < found.starts[level + 1]; ++i)
            levels[level].insert(found.bones[i]);
}

void HierarchicalBoneV1::getLeaves(MrvSet<const HierarchicalBoneV1*>& bones)
{
    std::vector<const Bone*> waiting;
    for (const Bone* bone : bones)
        if (bone != nullptr)
            waiting.push_back(bone);
    std::unordered_set<const Bone*> met(waiting.begin(), waiting.end());
    bones.clear();
    while (!waiting.empty())
    {
        const Bone* const bone = waiting.back();
        waiting.pop_back();
        if (bone->_children.empty())
            bones.insert(bone);
        for (const Bone* child : bone->_children)
            if (child != nullptr && met.insert(child).second)
                waiting.push_back(child);
    }
}

std::multiset<unsigned int> HierarchicalBoneV1::getMorphSignature() const
{
    const Signature signature = getSignature(this);
    return { signature.begin(), signature.end() };
}

bool HierarchicalBoneV1::isomorphic(const HierarchicalBoneV1* a, const HierarchicalBoneV1* b)
{
    if (a == nullptr || b == nullptr)
        return a == b;
    const BoneLevels levelsOfA(*a);
    const BoneLevels levelsOfB(*b);
    if (levelsOfA.getCount() != levelsOfB.getCount() || levelsOfA.bones.size() != levelsOfB.bones.size())
        return false;
    for (size_t level = 0; level < levelsOfA.getCount(); ++level)
        if (getSignatures(levelsOfA, level) != getSignatures(levelsOfB, level))
            return false;
    return true;
}

bool HierarchicalBoneV1::isomorphicSubBranches(const HierarchicalBoneV1* root,
                                               Array<MrvSet<const HierarchicalBoneV1*>>& result)
{
    result.clear();
    if (root == nullptr)
        return false;
    EqualBranches branches(*root);
    branches.search();
    branches.getResult(result);
    return result.any();
}

const HierarchicalBoneV1*
HierarchicalBoneV1::findLowestCommonAncester(const HierarchicalBoneV1* root,
                                             const PODArray<const HierarchicalBoneV1*>& bones)
{
    if (bones.size() < 2)
        return nullptr;
    const PODArray<const Bone*> first = getPath(root, bones[0]);
    size_t common = first.size();
    for (size_t i = 1; i < bones.size(); ++i)
    {
        const PODArray<const Bone*> path = getPath(root, bones[i]);
        // A way that has ended differs from one that goes on.
        common = std::min(common, path.size());
        common = static_cast<size_t>(
            std::mismatch(first.begin(), first.begin() + common, path.begin()).first - first.begin());
    }
    return common == 0 ? nullptr : first[common - 1];
}

} // namespace mrv
