// mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h
// A character of version 5, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"

namespace mrv {

/// Of product version 5.0.1. New: assets and mapping are held by value, assets refer to one another by index.
class MRV_CORE_API MaravoCharacterV5 : public internal::FrozenCharacter<GenericSpecificConverterMappingV6>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV5)

    MaravoCharacterV5();
    ~MaravoCharacterV5();

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    Array<AssetGroupV0> _allAssetGroups;
    Array<MeshAssetV1> _meshAssets;
    Array<GeometryAssetV1> _geometryAssets;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV0> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV2> _renderingTypes;
};

} // namespace mrv
