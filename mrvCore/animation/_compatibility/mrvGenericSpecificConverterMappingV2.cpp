// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV2, "GenericSpecificConverterMappingV2",
                            "fb2455a6-e43a-4389-a3da-4514d21ced6c")

void GenericSpecificConverterMappingV2::addAttributes()
{
    using V2 = GenericSpecificConverterMappingV2;
    addAttribute<HierarchicalSkeletonDescriptionV0*>("skeletonDescription", &V2::_skeletonDescription);
    addAttribute<const HierarchicalBoneV0*>("pelvisBone", &V2::_pelvisBone);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("spineBones", &V2::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("limbBones", &V2::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("effectorBones", &V2::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V2::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V2::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V2::_effectorBoneNames);
    addAttribute<Array<const HierarchicalBoneV0*>>("ikExcludedBones", &V2::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V2::_upAxis);
    addAttribute<Vector3>("frontAxis", &V2::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV0>>("boneConfigurations", &V2::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V2::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V2::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V2::_groundHeightArray);
    addAttribute<Array<BlendShapeGroupV0>>("blendShapeGroups", &V2::_blendShapeGroups);
}

} // namespace mrv
