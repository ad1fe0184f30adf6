// mrvCore/animation/_compatibility/mrvMaravoCharacterV22.h
// A character of version 22, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV21;

/// Of product version 9.0.0. New: levels of detail and geometry tags of meshes.
class MRV_CORE_API MaravoCharacterV22 : public internal::FrozenCharacter<GenericSpecificConverterMappingV8>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV22)

    MaravoCharacterV22();
    ~MaravoCharacterV22();

    /// Takes over what the old character holds, or copies it.
    void createFromV21(MaravoCharacterV21& old);
    void createFromV21(const MaravoCharacterV21& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV2> _allAssetGroups;
    Array<MeshAssetV7> _meshAssets;
    MrvMap<short, Array<GeometryAssetV4>> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV3> _shaderAttributes;
    Array<ShaderAssetV2> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
    Array<PhysicsOverrideV0> _physicsOverrides;
    Vector3 _perceptionShapeExtents{ 1.0f, 1.0f, 1.0f };
    Vector3 _perceptionShapeOffset;
    Array<BoneDisplayConfigurationV0> _skeletonDisplay;
};

} // namespace mrv
