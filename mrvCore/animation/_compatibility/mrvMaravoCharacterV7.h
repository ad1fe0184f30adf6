// mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h
// A character of version 7, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"

namespace mrv {

class MaravoCharacterV6;

/// Of product version 5.0.4_develop. New: meshes may have cloth.
class MRV_CORE_API MaravoCharacterV7 : public internal::FrozenCharacter<GenericSpecificConverterMappingV6>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV7)

    MaravoCharacterV7();
    ~MaravoCharacterV7();

    /// Takes over what the old character holds, or copies it.
    void createFromV6(MaravoCharacterV6& old);
    void createFromV6(const MaravoCharacterV6& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    Array<AssetGroupV0> _allAssetGroups;
    Array<MeshAssetV2> _meshAssets;
    Array<GeometryAssetV1> _geometryAssets;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV0> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV3> _renderingTypes;
};

} // namespace mrv
