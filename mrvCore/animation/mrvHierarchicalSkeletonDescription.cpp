// mrvCore/animation/mrvHierarchicalSkeletonDescription.cpp
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(HierarchicalSkeletonDescriptionV1, "mrv::HierarchicalSkeletonDescriptionV1",
                            "32d789e2-1104-4c74-8d8d-302ccdf26e58")

void HierarchicalSkeletonDescriptionV1::addAttributes()
{
    using Description = HierarchicalSkeletonDescriptionV1;
    addAttribute<MrvString>("name", &Description::_name);
    addAttribute<HierarchicalBoneV1*>("rootBone", &Description::_rootBone);
    addAttribute<PODArray<HierarchicalBoneV1*>>("bones", &Description::_bones);
}

namespace {

using Bone = HierarchicalBoneV1;

bool isNameLess(const Bone* a, const Bone* b)
{
    return a->getName() < b->getName();
}

/// Where bones stand in an array.
template <typename BoneClass>
class BonePositions
{
public:
    explicit BonePositions(const PODArray<BoneClass*>& bones)
    {
        _entries.reserve(bones.size());
        for (size_t i = 0; i < bones.size(); ++i)
            _entries.emplace_back(bones[i], static_cast<int>(i));
        std::sort(_entries.begin(), _entries.end());
    }
    /// The last position; -1 for null and for a bone that is not there.
    int find(const BoneClass* bone) const
    {
        const auto behind = std::upper_bound(_entries.begin(), _entries.end(),
                                             Entry(bone, static_cast<int>(_entries.size())));
        const bool isThere = bone != nullptr && behind != _entries.begin() && (behind - 1)->first == bone;
        return isThere ? (behind - 1)->second : -1;
    }

private:
    using Entry = std::pair<const BoneClass*, int>;
    std::vector<Entry> _entries;
};

/// What is wrong with a hierarchy, and where; no text if it is sound.
struct HierarchyFault
{
    const char* text = nullptr;
    const Bone* bone = nullptr;
};

/// Links seen from both sides. With one entry for each child, a walk down from the roots meets each bone at
/// most once.
HierarchyFault findLinkFault(const PODArray<Bone*>& bones, const BonePositions<Bone>& positions)
{
    std::vector<bool> isListed(bones.size());
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const Bone* const bone = bones[i];
        if (bone == nullptr)
            return { "is NULL", nullptr };
        if (positions.find(bone) != static_cast<int>(i))
            return { "stands twice in the skeleton description", bone };
        for (const Bone* child : bone->getChildren())
        {
            const int position = positions.find(child);
            if (position < 0)
                return { "has a child that is not in the skeleton description", bone };
            if (!bone->isParentOf(child) || isListed[static_cast<size_t>(position)])
                return { "has a child that is not its own", bone };
            isListed[static_cast<size_t>(position)] = true;
        }
    }
    for (size_t i = 0; i < bones.size(); ++i)
        if (bones[i]->getFather() != nullptr && !isListed[i])
            return { "is not among the children of its father", bones[i] };
    return {};
}

/// Appends the children of each bone behind the given ones, level by level; siblings sorted by name or as
/// they are.
void appendBranches(PODArray<const Bone*>& bones, bool sortByName)
{
    for (size_t next = 0; next < bones.size(); ++next)
    {
        const Bone* const father = bones[next];
        const size_t firstChild = bones.size();
        for (const Bone* child : father->getChildren())
            if (father->isParentOf(child))
                bones.push_back(child);
        if (sortByName)
            std::stable_sort(bones.begin() + firstChild, bones.end(), isNameLess);
    }
}

PODArray<const Bone*> getFatherlessBones(const PODArray<Bone*>& bones)
{
    PODArray<const Bone*> found;
    for (const Bone* bone : bones)
        if (bone != nullptr && bone->getFather() == nullptr)
            found.push_back(bone);
    return found;
}

HierarchyFault findHierarchyFault(const PODArray<Bone*>& bones, const Bone* root)
{
    const BonePositions<Bone> positions(bones);
    const HierarchyFault fault = findLinkFault(bones, positions);
    if (fault.text != nullptr)
        return fault;
    if (root != nullptr && positions.find(root) < 0)
        return { "is the _rootBone but not in the skeleton description", root };
    PODArray<const Bone*> reached = getFatherlessBones(bones);
    appendBranches(reached, false);
    if (reached.size() == bones.size())
        return {};
    std::sort(reached.begin(), reached.end());
    for (const Bone* bone : bones)
        if (!std::binary_search(reached.begin(), reached.end(), bone))
            return { "is its own ancestor, or lies below such a bone", bone };
    return {};
}

/// The position of each bone's father, -1 for none.
template <typename BoneClass>
PODArray<int> findFatherPositions(const PODArray<BoneClass*>& bones)
{
    const BonePositions<BoneClass> positions(bones);
    PODArray<int> fathers(bones.size(), -1);
    for (size_t i = 0; i < bones.size(); ++i)
        if (bones[i] != nullptr)
            fathers[i] = positions.find(bones[i]->getFather());
    return fathers;
}

void copyIndices(PODArray<unsigned long>& to, const PODArray<unsigned long>& from)
{
    to.reserve(from.size());
    to = from;
}

} // namespace

bool HierarchicalSkeletonDescriptionV1::OverrideScales::empty() const
{
    return _bonesLocalPosScalesIndices.empty() && _bonesLocalPosScales.empty() &&
           _bonesLocalOriOffsetsIndices.empty() && _bonesLocalOriOffsets.empty() &&
           _bonesAdditionalSkinningScalesIndices.empty() && _bonesAdditionalSkinningScales.empty();
}

HierarchicalSkeletonDescriptionV1::HierarchicalSkeletonDescriptionV1(
    const HierarchicalSkeletonDescriptionV1& other)
{
    *this = other;
}

HierarchicalSkeletonDescriptionV1&
HierarchicalSkeletonDescriptionV1::operator=(const HierarchicalSkeletonDescriptionV1& other)
{
    if (this == &other)
        return *this;
    clear();
    _name = other._name;
    _bones.reserve(other._bones.size());
    for (const Bone* source : other._bones)
    {
        Bone* bone = nullptr; // a null stays one, and keeps the copy as invalid as its source
        if (source != nullptr)
        {
            bone =
                new Bone("", nullptr, source->getLocalPosUnscaled(), source->getLocalOri(), _bones.sizeInt());
            bone->setName(source->getName());
        }
        _bones.push_back(bone);
    }
    linkBones(findFatherPositions(other._bones),
              other._rootBone != nullptr ? other._rootBone->getSpecificBoneIndex() : -1);
    copyIndices(_cacheToSpecificSortedBones, other._cacheToSpecificSortedBones);
    copyIndices(_specificToCacheBoneIndices, other._specificToCacheBoneIndices);
    computeCaches();
    return *this;
}

void HierarchicalSkeletonDescriptionV1::becomeOwnCopy()
{
    if (isLikeOwnCopy())
        return computeCaches();
    HierarchicalSkeletonDescriptionV1 copy(*this);
    _bones.swap(copy._bones);
    std::swap(_rootBone, copy._rootBone);
}

/// True if, caches aside, a copy would be the same. Of bones in another order than from fathers to children,
/// in which computeCaches() would miss stale ones, it is not told.
bool HierarchicalSkeletonDescriptionV1::isLikeOwnCopy() const
{
    const auto isAtItsIndex = [this](const Bone* bone) {
        const size_t index = static_cast<size_t>(bone->getSpecificBoneIndex());
        return index < _bones.size() && _bones[index] == bone;
    };
    PODArray<unsigned int> childrenMet(_bones.size(), 0);
    for (size_t i = 0; i < _bones.size(); ++i)
    {
        const Bone* const bone = _bones[i];
        if (bone == nullptr || bone->getSpecificBoneIndex() != static_cast<int>(i))
            return false;
        const Bone* const father = bone->getFather();
        if (father == nullptr)
            continue;
        if (!isAtItsIndex(father) || father->getSpecificBoneIndex() >= bone->getSpecificBoneIndex())
            return false;
        const unsigned int place = childrenMet[static_cast<size_t>(father->getSpecificBoneIndex())]++;
        if (place >= father->getNbChildren() || father->getChild(place) != bone)
            return false;
    }
    for (size_t i = 0; i < _bones.size(); ++i)
        if (childrenMet[i] != _bones[i]->getNbChildren())
            return false;
    return _rootBone == nullptr || isAtItsIndex(_rootBone);
}

HierarchicalSkeletonDescriptionV1::~HierarchicalSkeletonDescriptionV1()
{
    HierarchicalSkeletonDescriptionV1::clear();
}

void HierarchicalSkeletonDescriptionV1::clear()
{
    _name.clear();
    _rootBone = nullptr;
    // A damaged file may name a bone twice.
    std::sort(_bones.begin(), _bones.end());
    _bones.erase(std::unique(_bones.begin(), _bones.end()), _bones.end());
    for (; _bones.any(); _bones.pop_back())
        delete _bones.back();
    _cacheToSpecificSortedBones.clear();
    _specificToCacheBoneIndices.clear();
}

/// Sets the fathers of new bones. Position -1 stands for none.
void HierarchicalSkeletonDescriptionV1::linkBones(const PODArray<int>& fatherPositions, int rootPosition)
{
    for (size_t i = 0; i < _bones.size(); ++i)
    {
        if (_bones[i] == nullptr)
            continue;
        const int father = fatherPositions[i];
        _bones[i]->setFather(father >= 0 ? _bones[static_cast<size_t>(father)] : nullptr);
        if (static_cast<int>(i) == rootPosition)
            _rootBone = _bones[i];
    }
}

void HierarchicalSkeletonDescriptionV1::computeCaches()
{
    for (const Bone* bone : _bones)
        if (bone != nullptr)
            bone->computeCache();
}

void HierarchicalSkeletonDescriptionV1::initSortedBones()
{
    _cacheToSpecificSortedBones.clear();
    _cacheToSpecificSortedBones.reserve(_bones.size());
    PODArray<const Bone*> roots = getFatherlessBones(_bones);
    std::stable_sort(roots.begin(), roots.end(), isNameLess);
    for (const Bone* root : roots)
    {
        PODArray<const Bone*> branch(1, root);
        appendBranches(branch, true);
        for (const Bone* bone : branch)
            _cacheToSpecificSortedBones.push_back(static_cast<unsigned long>(bone->getSpecificBoneIndex()));
    }

    const size_t count = _cacheToSpecificSortedBones.size();
    _specificToCacheBoneIndices.clear();
    _specificToCacheBoneIndices.resize(count, 0);
    for (size_t i = 0; i < count; ++i)
    {
        const unsigned long specificIndex = _cacheToSpecificSortedBones[i];
        if (specificIndex < count) // not so in a damaged skeleton, and for a negative index
            _specificToCacheBoneIndices[specificIndex] = i;
    }
}

bool HierarchicalSkeletonDescriptionV1::equals(const HierarchicalSkeletonDescriptionV1& other,
                                               bool compareName, bool compareBoneCount, bool compareHierarchy,
                                               bool compareSortedIndices) const
{
    if (compareName && _name != other._name)
        return false;
    if (compareBoneCount && _bones.size() != other._bones.size())
        return false;
    if (compareHierarchy)
    {
        const bool hasRoots = _rootBone != nullptr && other._rootBone != nullptr;
        if (hasRoots ? !_rootBone->similar(*other._rootBone) : _rootBone != other._rootBone)
            return false;
    }
    return !compareSortedIndices || (_cacheToSpecificSortedBones == other._cacheToSpecificSortedBones &&
                                     _specificToCacheBoneIndices == other._specificToCacheBoneIndices);
}

bool HierarchicalSkeletonDescriptionV1::isSkeletonDescriptionValid(bool logErrors) const
{
    bool isValid = true;
    std::unordered_set<int> usedIndices;
    for (const Bone* bone : _bones)
    {
        if (bone == nullptr)
        {
            isValid = false;
            if (logErrors)
                MRV_LOG(SDK, LOG_ERROR, "A bone of the skeleton description is NULL.");
            continue;
        }
        const int index = bone->getSpecificBoneIndex();
        if (!usedIndices.insert(index).second)
        {
            isValid = false;
            if (logErrors)
                MRV_LOG(SDK, LOG_ERROR,
                        "The bone " << bone->getName() << " has an index of " << index
                                    << ", which is already in use for another bone.");
        }
        if (index >= _bones.sizeInt())
        {
            isValid = false;
            if (logErrors)
                MRV_LOG(
                    SDK, LOG_ERROR,
                    "The bone " << bone->getName() << " has an index of " << index
                                << ", which is greater than the number of bones in the skeleton description("
                                << _bones.size() << ").");
        }
    }
    const char* const rootFault = _rootBone == nullptr                ? "The _rootBone is NULL."
                                  : _rootBone->getFather() != nullptr ? "The _rootBone has a father bone."
                                                                      : nullptr;
    if (rootFault != nullptr)
    {
        isValid = false;
        if (logErrors)
            MRV_LOG(SDK, LOG_ERROR, rootFault);
    }
    return hasSoundLinks(logErrors) && isValid;
}

bool HierarchicalSkeletonDescriptionV1::hasSoundLinks(bool logErrors) const
{
    const HierarchyFault fault = findHierarchyFault(_bones, _rootBone);
    if (logErrors && fault.bone != nullptr)
        MRV_LOG(SDK, LOG_ERROR, "The bone " << fault.bone->getName() << " " << fault.text << ".");
    return fault.text == nullptr;
}

bool HierarchicalSkeletonDescriptionV1::hasSoundHierarchy() const
{
    return hasSoundLinks(false);
}

float HierarchicalSkeletonDescriptionV1::getMaxBonesHierarchyLength() const
{
    const PODArray<int> fathers = findFatherPositions(_bones);
    PODArray<float> lengths(_bones.size(), 0.0f);
    for (size_t i = 0; i < _bones.size(); ++i)
        if (_bones[i] != nullptr)
            lengths[i] = _bones[i]->getLocalPosUnscaled().norm();

    float longest = 0.0f;
    for (size_t leaf = 0; leaf < _bones.size(); ++leaf)
    {
        if (_bones[leaf] == nullptr || _bones[leaf]->getNbChildren() != 0)
            continue;
        float length = 0.0f;              // summed from the leaf on, which its last bits depend on
        size_t stepsLeft = _bones.size(); // a ring of fathers would go on for ever
        for (int at = static_cast<int>(leaf); at >= 0 && stepsLeft != 0; --stepsLeft)
        {
            const size_t position = static_cast<size_t>(at);
            if (_bones[position] == _rootBone)
                break;
            length += lengths[position];
            at = fathers[position];
        }
        longest = std::max(longest, length);
    }
    return longest;
}

void HierarchicalSkeletonDescriptionV1::bakeSkeletonOverride(const Override& skeletonOverride)
{
    const size_t count = _bones.size();
    if (skeletonOverride._boneslocalPos.size() != count || skeletonOverride._boneslocalOri.size() != count)
    {
        MRV_LOG(SDK, LOG_ERROR,
                "Trying to bake a skeleton override with a different number of bones ("
                    << skeletonOverride._boneslocalPos.size() << ") than the skeleton's (" << count << ").");
        return;
    }
    for (size_t i = 0; i < count; ++i)
        if (_bones[i] != nullptr)
            _bones[i]->rewriteLocalTransform(skeletonOverride._boneslocalPos[i],
                                             skeletonOverride._boneslocalOri[i]);
    computeCaches();
}

} // namespace mrv
