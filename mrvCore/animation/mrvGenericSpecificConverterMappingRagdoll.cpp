// mrvCore/animation/mrvGenericSpecificConverterMappingRagdoll.cpp
// Bodies of the bones: which bones get one, their sizes, their joints, and a list of them.
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include <algorithm>

namespace mrv {

using internal::boneAt;
using internal::bonesOf;
using internal::findUpwards;

namespace {

constexpr float defaultRadiusRatio = 0.3f;
constexpr float smallestExtent = 1e-5f; // below it a father has no size to pass on
constexpr float shareOfSkeleton = 0.04f;

using Part = GenericSpecificConverterBoneV1;
using Configurations = Array<BonePhysicConfigurationV1>;

bool hasChain(const Part& part, int chain)
{
    return part._firstBoneOfChain[chain] >= 0 && part._lastBoneOfChain[chain] >= 0;
}

bool contains(const PODArray<int>& numbers, size_t count, int number)
{
    return std::find(numbers.begin(), numbers.begin() + count, number) != numbers.begin() + count;
}

float getDistance(const HierarchicalBoneV1& a, const HierarchicalBoneV1& b)
{
    return (a.getWorldPosUnscaled() - b.getWorldPosUnscaled()).norm();
}

/// For each bone the nearest one with a body on the way down by first children, the bone itself included.
class BodiesBelow
{
public:
    BodiesBelow(const PODArray<HierarchicalBoneV1*>& bones, const Configurations& configurations)
        : _bones(bones)
        , _configurations(configurations)
        , _found(bones.size(), UNKNOWN)
    {}

    /// Null for none.
    const HierarchicalBoneV1* find(const HierarchicalBoneV1* top)
    {
        int found = NONE;
        PODArray<int> way;
        size_t stepsLeft = _bones.size(); // damaged links may form a ring
        for (const HierarchicalBoneV1* bone = top; bone != nullptr && stepsLeft > 0; --stepsLeft)
        {
            const int index = bone->getSpecificBoneIndex();
            bone = getFirstChild(*bone);
            if (boneAt(_bones, index) == nullptr)
                continue;
            found = _found[static_cast<size_t>(index)];
            if (found != UNKNOWN)
                break;
            way.push_back(index);
            found = hasBody(index) ? index : NONE;
            if (found != NONE)
                break;
        }
        for (const int index : way)
            _found[static_cast<size_t>(index)] = found;
        return boneAt(_bones, found);
    }

private:
    enum { NONE = -1, UNKNOWN = -2 };

    static const HierarchicalBoneV1* getFirstChild(const HierarchicalBoneV1& bone)
    {
        return bone.getNbChildren() != 0 ? bone.getChild(0) : nullptr;
    }
    bool hasBody(int index) const
    {
        const size_t place = static_cast<size_t>(index);
        return place < _configurations.size() && _configurations[place]._inUse;
    }

    const PODArray<HierarchicalBoneV1*>& _bones;
    const Configurations& _configurations;
    PODArray<int> _found;
};

/// What of the half extents a shape does not use is 0.
void clearUnusedExtents(BonePhysicConfigurationV1& body)
{
    const int shape = body._bodyShape;
    const bool isRound = shape == RagdollRigidBodyShape::CYLINDER || shape == RagdollRigidBodyShape::CAPSULE;
    if (isRound || shape == RagdollRigidBodyShape::SPHERE)
        body._halfExtents.y = 0.0f;
    if (shape == RagdollRigidBodyShape::SPHERE)
        body._halfExtents.z = 0.0f;
}

void setAutomaticBody(BonePhysicConfigurationV1* body)
{
    if (body != nullptr)
        body->_inUse = body->_automaticDimensions = true;
}

/// Half extents of a bone's body, by the mean distance to its children's bodies.
Vector3 sizeByChildren(const HierarchicalBoneV1& bone, BodiesBelow& bodiesBelow, float ratio)
{
    float sum = 0.0f;
    for (const HierarchicalBoneV1* child : bone.getChildren())
    {
        if (child == nullptr)
            continue;
        const HierarchicalBoneV1* body = bodiesBelow.find(child);
        sum += getDistance(bone, body != nullptr ? *body : *child);
    }
    const float halfLength = 0.5f * sum / static_cast<float>(bone.getNbChildren());
    return Vector3(ratio * halfLength, ratio * halfLength, halfLength);
}

} // namespace

BonePhysicConfigurationV1*
GenericSpecificConverterMappingV8::touchBoneConfiguration(const HierarchicalBoneV1* bone)
{
    const int index = bone != nullptr ? bone->getSpecificBoneIndex() : -1;
    return index >= 0 && static_cast<size_t>(index) < _boneConfigurations.size()
               ? &_boneConfigurations[static_cast<size_t>(index)]
               : nullptr;
}

void GenericSpecificConverterMappingV8::autoConfigureRagdoll(bool fullSetup)
{
    if (fullSetup)
    {
        BonePhysicConfigurationV1 unused;
        unused._inUse = false;
        std::fill(_boneConfigurations.begin(), _boneConfigurations.end(), unused);
        for (const Part& limb : _limbBones)
            addBodiesOfLimb(limb);
        for (const Part& spine : _spineBones)
            addBodiesOfSpine(spine);
    }
    setBodyOfPelvis(computePelvisWidth());
    computeAutomaticBoneConfigurationSizes(false, defaultRadiusRatio);
    if (fullSetup)
        computeAutomaticJointLimits();
}

/// The mean distance of the tops of the limbs at the sides from the sagittal plane; 0 without such limbs.
float GenericSpecificConverterMappingV8::computePelvisWidth() const
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* pelvis = boneAt(bones, _pelvisBoneIndex);
    const Vector3 side = _upAxis.cross(_frontAxis);
    float sum = 0.0f;
    int count = 0;
    for (const Part& limb : _limbBones)
    {
        const HierarchicalBoneV1* top = boneAt(bones, limb.getTopBone());
        if (limb._sagittalLocation == SagittalPlaneLocation::CENTER || top == nullptr || pelvis == nullptr)
            continue;
        const Vector3 offset = top->getWorldPosUnscaled() - pelvis->getWorldPosUnscaled();
        const float distance = __builtin_fabsf(offset.dot(side));
        if (distance > 0.0f)
        {
            sum += distance;
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<float>(count) : 0.0f;
}

void GenericSpecificConverterMappingV8::setBodyOfPelvis(float width)
{
    BonePhysicConfigurationV1* body =
        touchBoneConfiguration(boneAt(bonesOf(_skeletonDescription), _pelvisBoneIndex));
    if (body == nullptr || body->_inUse)
        return;
    body->_inUse = true;
    body->_automaticDimensions = !(width > 0.0f);
    if (width > 0.0f)
        body->_halfExtents = Vector3(width);
}

void GenericSpecificConverterMappingV8::addBodiesOfLimb(const Part& limb)
{
    if (!hasChain(limb, 1))
        return;
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* first = boneAt(bones, limb._firstBoneOfChain[1]);
    PODArray<BonePhysicConfigurationV1*> bodies;
    bool isTaken = false;
    findUpwards(boneAt(bones, limb._lastBoneOfChain[1]), bones.size(), [&](const HierarchicalBoneV1& bone) {
        BonePhysicConfigurationV1* body = touchBoneConfiguration(&bone);
        isTaken = body != nullptr && body->_inUse;
        if (!contains(_ikExcludedBones, _ikExcludedBones.size(), bone.getSpecificBoneIndex()))
            bodies.push_back(body);
        return isTaken || &bone == first;
    });
    // A limb that shares a bone with one before it gets no body at all: callers rely on it.
    if (isTaken)
        return;
    for (BonePhysicConfigurationV1* body : bodies)
        setAutomaticBody(body);
}

void GenericSpecificConverterMappingV8::addBodiesOfSpine(const Part& spine)
{
    if (!hasChain(spine, 1))
        return;
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    setAutomaticBody(touchBoneConfiguration(boneAt(bones, spine._firstBoneOfChain[1])));
    setAutomaticBody(touchBoneConfiguration(boneAt(bones, spine._lastBoneOfChain[1])));
}

void GenericSpecificConverterMappingV8::computeAutomaticBoneConfigurationSizes(bool force, float ratio)
{
    const PODArray<HierarchicalBoneV1*>& bones = bonesOf(_skeletonDescription);
    const HierarchicalBoneV1* pelvis = boneAt(bones, _pelvisBoneIndex);
    float maxDistance = 0.0f;
    if (pelvis != nullptr)
        for (const HierarchicalBoneV1* bone : bones)
            if (bone != nullptr)
                maxDistance = std::max(maxDistance, getDistance(*pelvis, *bone));

    BodiesBelow bodiesBelow(bones, _boneConfigurations);
    const size_t count = std::min(bones.size(), _boneConfigurations.size());
    for (size_t i = 0; i < count; ++i)
        if (bones[i] != nullptr && (force || _boneConfigurations[i]._automaticDimensions))
            _boneConfigurations[i]._halfExtents = bones[i]->getNbChildren() != 0
                                                      ? sizeByChildren(*bones[i], bodiesBelow, ratio)
                                                      : sizeOfLeaf(*bones[i], shareOfSkeleton * maxDistance);

    BonePhysicConfigurationV1* pelvisBody = touchBoneConfiguration(pelvis);
    if (pelvisBody != nullptr && (force || pelvisBody->_automaticDimensions))
        pelvisBody->_halfExtents = Vector3(pelvisBody->_halfExtents.z);
    for (const Part& spine : _spineBones)
        makeBodiesOfSpineRound(spine, force);
    for (BonePhysicConfigurationV1& body : _boneConfigurations)
        clearUnusedExtents(body);
}

/// A leaf is as thick as its father, which may just have been sized, and as long as thick.
Vector3 GenericSpecificConverterMappingV8::sizeOfLeaf(const HierarchicalBoneV1& bone, float fallback)
{
    const BonePhysicConfigurationV1* father = touchBoneConfiguration(bone.getFather());
    const bool hasSize = father != nullptr && !(father->_halfExtents.x < smallestExtent);
    return Vector3(hasSize ? father->_halfExtents.x : fallback);
}

void GenericSpecificConverterMappingV8::makeBodiesOfSpineRound(const Part& spine, bool force)
{
    if (!hasChain(spine, 1))
        return;
    PODArray<const HierarchicalBoneV1*> chain;
    buildBoneChain(chain, bonesOf(_skeletonDescription), spine, 1, false);
    for (const HierarchicalBoneV1* bone : chain)
    {
        BonePhysicConfigurationV1* body = touchBoneConfiguration(bone);
        if (body != nullptr && (force || body->_automaticDimensions))
            body->_halfExtents.x = body->_halfExtents.y = 0.5f * body->_halfExtents.z;
    }
}

void GenericSpecificConverterMappingV8::computeAutomaticJointLimits()
{
    constexpr float quarterTurn = 1.5707964f;
    constexpr float eighthTurn = 0.7853982f;
    constexpr float halfTurn = 3.1415927f;
    for (Part& spine : _spineBones)
        computeAutomaticJointLimits(spine, quarterTurn, 0.0f, eighthTurn);
    for (Part& limb : _limbBones)
        computeAutomaticJointLimits(limb, halfTurn, 0.0f, quarterTurn);
    for (Part& effector : _effectorBones)
        computeAutomaticJointLimits(effector, halfTurn, 0.0f, quarterTurn);
}

void GenericSpecificConverterMappingV8::computeAutomaticJointLimits(Part& bone, float interiorAngle,
                                                                    float auxiliaryEndAngle,
                                                                    float extensionEndAngle)
{
    constexpr float degreesPerRadian = 57.29578f;
    constexpr float smallestNorm2 = 0.001f;
    for (int chainIndex = 0; chainIndex < 2; ++chainIndex)
    {
        PODArray<const HierarchicalBoneV1*> chain;
        buildBoneChain(chain, bonesOf(_skeletonDescription), bone, chainIndex, false);
        if (chain.empty())
            continue;
        Vector3 plane = bone._relativeIkNormalPlane[chainIndex];
        if (plane.norm2() < smallestNorm2)
            plane = computeIkNormalPlane(chain, _upAxis);
        Vector3 lower;
        Vector3 upper;
        for (unsigned int axis = 0; axis < 3; ++axis)
            (plane[axis] < 0.0f ? lower : upper)[axis] = degreesPerRadian * plane[axis] * interiorAngle;
        const Vector3 end(degreesPerRadian * (chainIndex == 0 ? auxiliaryEndAngle : extensionEndAngle));
        const Vector3 none;
        for (size_t i = 0; i < chain.size(); ++i)
        {
            BonePhysicConfigurationV1* body = touchBoneConfiguration(chain[i]);
            if (body == nullptr)
                continue;
            const bool isEnd = i == 0 || i == chain.size() - 1;
            const bool isExcluded =
                contains(_ikExcludedBones, _ikExcludedBones.size(), chain[i]->getSpecificBoneIndex());
            body->_jointAngularLowerLimit = isEnd ? none - end : isExcluded ? none : lower;
            body->_jointAngularUpperLimit = isEnd ? end : isExcluded ? none : upper;
        }
    }
}

namespace {

/// Appends the bones of a chain that have a body, from its top down.
void appendBodies(PODArray<int>& result, const GenericSpecificConverterMappingV8& mapping, const Part& part,
                  int chainIndex)
{
    if (!hasChain(part, chainIndex))
        return;
    PODArray<const HierarchicalBoneV1*> chain;
    GenericSpecificConverterMappingV8::buildBoneChain(chain, bonesOf(mapping.getSkeletonDescription()), part,
                                                      chainIndex, true);
    const Configurations& bodies = mapping.getBoneConfigurations();
    for (const HierarchicalBoneV1* bone : chain)
    {
        const size_t index = static_cast<size_t>(bone->getSpecificBoneIndex());
        if (index < bodies.size() && bodies[index]._inUse)
            result.push_back(bone->getSpecificBoneIndex());
    }
}

} // namespace

int GenericSpecificConverterMappingV8::findRigidBodiesBoneCorrespondances(
    PODArray<int>& rigidBodyBones, PODArray<int>& boneRigidBodies,
    const GenericSpecificConverterMappingV8* mapping)
{
    const size_t boneCount = bonesOf(mapping->_skeletonDescription).size();
    const size_t pelvis = static_cast<size_t>(mapping->_pelvisBoneIndex);
    if (pelvis < std::min(boneCount, mapping->_boneConfigurations.size()) &&
        mapping->_boneConfigurations[pelvis]._inUse)
    {
        boneRigidBodies.resize(pelvis + 1, -1);
        boneRigidBodies[pelvis] = 0;
        rigidBodyBones.push_back(mapping->_pelvisBoneIndex);
    }
    for (const Part& spine : mapping->_spineBones)
        appendBodies(rigidBodyBones, *mapping, spine, 1);
    for (const ConverterBones* parts : { &mapping->_limbBones, &mapping->_effectorBones })
        for (const Part& part : *parts)
            for (const int chainIndex : { 0, 1 })
                appendBodies(rigidBodyBones, *mapping, part, chainIndex);
    boneRigidBodies.resize(boneCount, -1);

    if (rigidBodyBones.size() < 2)
        return rigidBodyBones.sizeInt();
    // The first entry is the pelvis, or else gets no place: callers rely on it.
    size_t count = 1;
    for (size_t i = 1; i < rigidBodyBones.size(); ++i)
    {
        const int bone = rigidBodyBones[i];
        if (contains(rigidBodyBones, count, bone))
            continue;
        if (static_cast<size_t>(bone) < boneCount)
            boneRigidBodies[static_cast<size_t>(bone)] = static_cast<int>(count);
        rigidBodyBones[count++] = bone;
    }
    return static_cast<int>(count);
}

} // namespace mrv
