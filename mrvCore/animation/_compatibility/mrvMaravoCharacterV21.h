// mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h
// A character of version 21, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV20;

/// Of product version 9.0.0. New: learned deformers of meshes, and sizes of blind data.
class MRV_CORE_API MaravoCharacterV21 : public internal::FrozenCharacter<GenericSpecificConverterMappingV8>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV21)

    MaravoCharacterV21();
    ~MaravoCharacterV21();

    /// Takes over what the old character holds, or copies it.
    void createFromV20(MaravoCharacterV20& old);
    void createFromV20(const MaravoCharacterV20& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV2> _allAssetGroups;
    Array<MeshAssetV6> _meshAssets;
    MrvMap<short, Array<GeometryAssetV3>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV3> _shaderAttributes;
    Array<ShaderAssetV2> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
    Array<PhysicsOverrideV0> _physicsOverrides;
    Vector3 _perceptionShapeExtents{ 1.0f, 1.0f, 1.0f };
    Vector3 _perceptionShapeOffset;
    Array<BoneDisplayConfigurationV0> _skeletonDisplay;
};

} // namespace mrv
