// mrvCore/animation/_compatibility/mrvMaravoCharacterV10.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV10.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV9.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV10, "mrv::MaravoCharacterV10",
                            "7e5aa2bc-fb06-4abf-9b84-32812f0d1925")

void MaravoCharacterV10::addAttributes()
{
    using V10 = MaravoCharacterV10;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V10::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V10::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V10::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V10::_allAssetGroups);
    addAttribute<Array<MeshAssetV2>>("meshAssets", &V10::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV1>>>("geometryAssetsPerTags",
                                                        &V10::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V10::_shadingGroups);
    addAttribute<Array<ShaderAttributeV1>>("shaderAttributes", &V10::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V10::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V10::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V10::getConverterMapping, &V10::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V10::getCharacterUserData,
                                                      &V10::setCharacterUserData);
}

MaravoCharacterV10::MaravoCharacterV10() = default;

MaravoCharacterV10::~MaravoCharacterV10() = default;

namespace {

template <class Old>
void step(MaravoCharacterV10& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._shaderAttributes, old._shaderAttributes);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV10, createFromV9, MaravoCharacterV9)

} // namespace mrv
