// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h
// A skeleton mapping of version 5, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvSkeletonOwner.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GenericSpecificConverterMappingV4;

/// New: bones are told by index.
class MRV_CORE_API GenericSpecificConverterMappingV5 : public internal::SkeletonOwner
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV5)

    /// Takes over what the old mapping holds, or copies it.
    void createFromV4(GenericSpecificConverterMappingV4& old);
    void createFromV4(const GenericSpecificConverterMappingV4& old);

    int _pelvisBoneIndex = -1;
    Array<GenericSpecificConverterBoneV1> _spineBones;
    Array<GenericSpecificConverterBoneV1> _limbBones;
    Array<GenericSpecificConverterBoneV1> _effectorBones;
    Array<MrvString> _spineBoneNames;
    Array<MrvString> _limbBoneNames;
    Array<MrvString> _effectorBoneNames;
    PODArray<int> _ikExcludedBones;
    Vector3 _upAxis = Vector3(0.0f, 0.0f, 1.0f);
    Vector3 _frontAxis = Vector3(1.0f, 0.0f, 0.0f);
    Array<BonePhysicConfigurationV1> _boneConfigurations;
    PODArray<int> _channelMirrorSources;
    Array<EffectorMirrorSourceV0> _effectorMirrorSources;
    PODArray<float> _groundHeightArray;
    Array<BlendShapeGroupV0> _blendShapeGroups;
    PODArray<float> _squashStretchWeightsArray;
    PODArray<bool> _cacheAllowed;
    PODArray<int> _bonesSnsScaleModes;
};

} // namespace mrv
