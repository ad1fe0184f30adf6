// mrvCore/animation/_compatibility/mrvMaravoCharacterV12.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV12.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV11.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV12, "mrv::MaravoCharacterV12",
                            "fde74f42-00ca-485f-acd5-d1a0540d765e")

void MaravoCharacterV12::addAttributes()
{
    using V12 = MaravoCharacterV12;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V12::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V12::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V12::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V12::_allAssetGroups);
    addAttribute<Array<MeshAssetV3>>("meshAssets", &V12::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV2>>>("geometryAssetsPerTags",
                                                        &V12::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V12::_shadingGroups);
    addAttribute<Array<ShaderAttributeV1>>("shaderAttributes", &V12::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V12::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V12::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V12::getConverterMapping, &V12::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V12::getCharacterUserData,
                                                      &V12::setCharacterUserData);
}

MaravoCharacterV12::MaravoCharacterV12() = default;

MaravoCharacterV12::~MaravoCharacterV12() = default;

namespace {

template <class Old>
void step(MaravoCharacterV12& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._geometryAssetsPerTags, old._geometryAssetsPerTags);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV12, createFromV11, MaravoCharacterV11)

} // namespace mrv
