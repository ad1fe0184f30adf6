// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV7, "mrv::GenericSpecificConverterMappingV7",
                            "ae7379db-747a-4b56-8cd4-59c73f977aa5")

void GenericSpecificConverterMappingV7::addAttributes()
{
    using V7 = GenericSpecificConverterMappingV7;
    addAttribute<HierarchicalSkeletonDescriptionV1*>("skeletonDescription", &V7::_skeletonDescription);
    addAttribute<int>("pelvisBoneIndex", &V7::_pelvisBoneIndex);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("spineBones", &V7::_spineBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("limbBones", &V7::_limbBones);
    addAttribute<Array<GenericSpecificConverterBoneV1>>("effectorBones", &V7::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &V7::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &V7::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &V7::_effectorBoneNames);
    addAttribute<PODArray<int>>("ikExcludedBones", &V7::_ikExcludedBones);
    addAccessorsAttribute<const Vector3&>("upAxis", &V7::getUpAxis, &V7::setUpAxis);
    addAccessorsAttribute<const Vector3&>("frontAxis", &V7::getFrontAxis, &V7::setFrontAxis);
    addAttribute<Array<BonePhysicConfigurationV1>>("boneConfigurations", &V7::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &V7::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &V7::_effectorMirrorSources);
    addAttribute<PODArray<int>>("spineMirrorSources", &V7::_spineMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &V7::_groundHeightArray);
    addAttribute<Array<BlindDataV0>>("blindDataInfo", &V7::_blindDataInfo);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &V7::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &V7::_cacheAllowed);
    addAttribute<PODArray<int>>("bonesSnsScaleModes", &V7::_bonesSnsScaleModes);
}

GenericSpecificConverterMappingV7::GenericSpecificConverterMappingV7() = default;
GenericSpecificConverterMappingV7::GenericSpecificConverterMappingV7(
    const GenericSpecificConverterMappingV7& other) = default;
GenericSpecificConverterMappingV7&
GenericSpecificConverterMappingV7::operator=(const GenericSpecificConverterMappingV7& other) = default;
GenericSpecificConverterMappingV7&
GenericSpecificConverterMappingV7::operator=(GenericSpecificConverterMappingV7&& other) noexcept = default;
GenericSpecificConverterMappingV7::~GenericSpecificConverterMappingV7() = default;

namespace {

template <class Old>
void step(GenericSpecificConverterMappingV7& to, Old& old)
{
    internal::takeUnchanged(to, old);
    to.setUpAxis(old._upAxis);
    to.setFrontAxis(old._frontAxis);
}

} // namespace

MRV_DEFINE_STEP(GenericSpecificConverterMappingV7, createFromV6, GenericSpecificConverterMappingV6)

} // namespace mrv
