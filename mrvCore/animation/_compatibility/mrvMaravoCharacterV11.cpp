// mrvCore/animation/_compatibility/mrvMaravoCharacterV11.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV11.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV10.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV11, "mrv::MaravoCharacterV11",
                            "4ea950af-3db3-4bd6-9be8-9c1e4928df1a")

void MaravoCharacterV11::addAttributes()
{
    using V11 = MaravoCharacterV11;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V11::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V11::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V11::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V11::_allAssetGroups);
    addAttribute<Array<MeshAssetV3>>("meshAssets", &V11::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV1>>>("geometryAssetsPerTags",
                                                        &V11::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V11::_shadingGroups);
    addAttribute<Array<ShaderAttributeV1>>("shaderAttributes", &V11::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V11::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V11::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V11::getConverterMapping, &V11::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V11::getCharacterUserData,
                                                      &V11::setCharacterUserData);
}

MaravoCharacterV11::MaravoCharacterV11() = default;

MaravoCharacterV11::~MaravoCharacterV11() = default;

namespace {

template <class Old>
void step(MaravoCharacterV11& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._meshAssets, old._meshAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV11, createFromV10, MaravoCharacterV10)

} // namespace mrv
