// mrvCore/animation/_compatibility/mrvMaravoCharacterV9.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV9.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV9, "mrv::MaravoCharacterV9",
                            "2f3a68bd-6c6f-4e50-a083-66845cefb6e8")

void MaravoCharacterV9::addAttributes()
{
    using V9 = MaravoCharacterV9;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V9::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V9::_mainAssetGroups);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V9::_allAssetGroups);
    addAttribute<Array<MeshAssetV2>>("meshAssets", &V9::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV1>>>("geometryAssetsPerTags", &V9::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V9::_shadingGroups);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &V9::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V9::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V9::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V9::getConverterMapping, &V9::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V9::getCharacterUserData,
                                                      &V9::setCharacterUserData);
}

MaravoCharacterV9::MaravoCharacterV9() = default;

MaravoCharacterV9::~MaravoCharacterV9() = default;

namespace {

template <class Old>
void step(MaravoCharacterV9& to, Old& old)
{
    internal::takeUnchanged(to, old);
    constexpr short untagged = 0;
    stepUp(to._geometryAssetsPerTags[untagged], old._geometryAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV9, createFromV8, MaravoCharacterV8)

} // namespace mrv
