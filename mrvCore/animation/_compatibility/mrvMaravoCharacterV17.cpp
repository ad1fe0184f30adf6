// mrvCore/animation/_compatibility/mrvMaravoCharacterV17.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV17.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV16.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV17, "mrv::MaravoCharacterV17",
                            "f19d3670-0fb8-42aa-ab7c-55b81fd8b789")

void MaravoCharacterV17::addAttributes()
{
    using V17 = MaravoCharacterV17;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V17::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V17::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V17::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V17::_allAssetGroups);
    addAttribute<Array<MeshAssetV5>>("meshAssets", &V17::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V17::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V17::_shadingGroups);
    addAttribute<Array<ShaderAttributeV2>>("shaderAttributes", &V17::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V17::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V17::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V17::getConverterMapping, &V17::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V17::getCharacterUserData,
                                                      &V17::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V17::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V17::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V17::_physicsOverrides);
}

MaravoCharacterV17::MaravoCharacterV17() = default;

MaravoCharacterV17::~MaravoCharacterV17() = default;

namespace {

template <class Old>
void step(MaravoCharacterV17& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._allAssetGroups, old._allAssetGroups);
    stepUp(to._meshAssets, old._meshAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV17, createFromV16, MaravoCharacterV16)

} // namespace mrv
