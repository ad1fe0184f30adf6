// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV6, "mrv::GenericSpecificConverterMappingV6",
                            "77f60027-9d6b-49a6-8a9d-8266fdfe6e16")

void GenericSpecificConverterMappingV6::addAttributes()
{
    using V6 = GenericSpecificConverterMappingV6;
    addAttribute<HierarchicalSkeletonDescriptionV1*>("skeletonDescription", &V6::_skeletonDescription);
    addAttribute<int>("pelvisBoneIndex", &V6::_pelvisBoneIndex);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("spineBones", &V6::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("limbBones", &V6::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("effectorBones", &V6::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V6::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V6::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V6::_effectorBoneNames);
    addAttribute<PODArray<int>>("ikExcludedBones", &V6::_ikExcludedBones);
    addAttribute<Vector3>("upAxis", &V6::_upAxis);
    addAttribute<Vector3>("frontAxis", &V6::_frontAxis);
    addAttribute<Array<BonePhysicConfigurationV1>>("boneConfigurations", &V6::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V6::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V6::_effectorMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V6::_groundHeightArray);
    addAttribute<Array<BlindDataV0>>("blindDataInfo", &V6::_blindDataInfo);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &V6::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &V6::_cacheAllowed);
    addAttribute<PODArray<int>>("bonesSnsScaleModes", &V6::_bonesSnsScaleModes);
}

namespace {

template <class Old>
void step(GenericSpecificConverterMappingV6& to, Old& old)
{
    internal::takeUnchanged(to, old);
    to._blindDataInfo.resize(old._blendShapeGroups.size());
    for (size_t i = 0; i < old._blendShapeGroups.size(); ++i)
        to._blindDataInfo[i]._name = old._blendShapeGroups[i]._name;
}

} // namespace

MRV_DEFINE_STEP(GenericSpecificConverterMappingV6, createFromV5, GenericSpecificConverterMappingV5)

} // namespace mrv
