// mrvCore/animation/_compatibility/mrvMaravoCharacterV7.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV7, "mrv::MaravoCharacterV7",
                            "62db6974-1829-4f42-98cf-8da254262371")

void MaravoCharacterV7::addAttributes()
{
    using V7 = MaravoCharacterV7;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V7::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V7::_mainAssetGroups);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V7::_allAssetGroups);
    addAttribute<Array<MeshAssetV2>>("meshAssets", &V7::_meshAssets);
    addAttribute<Array<GeometryAssetV1>>("geometryAssets", &V7::_geometryAssets);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V7::_shadingGroups);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &V7::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V7::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V7::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV6&>(
        "converterMapping", &V7::getConverterMapping, &V7::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V7::getCharacterUserData,
                                                      &V7::setCharacterUserData);
}

MaravoCharacterV7::MaravoCharacterV7() = default;

MaravoCharacterV7::~MaravoCharacterV7() = default;

namespace {

template <class Old>
void step(MaravoCharacterV7& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._meshAssets, old._meshAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV7, createFromV6, MaravoCharacterV6)

} // namespace mrv
