// mrvCore/animation/mrvGenericSpecificConverterMappingBuilding.cpp
// Adding the parts of the body by hand.
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <vector>

namespace mrv {

using internal::boneAt;
using internal::bonesOf;
using internal::findUpwards;
using internal::nameOf;

namespace {

enum { NO_SKELETON = -1, BONE_NOT_FOUND = -2, PART_REFUSED = -3 };

bool hasSkeleton(const HierarchicalSkeletonDescriptionV1* description)
{
    if (description == nullptr)
        MRV_LOG(SDK, LOG_WARNING, "Skeleton decription not loaded.");
    return description != nullptr;
}

// Why a part cannot be built on the two bones that it needs, with a message; 0 if it can.
int findObstacle(const HierarchicalSkeletonDescriptionV1* description, const HierarchicalBoneV1* first,
                 const HierarchicalBoneV1* last, const char* message)
{
    if (!hasSkeleton(description))
        return NO_SKELETON;
    if (first != nullptr && last != nullptr)
        return 0;
    MRV_LOG(SDK, LOG_WARNING, message);
    return BONE_NOT_FOUND;
}

constexpr char pairNotFound[] = "One of the two given bones could not be found in the skeleton description";
constexpr char extensionNotFound[] =
    "Either the first extension bone or the last extension bone could not be found in the skeleton "
    "description. Both bones are required.";

template <class IsWanted>
const HierarchicalBoneV1* findBone(const PODArray<HierarchicalBoneV1*>& bones, IsWanted isWanted)
{
    for (const HierarchicalBoneV1* bone : bones)
    {
        if (bone != nullptr && isWanted(*bone))
            return bone;
    }
    return nullptr;
}

const HierarchicalBoneV1* findByName(const PODArray<HierarchicalBoneV1*>& bones, const char* name)
{
    if (name == nullptr)
        return nullptr;
    return findBone(bones, [name](const HierarchicalBoneV1& bone) { return bone.getName() == name; });
}

// The first of `others` that ends at `bone`, -1 for none.
int findEndingAt(const HierarchicalBoneV1& bone, const PODArray<HierarchicalBoneV1*>& bones,
                 const Array<GenericSpecificConverterBoneV1>& others)
{
    for (size_t i = 0; i < others.size(); ++i)
    {
        if (boneAt(bones, others[i]._lastBoneOfChain[1]) == &bone)
            return static_cast<int>(i);
    }
    return -1;
}

bool hangsBelowOther(const HierarchicalBoneV1* first, const HierarchicalBoneV1* last,
                     const PODArray<HierarchicalBoneV1*>& bones,
                     const Array<GenericSpecificConverterBoneV1>& others)
{
    if (first == nullptr || last == nullptr)
        return false;
    // Asked for each ancestor, the list of the others would be walked once a bone of a long way up.
    std::vector<bool> isEnd(bones.size());
    for (const GenericSpecificConverterBoneV1& other : others)
        if (boneAt(bones, other._lastBoneOfChain[1]) != nullptr)
            isEnd[static_cast<size_t>(other._lastBoneOfChain[1])] = true;
    const HierarchicalBoneV1* ancestor =
        findUpwards(first->getFather(), bones.size(), [&](const HierarchicalBoneV1& bone) {
            const int index = bone.getSpecificBoneIndex();
            return boneAt(bones, index) == &bone ? isEnd[static_cast<size_t>(index)]
                                                 : findEndingAt(bone, bones, others) >= 0;
        });
    if (ancestor == nullptr)
        return false;
    MRV_LOG(SDK, LOG_WARNING,
            "The Limb (" << nameOf(first) << " -> " << nameOf(last)
                         << ") is invalid because one of his ancester bones belong to another limb ("
                         << nameOf(ancestor) << " belong to the limb "
                         << findEndingAt(*ancestor, bones, others) << ")");
    return true;
}

} // namespace

void GenericSpecificConverterMappingV8::setPelvis(const HierarchicalBoneV1* bone)
{
    _pelvisBoneIndex = bone != nullptr ? bone->getSpecificBoneIndex() : -1;
}

bool GenericSpecificConverterMappingV8::setPelvis(const char* name)
{
    if (!hasSkeleton(_skeletonDescription))
        return false;
    const HierarchicalBoneV1* bone = findByName(bonesOf(_skeletonDescription), name);
    if (bone == nullptr)
    {
        MRV_LOG(SDK, LOG_WARNING, "The pelvis bone could not be found in the skeleton description");
        return false;
    }
    setPelvis(bone);
    return true;
}

int GenericSpecificConverterMappingV8::addSpine(const GenericSpecificConverterBoneV1& bone)
{
    _spineBones.push_back(bone);
    return _spineBones.sizeInt() - 1;
}

int GenericSpecificConverterMappingV8::addSpine(int firstBone, int lastBone, bool computeFullExtentLength,
                                                const Vector3& ikNormalPlane)
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* first = boneAt(bones, firstBone);
    const HierarchicalBoneV1* last = boneAt(bones, lastBone);
    if (const int obstacle = findObstacle(_skeletonDescription, first, last, pairNotFound))
        return obstacle;
    return addSpine(GenericSpecificConverterBoneV1(SkeletonPartType::SPINE, nullptr, nullptr, first, last,
                                                   ikNormalPlane, ikNormalPlane, computeFullExtentLength,
                                                   computeFullExtentLength));
}

int GenericSpecificConverterMappingV8::addChecked(ConverterBones& parts,
                                                  const GenericSpecificConverterBoneV1& bone)
{
    if (!isConverterBoneHierarchyCorrect(bone, _skeletonDescription, parts))
        return PART_REFUSED;
    parts.push_back(bone);
    return parts.sizeInt() - 1;
}

int GenericSpecificConverterMappingV8::addLimb(const GenericSpecificConverterBoneV1& bone)
{
    return addChecked(_limbBones, bone);
}

int GenericSpecificConverterMappingV8::addLimb(SkeletonPartType::Value type, int firstAux, int lastAux,
                                               int firstExt, int lastExt,
                                               CoronalPlaneLocation::Value coronalLocation,
                                               TransversePlaneLocation::Value transverseLocation,
                                               SagittalPlaneLocation::Value sagittalLocation,
                                               const Vector3& planeAux, const Vector3& planeExt, bool fullAux,
                                               bool fullExt)
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* first = boneAt(bones, firstExt);
    const HierarchicalBoneV1* last = boneAt(bones, lastExt);
    if (const int obstacle = findObstacle(_skeletonDescription, first, last, extensionNotFound))
        return obstacle;
    return addLimb(GenericSpecificConverterBoneV1(type, boneAt(bones, firstAux), boneAt(bones, lastAux),
                                                  first, last, coronalLocation, transverseLocation,
                                                  sagittalLocation, planeAux, planeExt, fullAux, fullExt));
}

int GenericSpecificConverterMappingV8::addEffector(const GenericSpecificConverterBoneV1& bone)
{
    return addChecked(_effectorBones, bone);
}

int GenericSpecificConverterMappingV8::addEffector(SkeletonPartType::Value type, int firstAux, int lastAux,
                                                   int firstExt, int lastExt, bool fullAux, bool fullExt,
                                                   const Vector3& planeAux, const Vector3& planeExt)
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* first = boneAt(bones, firstExt);
    const HierarchicalBoneV1* last = boneAt(bones, lastExt);
    if (const int obstacle = findObstacle(_skeletonDescription, first, last, pairNotFound))
        return obstacle;
    return addEffector(GenericSpecificConverterBoneV1(type, boneAt(bones, firstAux), boneAt(bones, lastAux),
                                                      first, last, planeAux, planeExt, fullAux, fullExt));
}

void GenericSpecificConverterMappingV8::addIkExcludedBonesByBoneName(const char* const* names, int count)
{
    for (int i = 0; i < count; ++i)
    {
        const HierarchicalBoneV1* bone = findByName(bonesOf(_skeletonDescription), names[i]);
        if (bone != nullptr)
            _ikExcludedBones.push_back(bone->getSpecificBoneIndex());
    }
}

void GenericSpecificConverterMappingV8::addIkExcludedBonesByBoneId(
    const PODArray<const HierarchicalBoneV1*>& bones)
{
    for (const HierarchicalBoneV1* bone : bones)
    {
        if (bone == nullptr)
            continue;
        const int index = bone->getSpecificBoneIndex();
        const auto hasIndex = [index](const HierarchicalBoneV1& own) {
            return own.getSpecificBoneIndex() == index;
        };
        if (findBone(bonesOf(_skeletonDescription), hasIndex) != nullptr)
            _ikExcludedBones.push_back(index);
    }
}

bool isConverterBoneHierarchyCorrect(const GenericSpecificConverterBoneV1& bone,
                                     const HierarchicalSkeletonDescriptionV1* skeleton,
                                     const Array<GenericSpecificConverterBoneV1>& others)
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(skeleton);
    for (int chain = 0; chain < 2; ++chain)
    {
        if (hangsBelowOther(boneAt(bones, bone._firstBoneOfChain[chain]),
                            boneAt(bones, bone._lastBoneOfChain[chain]), bones, others))
            return false;
    }
    if (bone._firstBoneOfChain[0] < 0 || bone._lastBoneOfChain[0] < 0 || bone._firstBoneOfChain[1] < 0 ||
        bone._lastBoneOfChain[1] < 0)
        return true;

    const HierarchicalBoneV1* auxLast = boneAt(bones, bone._lastBoneOfChain[0]);
    const HierarchicalBoneV1* extFirst = boneAt(bones, bone._firstBoneOfChain[1]);
    const auto isAuxLast = [auxLast](const HierarchicalBoneV1& ancestor) { return &ancestor == auxLast; };
    if (findUpwards(extFirst, bones.size(), isAuxLast) != nullptr)
        return true;
    MRV_LOG(SDK, LOG_WARNING,
            "The Limb (Aux: " << nameOf(boneAt(bones, bone._firstBoneOfChain[0])) << " -> " << nameOf(auxLast)
                              << ", Ext: " << nameOf(extFirst) << " -> "
                              << nameOf(boneAt(bones, bone._lastBoneOfChain[1]))
                              << ") is invalid because the auxiliarry part does not seems to be an ancester "
                                 "to the extension part ("
                              << nameOf(auxLast) << " is not an ancester of " << nameOf(extFirst) << ")");
    return false;
}

} // namespace mrv
