// mrvCore/animation/_compatibility/mrvMaravoCharacterV14.h
// A character of version 14, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV13;

/// Of product version 7.3.3. New: meshes may be exported under another name.
class MRV_CORE_API MaravoCharacterV14 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV14)

    MaravoCharacterV14();
    ~MaravoCharacterV14();

    /// Takes over what the old character holds, or copies it.
    void createFromV13(MaravoCharacterV13& old);
    void createFromV13(const MaravoCharacterV13& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV1> _allAssetGroups;
    Array<MeshAssetV4> _meshAssets;
    MrvMap<short, Array<GeometryAssetV2>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV1> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV3> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
};

} // namespace mrv
