// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV3, "mrv::GenericSpecificConverterMappingV3",
                            "305e0d23-9ea6-43a4-84b9-287fd9a27763")

void GenericSpecificConverterMappingV3::addAttributes()
{
    using V3 = GenericSpecificConverterMappingV3;
    addAttribute<HierarchicalSkeletonDescriptionV0*>("skeletonDescription", &V3::_skeletonDescription);
    addAttribute<const HierarchicalBoneV0*>("pelvisBone", &V3::_pelvisBone);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("spineBones", &V3::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("limbBones", &V3::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("effectorBones", &V3::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V3::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V3::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V3::_effectorBoneNames);
    addAttribute<Array<const HierarchicalBoneV0*>>("ikExcludedBones", &V3::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V3::_upAxis);
    addAttribute<Vector3>("frontAxis", &V3::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV0>>("boneConfigurations", &V3::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V3::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V3::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V3::_groundHeightArray);
    addAttribute<Array<BlendShapeGroupV0>>("blendShapeGroups", &V3::_blendShapeGroups);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &V3::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &V3::_cacheAllowed);
}

} // namespace mrv
