// mrvCore/animation/_compatibility/mrvMaravoCharacterV22.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV22.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV22, "mrv::MaravoCharacterV22",
                            "09b6665b-4380-4858-8c7d-f15d84f6b515")

void MaravoCharacterV22::addAttributes()
{
    using V22 = MaravoCharacterV22;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V22::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V22::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V22::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V22::_allAssetGroups);
    addAttribute<Array<MeshAssetV7>>("meshAssets", &V22::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV4>>>("geometryAssetsPerTags",
                                                        &V22::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V22::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V22::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V22::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V22::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV8&>(
        "converterMapping", &V22::getConverterMapping, &V22::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V22::getCharacterUserData,
                                                      &V22::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V22::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V22::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V22::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V22::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V22::_perceptionShapeOffset);
    addAttribute<Array<BoneDisplayConfigurationV0>>("skeletonDisplay", &V22::_skeletonDisplay);
}

MaravoCharacterV22::MaravoCharacterV22() = default;

MaravoCharacterV22::~MaravoCharacterV22() = default;

namespace {

template <class Old>
void step(MaravoCharacterV22& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._meshAssets, old._meshAssets);
    stepUp(to._geometryAssetsPerTags, old._geometryAssetsPerTags);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV22, createFromV21, MaravoCharacterV21)

} // namespace mrv
