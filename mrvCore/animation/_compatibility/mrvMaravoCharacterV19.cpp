// mrvCore/animation/_compatibility/mrvMaravoCharacterV19.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV19.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV18.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV19, "mrv::MaravoCharacterV19",
                            "03077119-fae7-4cff-8e03-e0018d00e7b8")

void MaravoCharacterV19::addAttributes()
{
    using V19 = MaravoCharacterV19;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V19::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V19::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V19::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V19::_allAssetGroups);
    addAttribute<Array<MeshAssetV5>>("meshAssets", &V19::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V19::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V19::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V19::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V19::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V19::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V19::getConverterMapping, &V19::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V19::getCharacterUserData,
                                                      &V19::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V19::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V19::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V19::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V19::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V19::_perceptionShapeOffset);
}

MaravoCharacterV19::MaravoCharacterV19() = default;

MaravoCharacterV19::~MaravoCharacterV19() = default;

namespace {

template <class Old>
void step(MaravoCharacterV19& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._shaderAttributes, old._shaderAttributes);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV19, createFromV18, MaravoCharacterV18)

} // namespace mrv
