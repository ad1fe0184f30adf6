// mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h
// A character of version 6, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"

namespace mrv {

class MaravoCharacterV4;
class MaravoCharacterV5;

/// Of product version 5.0.4. New: rendering types may have a parent.
class MRV_CORE_API MaravoCharacterV6 : public internal::FrozenCharacter<GenericSpecificConverterMappingV6>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV6)

    MaravoCharacterV6();
    ~MaravoCharacterV6();

    /// Makes arrays of the tree of assets, see mrvAssetManagerImport.h, and copies the rest.
    void createFromV4(MaravoCharacterV4& old);
    /// Takes over what the old character holds, or copies it.
    void createFromV5(MaravoCharacterV5& old);
    void createFromV5(const MaravoCharacterV5& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    Array<AssetGroupV0> _allAssetGroups;
    Array<MeshAssetV1> _meshAssets;
    Array<GeometryAssetV1> _geometryAssets;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV0> _shaderAttributes;
    Array<ShaderAssetV1> _shaderAssets;
    Array<RenderingTypeV3> _renderingTypes;
};

} // namespace mrv
