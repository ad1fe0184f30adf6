// mrvCore/animation/_compatibility/mrvMaravoCharacterV18.h
// A character of version 18, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV17;

/// Of product version 8.1.3. New: the perception shape.
class MRV_CORE_API MaravoCharacterV18 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV18)

    MaravoCharacterV18();
    ~MaravoCharacterV18();

    /// Takes over what the old character holds, or copies it.
    void createFromV17(MaravoCharacterV17& old);
    void createFromV17(const MaravoCharacterV17& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV2> _allAssetGroups;
    Array<MeshAssetV5> _meshAssets;
    MrvMap<short, Array<GeometryAssetV3>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV2> _shaderAttributes;
    Array<ShaderAssetV2> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
    Array<PhysicsOverrideV0> _physicsOverrides;
    Vector3 _perceptionShapeExtents{ 1.0f, 1.0f, 1.0f };
    Vector3 _perceptionShapeOffset;
};

} // namespace mrv
