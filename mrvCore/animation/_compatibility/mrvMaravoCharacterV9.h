// mrvCore/animation/_compatibility/mrvMaravoCharacterV9.h
// A character of version 9, as files hold it.
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
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV8;

/// Of product version 6.2. New: geometry is told by tags.
class MRV_CORE_API MaravoCharacterV9 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV9)

    MaravoCharacterV9();
    ~MaravoCharacterV9();

    /// Takes over what the old character holds, or copies it.
    void createFromV8(MaravoCharacterV8& old);
    void createFromV8(const MaravoCharacterV8& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    Array<AssetGroupV0> _allAssetGroups;
    Array<MeshAssetV2> _meshAssets;
    MrvMap<short, Array<GeometryAssetV1>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV0> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV3> _renderingTypes;
};

} // namespace mrv
