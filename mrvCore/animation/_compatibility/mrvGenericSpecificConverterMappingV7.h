// mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h
// A skeleton mapping of version 7, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvSkeletonOwner.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GenericSpecificConverterMappingV6;

/// New: spines have mirrors, and the axes are normalized.
class MRV_CORE_API GenericSpecificConverterMappingV7 : public internal::SkeletonOwner
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV7)

    // Not inline: thirteen versions of the character hold one.
    GenericSpecificConverterMappingV7();
    GenericSpecificConverterMappingV7(const GenericSpecificConverterMappingV7& other);
    GenericSpecificConverterMappingV7& operator=(const GenericSpecificConverterMappingV7& other);
    GenericSpecificConverterMappingV7& operator=(GenericSpecificConverterMappingV7&& other) noexcept;
    ~GenericSpecificConverterMappingV7();

    /// Takes over what the old mapping holds, or copies it.
    void createFromV6(GenericSpecificConverterMappingV6& old);
    void createFromV6(const GenericSpecificConverterMappingV6& old);

    const Vector3& getUpAxis() const { return _upAxis; }
    void setUpAxis(const Vector3& axis) { _upAxis = axis.computeNormalize(); }
    const Vector3& getFrontAxis() const { return _frontAxis; }
    void setFrontAxis(const Vector3& axis) { _frontAxis = axis.computeNormalize(); }

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
    PODArray<int> _spineMirrorSources;
    PODArray<float> _groundHeightArray;
    Array<BlindDataV0> _blindDataInfo;
    PODArray<float> _squashStretchWeightsArray;
    PODArray<bool> _cacheAllowed;
    PODArray<int> _bonesSnsScaleModes;
};

} // namespace mrv
