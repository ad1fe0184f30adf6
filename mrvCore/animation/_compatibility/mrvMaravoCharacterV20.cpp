// mrvCore/animation/_compatibility/mrvMaravoCharacterV20.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV19.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV20, "mrv::MaravoCharacterV20",
                            "dcfafc69-d6dc-4be2-a471-56398ec5951c")

void MaravoCharacterV20::addAttributes()
{
    using V20 = MaravoCharacterV20;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V20::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V20::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V20::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V20::_allAssetGroups);
    addAttribute<Array<MeshAssetV5>>("meshAssets", &V20::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V20::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V20::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V20::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V20::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V20::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V20::getConverterMapping, &V20::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V20::getCharacterUserData,
                                                      &V20::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V20::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V20::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V20::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V20::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V20::_perceptionShapeOffset);
    addAttribute<Array<BoneDisplayConfigurationV0>>("skeletonDisplay", &V20::_skeletonDisplay);
}

MaravoCharacterV20::MaravoCharacterV20() = default;

MaravoCharacterV20::~MaravoCharacterV20() = default;

namespace {

template <class Old>
void step(MaravoCharacterV20& to, Old& old)
{
    internal::takeUnchanged(to, old);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV20, createFromV19, MaravoCharacterV19)

} // namespace mrv
