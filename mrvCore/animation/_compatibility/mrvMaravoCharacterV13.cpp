// mrvCore/animation/_compatibility/mrvMaravoCharacterV13.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV13.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV12.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV13, "mrv::MaravoCharacterV13",
                            "dad9c48c-cc39-4274-b5a9-308e6ecbdfee")

void MaravoCharacterV13::addAttributes()
{
    using V13 = MaravoCharacterV13;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V13::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V13::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V13::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV1>>("allAssetGroups", &V13::_allAssetGroups);
    addAttribute<Array<MeshAssetV3>>("meshAssets", &V13::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV2>>>("geometryAssetsPerTags",
                                                        &V13::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V13::_shadingGroups);
    addAttribute<Array<ShaderAttributeV1>>("shaderAttributes", &V13::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V13::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V13::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V13::getConverterMapping, &V13::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V13::getCharacterUserData,
                                                      &V13::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V13::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V13::_blindDataOverrides);
}

MaravoCharacterV13::MaravoCharacterV13() = default;

MaravoCharacterV13::~MaravoCharacterV13() = default;

namespace {

template <class Old>
void step(MaravoCharacterV13& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._allAssetGroups, old._allAssetGroups);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV13, createFromV12, MaravoCharacterV12)

} // namespace mrv
