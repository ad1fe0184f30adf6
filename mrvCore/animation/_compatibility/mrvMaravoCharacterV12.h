// mrvCore/animation/_compatibility/mrvMaravoCharacterV12.h
// A character of version 12, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV11;

/// Of product version 6.4.3. New: geometry has levels of detail.
class MRV_CORE_API MaravoCharacterV12 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV12)

    MaravoCharacterV12();
    ~MaravoCharacterV12();

    /// Takes over what the old character holds, or copies it.
    void createFromV11(MaravoCharacterV11& old);
    void createFromV11(const MaravoCharacterV11& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV0> _allAssetGroups;
    Array<MeshAssetV3> _meshAssets;
    MrvMap<short, Array<GeometryAssetV2>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV1> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV3> _renderingTypes;
};

} // namespace mrv
