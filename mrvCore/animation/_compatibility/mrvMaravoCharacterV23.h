// mrvCore/animation/_compatibility/mrvMaravoCharacterV23.h
// A character of version 23, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h"
#include "mrvCore/assetManagement/mrvDeepDeformerAsset.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvMeshAsset.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV22;

/// Of product version 9.0.0. New: learned deformers are assets of their own.
class MRV_CORE_API MaravoCharacterV23 : public internal::FrozenCharacter<GenericSpecificConverterMappingV8>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV23)

    MaravoCharacterV23();
    ~MaravoCharacterV23();

    /// Takes over what the old character holds, or copies it.
    void createFromV22(MaravoCharacterV22& old);
    void createFromV22(const MaravoCharacterV22& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV3> _allAssetGroups;
    Array<MeshAssetV8> _meshAssets;
    MrvMap<short, Array<GeometryAssetV4>> _geometryAssetsPerTags;
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
    Array<DeepDeformerAssetV0> _deepDeformerAssets;
};

} // namespace mrv
