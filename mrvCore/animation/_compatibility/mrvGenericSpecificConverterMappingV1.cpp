// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV1, "GenericSpecificConverterMappingV1",
                            "27204a38-1aa4-49de-9ee9-132d8e61acf7")

void GenericSpecificConverterMappingV1::addAttributes()
{
    using V1 = GenericSpecificConverterMappingV1;
    addAttribute<HierarchicalSkeletonDescriptionV0*>("skeletonDescription", &V1::_skeletonDescription);
    addAttribute<const HierarchicalBoneV0*>("pelvisBone", &V1::_pelvisBone);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("spineBones", &V1::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("limbBones", &V1::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("effectorBones", &V1::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V1::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V1::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V1::_effectorBoneNames);
    addAttribute<Array<const HierarchicalBoneV0*>>("ikExcludedBones", &V1::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V1::_upAxis);
    addAttribute<Vector3>("frontAxis", &V1::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV0>>("boneConfigurations", &V1::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V1::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V1::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V1::_groundHeightArray);
}

} // namespace mrv
