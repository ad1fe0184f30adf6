// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h
// A skeleton mapping of version 4, as files hold it.
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

/// New: scale modes of squash and stretch.
class MRV_CORE_API GenericSpecificConverterMappingV4 : public internal::PointedBones
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV4)

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
    PODArray<float> _squashStretchWeightsArray;
    PODArray<bool> _cacheAllowed;
    PODArray<int> _bonesSnsScaleModes;
};

} // namespace mrv
