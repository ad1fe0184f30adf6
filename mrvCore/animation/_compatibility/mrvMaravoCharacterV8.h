// mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h
// A character of version 8, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"

namespace mrv {

class MaravoCharacterV7;

/// Of product version 5.1.1.2. New: the mapping mirrors spines.
class MRV_CORE_API MaravoCharacterV8 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV8)

    MaravoCharacterV8();
    ~MaravoCharacterV8();

    /// Takes over what the old character holds, or copies it.
    void createFromV7(MaravoCharacterV7& old);
    void createFromV7(const MaravoCharacterV7& old);

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
