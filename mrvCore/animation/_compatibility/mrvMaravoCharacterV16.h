// mrvCore/animation/_compatibility/mrvMaravoCharacterV16.h
// A character of version 16, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV15;

/// Of product version 8.0.1. New: geometry and shaders of the learned deformers and of several categories.
class MRV_CORE_API MaravoCharacterV16 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV16)

    MaravoCharacterV16();
    ~MaravoCharacterV16();

    /// Takes over what the old character holds, or copies it.
    void createFromV15(MaravoCharacterV15& old);
    void createFromV15(const MaravoCharacterV15& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV1> _allAssetGroups;
    Array<MeshAssetV4> _meshAssets;
    MrvMap<short, Array<GeometryAssetV3>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV2> _shaderAttributes;
    Array<ShaderAssetV2> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
};

} // namespace mrv
