// mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h
// A character of version 20, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

class MaravoCharacterV19;

/// Of product version 8.2.3. New: the display of the skeleton.
class MRV_CORE_API MaravoCharacterV20 : public internal::FrozenCharacter<GenericSpecificConverterMappingV7>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV20)

    MaravoCharacterV20();
    ~MaravoCharacterV20();

    /// Takes over what the old character holds, or copies it.
    void createFromV19(MaravoCharacterV19& old);
    void createFromV19(const MaravoCharacterV19& old);

    MrvString _name = "Character";
    PODArray<int> _mainAssetGroups;
    PODArray<int> _mainShaderAttributes;
    Array<AssetGroupV2> _allAssetGroups;
    Array<MeshAssetV5> _meshAssets;
    MrvMap<short, Array<GeometryAssetV3>> _geometryAssetsPerTags;
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
