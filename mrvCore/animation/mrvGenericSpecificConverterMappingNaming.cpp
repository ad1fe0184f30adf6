// mrvCore/animation/mrvGenericSpecificConverterMappingNaming.cpp
// Names of the parts that were found, and the planes in which they bend.
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <algorithm>

namespace mrv {

using internal::boneAt;
using internal::bonesOf;
using internal::nameOf;

namespace {

using Part = GenericSpecificConverterBoneV1;

size_t countOfType(const Array<Part>& parts, SkeletonPartType::Value type)
{
    return static_cast<size_t>(
        std::count_if(parts.begin(), parts.end(), [type](const Part& part) { return part._type == type; }));
}

const char* getSideName(int location)
{
    switch (location)
    {
    case SagittalPlaneLocation::RIGHT:
        return "Right";
    case SagittalPlaneLocation::LEFT:
        return "Left";
    default:
        return "";
    }
}

const char* getCoronalName(int location)
{
    switch (location)
    {
    case CoronalPlaneLocation::BACK:
        return "Back";
    case CoronalPlaneLocation::CENTER:
        return "Center";
    case CoronalPlaneLocation::FRONT:
        return "Front";
    default:
        return "";
    }
}

/// What the bones at the ends of the chains have in common; of two chains the extension counts.
MrvString getEffectorName(const Part& effector, const PODArray<HierarchicalBoneV1*>& bones)
{
    MrvString name;
    for (int chain = 0; chain < 2; ++chain)
    {
        const HierarchicalBoneV1* first = boneAt(bones, effector._firstBoneOfChain[chain]);
        const HierarchicalBoneV1* last = boneAt(bones, effector._lastBoneOfChain[chain]);
        if (first != nullptr && last != nullptr)
            longuestCommonSubstring(name, first->getName(), last->getName());
    }
    return name.empty() ? MrvString("Effector") : name;
}

const Vector3 noPlane(0.0f, -1.0f, 0.0f);

} // namespace

void GenericSpecificConverterMappingV8::computeAutomaticNames()
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const bool hasManyLegs = countOfType(_limbBones, SkeletonPartType::LEG) > 2;
    for (size_t i = 0; i < _limbBones.size(); ++i)
    {
        const Part& limb = _limbBones[i];
        MrvString name = getSideName(limb._sagittalLocation);
        if (hasManyLegs && limb._type == SkeletonPartType::LEG)
            name += getCoronalName(limb._coronalLocation);
        if (limb._type == SkeletonPartType::GRASPER)
            name += "Arm";
        else if (limb._type == SkeletonPartType::LEG)
            name += "Leg";
        else
            name += nameOf(boneAt(bones, limb._firstBoneOfChain[1]));
        setLimbBoneName(i, name);
    }
    for (size_t i = 0; i < _effectorBones.size(); ++i)
        setEffectorBoneName(i, getEffectorName(_effectorBones[i], bones));
}

void GenericSpecificConverterMappingV8::computeSimpleBipedIkNormalPlanes()
{
    if (_limbBones.size() != 5 || countOfType(_limbBones, SkeletonPartType::LEG) != 2 ||
        countOfType(_limbBones, SkeletonPartType::GRASPER) != 2 ||
        countOfType(_limbBones, SkeletonPartType::GENERIC) != 1)
        return;
    const auto setPlane = [this](Part& part, int chain, const Vector3& bendingSide) {
        part._relativeIkNormalPlane[chain] = getIkNormalPlaneFromWorldBendingSide(
            bendingSide, part._firstBoneOfChain[chain], part._lastBoneOfChain[chain]);
    };
    for (Part& limb : _limbBones)
    {
        limb._coronalLocation = CoronalPlaneLocation::CENTER;
        limb._transverseLocation = TransversePlaneLocation::TOP;
        switch (limb._type)
        {
        case SkeletonPartType::LEG:
            limb._transverseLocation = TransversePlaneLocation::BOTTOM;
            setPlane(limb, 1, _frontAxis);
            break;
        case SkeletonPartType::GRASPER:
            if (limb._firstBoneOfChain[0] >= 0)
                setPlane(limb, 0, _upAxis);
            break;
        default:
            setPlane(limb, 1, -_frontAxis);
        }
    }
    for (Part& spine : _spineBones)
    {
        spine._coronalLocation = CoronalPlaneLocation::CENTER;
        spine._transverseLocation = TransversePlaneLocation::CENTER;
        spine._sagittalLocation = SagittalPlaneLocation::CENTER;
        setPlane(spine, 1, -_frontAxis);
    }
}

Vector3
GenericSpecificConverterMappingV8::computeIkNormalPlane(const PODArray<const HierarchicalBoneV1*>& chain,
                                                        const Vector3& hint)
{
    if (chain.size() < 2)
        return noPlane;
    const Vector3& first = chain.front()->getWorldPosUnscaled();
    const Vector3 way = chain.back()->getWorldPosUnscaled() - first;
    Vector3 normal;
    if (chain.size() == 2)
        normal = hint.cross(way.computeNormalize());
    else
    {
        Vector3 mean;
        for (size_t i = 1; i + 1 < chain.size(); ++i)
            mean += chain[i]->getWorldPosUnscaled();
        mean /= static_cast<float>(chain.size() - 2);
        const Vector3 bend = (mean - first) - 0.5f * way;
        normal = bend.cross(way).computeNormalize();
    }
    const Vector3 local = chain.front()->getWorldOri().computeConjugate() * normal;
    constexpr float smallestNorm2 = 0.001f;
    return local.norm2() >= smallestNorm2 ? local : noPlane;
}

Vector3 GenericSpecificConverterMappingV8::getIkNormalPlaneFromWorldBendingSide(const Vector3& bendingSide,
                                                                                int firstBone,
                                                                                int lastBone) const
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* first = boneAt(bones, firstBone);
    const HierarchicalBoneV1* last = boneAt(bones, lastBone);
    Vector3 plane(1.0f, 0.0f, 0.0f);
    if (first == nullptr || last == nullptr)
        return plane;
    const Vector3 way = last->getWorldPosUnscaled() - first->getWorldPosUnscaled();
    findNearestUnitAxis(plane, first->getWorldOri().computeConjugate() * bendingSide.cross(way));
    return plane;
}

} // namespace mrv
