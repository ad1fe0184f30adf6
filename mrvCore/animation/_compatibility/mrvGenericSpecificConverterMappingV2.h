// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h
// A skeleton mapping of version 2, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"
#include "mrvCore/animation/_compatibility/mrvPointedBones.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// New: blend shapes.
class MRV_CORE_API GenericSpecificConverterMappingV2 : public internal::PointedBones
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV2)

    Array<MrvString> _spineBoneNames;
    Array<MrvString> _limbBoneNames;
    Array<MrvString> _effectorBoneNames;
    Vector3 _upAxis = Vector3(0.0f, 0.0f, 1.0f);
    Vector3 _frontAxis = Vector3(1.0f, 0.0f, 0.0f);
    Array<BonePhysicConfigurationV0> _boneConfigurations;
    PODArray<int> _channelMirrorSources;
    Array<EffectorMirrorSourceV0> _effectorMirrorSources;
    PODArray<float> _groundHeightArray;
    Array<BlendShapeGroupV0> _blendShapeGroups;
};

} // namespace mrv
