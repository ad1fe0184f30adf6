// mrvCore/animation/mrvGenericSpecificConverterMappingQueries.cpp
// Look-ups in a mapping: chains, fathers, heights, mirrors, bounds.
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"

#include <algorithm>
#include <limits>
#include <ostream>

namespace mrv {

using internal::boneAt;
using internal::bonesOf;
using internal::findUpwards;
using internal::nameOf;

namespace {

// Below this, a height of the pelvis above the ground is none.
constexpr float smallestRootHeight = 0.001f;
constexpr float defaultRootHeight = 1.0f;

int findEndingAt(int bone, const Array<GenericSpecificConverterBoneV1>& parts)
{
    for (size_t i = 0; i < parts.size(); ++i)
    {
        if (parts[i]._lastBoneOfChain[1] == bone)
            return static_cast<int>(i);
    }
    return -1;
}

int findFatherIndex(const GenericSpecificConverterBoneV1& bone,
                    const Array<GenericSpecificConverterBoneV1>& parts,
                    const PODArray<HierarchicalBoneV1*>& bones)
{
    const HierarchicalBoneV1* top = boneAt(bones, bone.getTopBone());
    const HierarchicalBoneV1* father = top != nullptr ? top->getFather() : nullptr;
    // A part of one bone does not have its father for a part, but the father's father.
    if (father != nullptr && bone._lastBoneOfChain[1] == bone.getTopBone())
        father = father->getFather();
    int found = -1;
    findUpwards(father, bones.size(), [&](const HierarchicalBoneV1& ancestor) {
        if (ancestor.getFather() != nullptr) // nothing ends at the root
            found = findEndingAt(ancestor.getSpecificBoneIndex(), parts);
        return found >= 0;
    });
    return found;
}

struct LowestBone
{
    const HierarchicalBoneV1* bone = nullptr;
    float height = std::numeric_limits<float>::max();
};

// The lowest of a bone and all its descendants in the bind pose, the first met of equal ones. The last child
// is met first. A ring of bones in a damaged file ends the walk by their number.
LowestBone findLowestBone(const HierarchicalBoneV1* top, size_t boneCount, const Quaternion& toZUp)
{
    LowestBone lowest;
    if (top == nullptr)
        return lowest;
    const auto getHeight = [&toZUp](const HierarchicalBoneV1& bone) {
        return (toZUp * bone.getWorldPosUnscaled()).z;
    };
    lowest = { top, getHeight(*top) };
    PODArray<const HierarchicalBoneV1*> stack;
    stack.push_back(top);
    for (size_t left = boneCount; stack.any() && left > 0; --left)
    {
        const HierarchicalBoneV1* bone = stack.back();
        stack.pop_back();
        const float height = getHeight(*bone);
        if (height < lowest.height)
            lowest = { bone, height };
        for (const HierarchicalBoneV1* child : bone->getChildren())
        {
            if (child != nullptr)
                stack.push_back(child);
        }
    }
    return lowest;
}

// The bone of the mirror part at the place that `bone` has in the chain of part `k`; -1 for none.
int findInMirrorChain(int bone, const PODArray<HierarchicalBoneV1*>& bones,
                      const Array<GenericSpecificConverterBoneV1>& parts, size_t k,
                      const PODArray<int>& mirrorSources, int chain)
{
    PODArray<const HierarchicalBoneV1*> own;
    GenericSpecificConverterMappingV8::buildBoneChain(own, bones, parts[k], chain, false);
    const auto isWanted = [bone](const HierarchicalBoneV1* link) {
        return link->getSpecificBoneIndex() == bone;
    };
    const auto place = std::find_if(own.begin(), own.end(), isWanted);
    if (place == own.end() || k >= mirrorSources.size())
        return -1;
    const int mirror = mirrorSources[k];
    if (mirror < 0 || static_cast<size_t>(mirror) >= parts.size())
        return -1;
    PODArray<const HierarchicalBoneV1*> mirrored;
    GenericSpecificConverterMappingV8::buildBoneChain(mirrored, bones, parts[static_cast<size_t>(mirror)],
                                                      chain, false);
    if (mirrored.size() != own.size())
        return -1;
    return mirrored[static_cast<size_t>(place - own.begin())]->getSpecificBoneIndex();
}

// Appends the bones of a part from its end up to its top; none if the way misses the top.
void appendPartBones(PODArray<const HierarchicalBoneV1*>& result, const PODArray<HierarchicalBoneV1*>& bones,
                     const GenericSpecificConverterBoneV1& part)
{
    const int end = part._lastBoneOfChain[1] >= 0 ? part._lastBoneOfChain[1] : part._lastBoneOfChain[0];
    if (part.getTopBone() < 0 || end < 0)
        return;
    const size_t before = result.size();
    const HierarchicalBoneV1* top = boneAt(bones, part.getTopBone());
    const HierarchicalBoneV1* reached =
        findUpwards(boneAt(bones, end), bones.size(), [&result, top](const HierarchicalBoneV1& bone) {
            result.push_back(&bone);
            return &bone == top;
        });
    if (reached == nullptr && top != nullptr)
        result.resize(before);
}

} // namespace

void GenericSpecificConverterMappingV8::getEndOfChainBoneNames(Array<MrvString>& result) const
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    result.clear();
    for (const ConverterBones* parts : { &_spineBones, &_limbBones, &_effectorBones })
    {
        for (const GenericSpecificConverterBoneV1& part : *parts)
            result.push_back(nameOf(boneAt(bones, part._lastBoneOfChain[1])));
    }
}

void GenericSpecificConverterMappingV8::buildBoneChain(PODArray<const HierarchicalBoneV1*>& result,
                                                       const PODArray<HierarchicalBoneV1*>& bones,
                                                       const GenericSpecificConverterBoneV1& bone, int chain,
                                                       bool reverse)
{
    const HierarchicalBoneV1* last = boneAt(bones, bone._lastBoneOfChain[chain]);
    if (last == nullptr)
        return;
    const int first = bone._firstBoneOfChain[chain];
    findUpwards(last, bones.size(), [&result, first](const HierarchicalBoneV1& link) {
        result.push_back(&link);
        return link.getSpecificBoneIndex() == first;
    });
    if (reverse)
        std::reverse(result.begin(), result.end());
}

int GenericSpecificConverterMappingV8::findFatherIndexInSpines(
    const GenericSpecificConverterBoneV1& bone, const GenericSpecificConverterMappingV8& mapping)
{
    return findFatherIndex(bone, mapping._spineBones, bonesOf(mapping._skeletonDescription));
}

int GenericSpecificConverterMappingV8::findFatherIndexInLimbs(
    const GenericSpecificConverterBoneV1& bone, const GenericSpecificConverterMappingV8& mapping)
{
    return findFatherIndex(bone, mapping._limbBones, bonesOf(mapping._skeletonDescription));
}

const GenericSpecificConverterBoneV1* GenericSpecificConverterMappingV8::findGenericSpecificConverterBone(
    int genericIndex, const GenericSpecificConverterMappingV8& mapping, int* chain)
{
    for (const ConverterBones* parts : { &mapping._spineBones, &mapping._limbBones, &mapping._effectorBones })
    {
        for (const GenericSpecificConverterBoneV1& part : *parts)
        {
            const bool isExtension = part._genericBoneIndex[1] == genericIndex;
            if (!isExtension && part._genericBoneIndex[0] != genericIndex)
                continue;
            if (chain != nullptr)
                *chain = isExtension ? 1 : 0;
            return &part;
        }
    }
    return nullptr;
}

int GenericSpecificConverterMappingV8::findExtensionEOCSpecificBoneIndex(
    int genericIndex, const GenericSpecificConverterMappingV8& mapping)
{
    const GenericSpecificConverterBoneV1* part =
        findGenericSpecificConverterBone(genericIndex, mapping, nullptr);
    return part != nullptr ? part->_lastBoneOfChain[1] : -1;
}

bool GenericSpecificConverterMappingV8::checkSkeletonMapping(std::ostream* out) const
{
    if (_pelvisBoneIndex < 0)
    {
        if (out != nullptr)
            *out << "No pelvis bone; ";
        return false;
    }
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    bool isCorrect = true;
    const auto checkChain = [&](const GenericSpecificConverterBoneV1& part, size_t position, int chain) {
        if (part._firstBoneOfChain[chain] != _pelvisBoneIndex &&
            part._lastBoneOfChain[chain] != _pelvisBoneIndex)
            return;
        isCorrect = false;
        if (out == nullptr)
            return;
        // The message names the bones of the spine at the same position, whichever list the part is in.
        const GenericSpecificConverterBoneV1* named =
            position < _spineBones.size() ? &_spineBones[position] : nullptr;
        *out << "The chain from bone "
             << nameOf(named != nullptr ? boneAt(bones, named->_firstBoneOfChain[chain]) : nullptr) << " to "
             << nameOf(named != nullptr ? boneAt(bones, named->_lastBoneOfChain[chain]) : nullptr)
             << " contains the pelvis. The pelvis should not belong to any bone chain.";
    };
    for (const ConverterBones* parts : { &_spineBones, &_limbBones, &_effectorBones })
    {
        for (size_t i = 0; i < parts->size(); ++i)
        {
            checkChain((*parts)[i], i, 0);
            checkChain((*parts)[i], i, 1);
        }
    }
    return isCorrect;
}

float GenericSpecificConverterMappingV8::computeRootHeight(const Array<Vector3>& localPositions,
                                                           const Array<Quaternion>& localOrientations) const
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* pelvis = boneAt(bones, _pelvisBoneIndex);
    if (pelvis == nullptr)
        return defaultRootHeight;
    const bool isPosed = localPositions.size() == bones.size() && localOrientations.size() == bones.size();
    const auto getHeight = [&](const HierarchicalBoneV1& bone) {
        const Vector3 position =
            isPosed ? bone.computeWorldPosWithLocalOverrides(localPositions, localOrientations)
                    : bone.getWorldPosUnscaled();
        return (_orientationToZUpXFront * position).z;
    };
    const float pelvisHeight = getHeight(*pelvis);

    LowestBone foot;
    float ground = 0.0f;
    for (size_t i = 0; i < _limbBones.size(); ++i)
    {
        if (_limbBones[i]._type != SkeletonPartType::LEG)
            continue;
        const LowestBone lowest = findLowestBone(boneAt(bones, _limbBones[i]._lastBoneOfChain[1]),
                                                 bones.size(), _orientationToZUpXFront);
        if (lowest.height < foot.height)
        {
            foot = lowest;
            ground = getGroundHeight(static_cast<int>(i));
        }
    }
    if (foot.bone != nullptr)
    {
        const float height = pelvisHeight - (getHeight(*foot.bone) - (foot.height - ground));
        if (height >= smallestRootHeight)
            return height;
    }
    const float overGround = pelvisHeight - getGroundHeight(0);
    if (overGround >= smallestRootHeight)
        return overGround;
    float minimum = pelvisHeight;
    for (const HierarchicalBoneV1* bone : bones)
        minimum = bone != nullptr ? std::min(minimum, getHeight(*bone)) : minimum;
    const float overLowest = pelvisHeight - minimum;
    return overLowest >= smallestRootHeight ? overLowest : defaultRootHeight;
}

int GenericSpecificConverterMappingV8::computeLowestBoneIndexOnLimb(int limb, float* height) const
{
    if (limb < 0 || static_cast<size_t>(limb) >= _limbBones.size())
        return -1;
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const GenericSpecificConverterBoneV1& part = _limbBones[static_cast<size_t>(limb)];
    const LowestBone lowest =
        findLowestBone(boneAt(bones, part._lastBoneOfChain[1]), bones.size(), _orientationToZUpXFront);
    if (lowest.bone == nullptr)
        return -1;
    if (height != nullptr)
        *height = lowest.height;
    return lowest.bone->getSpecificBoneIndex();
}

int GenericSpecificConverterMappingV8::getEstimatedMirrorBoneIndex(int bone) const
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    if (bone < 0 || static_cast<size_t>(bone) > bones.size() || _pelvisBoneIndex > bone)
        return -1;
    if (_pelvisBoneIndex == bone)
        return bone;
    for (size_t k = 0; k < _spineBones.size(); ++k)
    {
        // The limbs' mirrors guard the spines: a spine beyond them has none.
        if (k >= _channelMirrorSources.size())
            break;
        const int mirror = findInMirrorChain(bone, bones, _spineBones, k, _spineMirrorSources, 1);
        if (mirror >= 0)
            return mirror;
    }
    for (size_t k = 0; k < _limbBones.size(); ++k)
    {
        for (int chain = 0; chain < 2; ++chain)
        {
            const int mirror = findInMirrorChain(bone, bones, _limbBones, k, _channelMirrorSources, chain);
            if (mirror >= 0)
                return mirror;
        }
    }
    return -1;
}

void GenericSpecificConverterMappingV8::computePerceptionBoundingBox(FastBoundingBox& box) const
{
    box.clear();
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* pelvis = boneAt(bones, _pelvisBoneIndex);
    if (pelvis == nullptr)
        return;
    box.update(pelvis->getWorldPosUnscaled());

    PODArray<const HierarchicalBoneV1*> seen;
    for (const GenericSpecificConverterBoneV1& spine : _spineBones)
        appendPartBones(seen, bones, spine);
    for (const GenericSpecificConverterBoneV1& limb : _limbBones)
    {
        if (limb._type != SkeletonPartType::GRASPER)
            appendPartBones(seen, bones, limb);
    }
    for (const GenericSpecificConverterBoneV1& effector : _effectorBones)
    {
        const int limb = findFatherIndexInLimbs(effector, *this);
        if (limb >= 0 && _limbBones[static_cast<size_t>(limb)]._type != SkeletonPartType::GRASPER)
            appendPartBones(seen, bones, effector);
    }
    if (seen.empty())
        seen.insert(seen.end(), bones.begin(), bones.end());
    for (const HierarchicalBoneV1* bone : seen)
    {
        if (bone != nullptr)
            box.update(bone->getWorldPosUnscaled());
    }
}

} // namespace mrv
