// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV4, "mrv::GenericSpecificConverterMappingV4",
                            "7e8776f0-a96c-4113-ba27-908d3bb141c3")

void GenericSpecificConverterMappingV4::addAttributes()
{
    using V4 = GenericSpecificConverterMappingV4;
    addAttribute<HierarchicalSkeletonDescriptionV0*>("skeletonDescription", &V4::_skeletonDescription);
    addAttribute<const HierarchicalBoneV0*>("pelvisBone", &V4::_pelvisBone);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("spineBones", &V4::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("limbBones", &V4::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("effectorBones", &V4::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V4::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V4::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V4::_effectorBoneNames);
    addAttribute<Array<const HierarchicalBoneV0*>>("ikExcludedBones", &V4::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V4::_upAxis);
    addAttribute<Vector3>("frontAxis", &V4::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV0>>("boneConfigurations", &V4::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V4::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V4::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V4::_groundHeightArray);
    addAttribute<Array<BlendShapeGroupV0>>("blendShapeGroups", &V4::_blendShapeGroups);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &V4::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &V4::_cacheAllowed);
    addAttribute<PODArray<int>>("bonesSnsScaleModes", &V4::_bonesSnsScaleModes);
}

} // namespace mrv
