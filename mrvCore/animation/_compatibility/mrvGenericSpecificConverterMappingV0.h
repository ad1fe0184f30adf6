// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h
// A skeleton mapping of version 0, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"
#include "mrvCore/animation/_compatibility/mrvPointedBones.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Bones are told by pointers. What is left of the old names of channels and effectors: the names of the
/// limbs.
class MRV_CORE_API GenericSpecificConverterMappingV0 : public internal::PointedBones
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV0)

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
