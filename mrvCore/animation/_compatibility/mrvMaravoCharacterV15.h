// mrvCore/animation/_compatibility/mrvMaravoCharacterV15.h
// A character of version 15, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV14;

/// Of product version 8.0.0. New: weighted candidates of shader attributes, weight overrides of shader
/// attributes.
class MRV_CORE_API MaravoCharacterV15 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV15)

    MaravoCharacterV15();
    ~MaravoCharacterV15();

    /// Takes over what the old character holds, or copies it.
    void createFromV14(MaravoCharacterV14& old);
    void createFromV14(const MaravoCharacterV14& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV1> _allAssetGroups;
    Array<MeshAssetV4> _meshAssets;
    MrvMap<short, Array<GeometryAssetV2>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV2> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
};

} // namespace mrv
