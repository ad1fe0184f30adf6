// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h
// A skeleton mapping of version 0, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/animation/_compatibility/mrvSkeletonOwner.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class HierarchicalBoneV0;

/// Bones are told by pointers. What is left of the old names of channels and effectors: the names of the
/// limbs.
class MRV_CORE_API GenericSpecificConverterMappingV0
    : public internal::SkeletonOwner<HierarchicalSkeletonDescriptionV0>
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV0)

    const HierarchicalBoneV0* _pelvisBone = nullptr;
    Array<GenericSpecificConverterBoneV0> _spineBones;
    Array<GenericSpecificConverterBoneV0> _limbBones;
    Array<GenericSpecificConverterBoneV0> _effectorBones;
    Array<const HierarchicalBoneV0*> _ikExcludedBones;
    Vector3 _upAxis = Vector3(0.0f, 0.0f, 1.0f);
    Vector3 _frontAxis = Vector3(1.0f, 0.0f, 0.0f);
    Array<BonePhysicConfigurationV0> _boneConfigurations;
    Array<MrvString> _channelNames;
    PODArray<int> _effectorNamesStartIndex;
    PODArray<int> _effectorNamesCount;
    Array<MrvString> _effectorNames;
    PODArray<int> _channelMirrorSources;
    Array<EffectorMirrorSourceV0> _effectorMirrorSources;
    PODArray<float> _groundHeightArray;
};

} // namespace mrv
