// hosts/mrvsamples/mrvSampleSkeleton.cpp
#include "hosts/mrvsamples/mrvSampleSkeleton.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cmath>
#include <string>

namespace mrvsamples {

namespace {

using Bones = mrv::PODArray<mrv::HierarchicalBoneV1*>;

/// A joint of one side, with its full name.
struct PlacedJoint
{
    std::string name;
    std::string father;
    mrv::Vector3 position;
};

bool isLeft(const std::string& name)
{
    return name.size() > 2 && name.compare(name.size() - 2, 2, "_l") == 0;
}

/// The name of the twin; that of a bone in the middle is its own.
std::string toRight(std::string name)
{
    if (isLeft(name))
        name.back() = 'r';
    return name;
}

// A run of left joints is followed by its twins.
std::vector<PlacedJoint> placeJoints(const std::vector<Joint>& joints)
{
    std::vector<PlacedJoint> placed;
    std::vector<PlacedJoint> twins;
    for (const Joint& joint : joints)
    {
        const std::string father = joint.father != nullptr ? joint.father : "";
        // A branch ends where the next joint hangs on the middle of the body.
        if (!isLeft(joint.name) || !isLeft(father))
        {
            placed.insert(placed.end(), twins.begin(), twins.end());
            twins.clear();
        }
        placed.push_back({ joint.name, father, mrv::Vector3(joint.x, joint.y, joint.z) });
        if (isLeft(joint.name))
            twins.push_back(
                { toRight(joint.name), toRight(father), mrv::Vector3(joint.x, -joint.y, joint.z) });
    }
    placed.insert(placed.end(), twins.begin(), twins.end());
    return placed;
}

mrv::HierarchicalBoneV1* findIn(const Bones& bones, const std::string& name)
{
    for (mrv::HierarchicalBoneV1* bone : bones)
        if (bone->getName() == name.c_str())
            return bone;
    return nullptr;
}

float getDistance(const mrv::Vector3& a, const mrv::Vector3& b)
{
    return std::sqrt((b - a).norm2());
}

/// From the bone to its first child; 0 for a bone without children.
float getLength(const mrv::HierarchicalBoneV1& bone)
{
    if (bone.getNbChildren() == 0)
        return 0.0f;
    return getDistance(bone.getWorldPosUnscaled(), bone.getChild(0)->getWorldPosUnscaled());
}

// Written by hand: what the vectors normalize by is not the same on every processor.
mrv::Vector3 getDirection(const mrv::Vector3& from, const mrv::Vector3& to)
{
    return (to - from) * (1.0f / getDistance(from, to));
}

float roundToMicrometre(float metres)
{
    return std::round(metres * 1e6f) / 1e6f + 0.0f;
}

// Loading normalizes once more. Most orientations come to rest after a few times, but some swing between two
// neighbours for ever and need a push.
mrv::Quaternion settle(mrv::Quaternion orientation)
{
    for (int i = 0; i < 100; ++i)
    {
        const mrv::Quaternion again = orientation.computeNormalize();
        if (again == orientation)
            return orientation;
        orientation = again;
        if (i % 10 == 9)
            orientation.w = std::nextafter(orientation.w, 0.0f);
    }
    MRV_UNREACHABLE("an orientation does not come to rest");
}

void orientBones(const Bones& bones)
{
    std::vector<mrv::Vector3> places;
    for (const mrv::HierarchicalBoneV1* bone : bones)
        places.push_back(bone->getWorldPosUnscaled());
    const auto placeOf = [&](const mrv::HierarchicalBoneV1& bone) {
        return places[static_cast<size_t>(bone.getSpecificBoneIndex())];
    };
    for (mrv::HierarchicalBoneV1* bone : bones)
    {
        bone->setWorldPos(placeOf(*bone));
        const mrv::Vector3 local = bone->getLocalPosUnscaled();
        bone->setLocalPos(
            mrv::Vector3(roundToMicrometre(local.x), roundToMicrometre(local.y), roundToMicrometre(local.z)));
        bone->setLocalOri(mrv::Quaternion::getIdentity());
        if (bone->getNbChildren() != 0 && bone->getFather() != nullptr)
            bone->setWorldOri(mrv::Quaternion::getRotationBetweenUnitVectors(
                mrv::Vector3(1.0f, 0.0f, 0.0f), getDirection(placeOf(*bone), placeOf(*bone->getChild(0)))));
        bone->setLocalOri(settle(bone->getLocalOri()));
    }
}

void fillDescription(mrv::HierarchicalSkeletonDescriptionV1& description, const std::vector<Joint>& joints)
{
    Bones& bones = description.touchBones();
    for (const PlacedJoint& joint : placeJoints(joints))
    {
        mrv::HierarchicalBoneV1* father = findIn(bones, joint.father);
        MRV_ASSERT(father != nullptr || bones.empty(), "%s has no father", joint.name.c_str());
        auto* bone = new mrv::HierarchicalBoneV1(joint.name.c_str(), father, static_cast<int>(bones.size()));
        bone->setWorldPos(joint.position);
        bones.push_back(bone);
    }
    orientBones(bones);
    description.setRootBone(bones[0]);
    description.initSortedBones();
}

// A capsule along the bone for what has length, about as thick as flesh is.
void fitBodies(mrv::GenericSpecificConverterMappingV8& mapping)
{
    const Bones& bones = mapping.getSkeletonDescription()->getBones();
    for (size_t i = 0; i < bones.size(); ++i)
    {
        mrv::BonePhysicConfigurationV1& body = mapping.touchBoneConfigurations()[i];
        const float length = getLength(*bones[i]);
        body._inUse = length >= 0.05f;
        body._automaticDimensions = false;
        body._halfExtents =
            mrv::Vector3(roundToMicrometre(0.2f * length), 0.0f, roundToMicrometre(0.3f * length));
        // The capsule lies along Z of the body, and the bone along its own X: a quarter turn about Y.
        body._localOrientationOffset = mrv::Quaternion(0.0f, 0.70710678f, 0.0f, 0.70710678f);
        body._jointAngularLowerLimit = mrv::Vector3(-20.0f, -40.0f, -20.0f);
        body._jointAngularUpperLimit = mrv::Vector3(20.0f, 40.0f, 20.0f);
    }
}

void addLimb(mrv::MaravoCharacterV24& character, const Limb& limb, bool isRight)
{
    const auto nameOf = [&](const char* name) { return isRight ? toRight(name) : std::string(name); };
    const auto boneOf = [&](const char* name) {
        return name != nullptr ? mrvsamples::findBone(character, nameOf(name).c_str()) : -1;
    };
    const mrv::Vector3 plane(0.0f, 1.0f, 0.0f);
    const mrv::Vector3 none;
    const auto side = !limb.isSided ? mrv::SagittalPlaneLocation::CENTER
                      : isRight     ? mrv::SagittalPlaneLocation::RIGHT
                                    : mrv::SagittalPlaneLocation::LEFT;
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    const int index = mapping.addLimb(limb.type, boneOf(limb.auxiliary.first), boneOf(limb.auxiliary.last),
                                      boneOf(limb.extension.first), boneOf(limb.extension.last), limb.coronal,
                                      limb.transverse, side, none, plane, false, false);
    MRV_ASSERT(index >= 0, "%s does not fit", limb.name);
    mapping.setLimbBoneName(static_cast<size_t>(index), nameOf(limb.name).c_str());
    for (const Chain& chain : limb.effectors)
    {
        const int effector = mapping.addEffector(limb.type, -1, -1, boneOf(chain.first), boneOf(chain.last),
                                                 false, false, none, plane);
        MRV_ASSERT(effector >= 0, "%s does not fit", chain.first);
        mapping.setEffectorBoneName(static_cast<size_t>(effector), nameOf(chain.first).c_str());
    }
}

} // namespace

void buildSkeleton(mrv::MaravoCharacterV24& character, const char* name, const std::vector<Joint>& joints)
{
    mrv::HierarchicalSkeletonDescriptionV1 description(name);
    fillDescription(description, joints);
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    mapping.duplicateHierarchicalSkeletonDescription(description);
    mapping.setUpAxis(mrv::Vector3::getZUpVector());
    mapping.setFrontAxis(mrv::Vector3(1.0f, 0.0f, 0.0f));
    fitBodies(mapping);

    mrv::PODArray<int> allBones;
    for (int i = 0; i < static_cast<int>(description.getBones().size()); ++i)
        allBones.push_back(i);
    character.autoComputeSkeletonDisplay(allBones);
}

int findBone(const mrv::MaravoCharacterV24& character, const char* name)
{
    const mrv::HierarchicalBoneV1* bone =
        findIn(character.getConverterMapping().getSkeletonDescription()->getBones(), name);
    MRV_ASSERT(bone != nullptr, "there is no bone %s", name);
    return bone->getSpecificBoneIndex();
}

void addLimbs(mrv::MaravoCharacterV24& character, const std::vector<Limb>& limbs)
{
    int count = 0;
    for (const Limb& limb : limbs)
    {
        addLimb(character, limb, false);
        if (limb.isSided)
            addLimb(character, limb, true);
        count += limb.isSided ? 2 : 1;
    }
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    mapping.initChannelMirrorSources(count);
    mapping.setGroundHeights(0.0f);
    size_t index = 0;
    for (const Limb& limb : limbs)
        for (int side = 0; side < (limb.isSided ? 2 : 1); ++side, ++index)
        {
            // Left and right stand side by side, each the other's twin.
            const size_t twin = !limb.isSided ? index : side == 0 ? index + 1 : index - 1;
            mapping.touchChannelMirrorSources()[index] = static_cast<int>(twin);
            mrv::EffectorMirrorSourceV0& sources = mapping.touchEffectorMirrorSources()[index];
            sources.allocateSources(limb.effectors.size());
            for (size_t k = 0; k < limb.effectors.size(); ++k)
                sources.setSourceIdx(k, static_cast<int>(k));
        }
}

void addSpine(mrv::MaravoCharacterV24& character, const char* name, const Chain& chain)
{
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    const int index = mapping.addSpine(findBone(character, chain.first), findBone(character, chain.last),
                                       false, mrv::Vector3(0.0f, 1.0f, 0.0f));
    MRV_ASSERT(index >= 0, "%s does not fit", name);
    mapping.setSpineBoneName(static_cast<size_t>(index), name);
    mapping.initSpineMirrorSources(index + 1);
    for (int i = 0; i <= index; ++i)
        mapping.touchSpineMirrorSources()[static_cast<size_t>(i)] = i;
}

} // namespace mrvsamples
