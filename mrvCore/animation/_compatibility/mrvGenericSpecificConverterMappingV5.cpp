// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"

#include "mrvCore/animation/_compatibility/mrvBoneSteps.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV5, "mrv::GenericSpecificConverterMappingV5",
                            "22d79c1d-5c0f-4bc0-8ecc-5fbfc1a488dc")

void GenericSpecificConverterMappingV5::addAttributes()
{
    using V5 = GenericSpecificConverterMappingV5;
    addAttribute<HierarchicalSkeletonDescriptionV1*>("skeletonDescription", &V5::_skeletonDescription);
    addAttribute<int>("pelvisBoneIndex", &V5::_pelvisBoneIndex);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("spineBones", &V5::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("limbBones", &V5::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("effectorBones", &V5::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V5::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V5::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V5::_effectorBoneNames);
    addAttribute<PODArray<int>>("ikExcludedBones", &V5::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V5::_upAxis);
    addAttribute<Vector3>("frontAxis", &V5::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV1>>("boneConfigurations", &V5::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V5::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V5::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V5::_groundHeightArray);
    addAttribute<Array<BlendShapeGroupV0>>("blendShapeGroups", &V5::_blendShapeGroups);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &V5::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &V5::_cacheAllowed);
    addAttribute<PODArray<int>>("bonesSnsScaleModes", &V5::_bonesSnsScaleModes);
}

namespace {

template <class Old>
void step(GenericSpecificConverterMappingV5& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._skeletonDescription, old._skeletonDescription);
    stepUp(to._pelvisBoneIndex, old._pelvisBone);
    stepUp(to._spineBones, old._spineBones);
    stepUp(to._limbBones, old._limbBones);
    stepUp(to._effectorBones, old._effectorBones);
    stepUp(to._ikExcludedBones, old._ikExcludedBones);
    stepUp(to._boneConfigurations, old._boneConfigurations);
}

} // namespace

MRV_DEFINE_STEP(GenericSpecificConverterMappingV5, createFromV4, GenericSpecificConverterMappingV4)

} // namespace mrv
