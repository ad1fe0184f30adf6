// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV0, "GenericSpecificConverterMappingV0",
                            "b4c8b3e1-b61d-4656-89ba-916b66667178")

void GenericSpecificConverterMappingV0::addAttributes()
{
    using V0 = GenericSpecificConverterMappingV0;
    addAttribute<HierarchicalSkeletonDescriptionV0*>("skeletonDescription", &V0::_skeletonDescription);
    addAttribute<const HierarchicalBoneV0*>("pelvisBone", &V0::_pelvisBone);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("spineBones", &V0::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("limbBones", &V0::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV0>>("effectorBones", &V0::_effectorBones);
    addAttribute<Array<const HierarchicalBoneV0*>>("ikExcludedBones", &V0::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V0::_upAxis);
    addAttribute<Vector3>("frontAxis", &V0::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV0>>("boneConfigurations", &V0::_boneConfigurations);
    addAttribute<Array<MrvString>>("channelNames", &V0::_channelNames);
    addAttribute<PODArray<int>>("effectorNamesStartIndex", &V0::_effectorNamesStartIndex);
    addAttribute<PODArray<int>>("effectorNamesCount", &V0::_effectorNamesCount);
    addAttribute<Array<MrvString>>("effectorNames", &V0::_effectorNames);
    addAttribute<PODArray<int>>("channelMirrorSources", &V0::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V0::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V0::_groundHeightArray);
}

} // namespace mrv
