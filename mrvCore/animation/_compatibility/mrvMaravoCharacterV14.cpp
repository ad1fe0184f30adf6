// mrvCore/animation/_compatibility/mrvMaravoCharacterV14.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV14.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV13.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV14, "mrv::MaravoCharacterV14",
                            "defef6a0-2a5b-47f4-ba5e-0e2df68aa7de")

void MaravoCharacterV14::addAttributes()
{
    using V14 = MaravoCharacterV14;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V14::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V14::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V14::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV1>>("allAssetGroups", &V14::_allAssetGroups);
    addAttribute<Array<MeshAssetV4>>("meshAssets", &V14::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV2>>>("geometryAssetsPerTags",
                                                        &V14::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V14::_shadingGroups);
    addAttribute<Array<ShaderAttributeV1>>("shaderAttributes", &V14::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V14::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V14::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V14::getConverterMapping, &V14::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V14::getCharacterUserData,
                                                      &V14::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V14::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V14::_blindDataOverrides);
}

MaravoCharacterV14::MaravoCharacterV14() = default;

MaravoCharacterV14::~MaravoCharacterV14() = default;

namespace {

template <class Old>
void step(MaravoCharacterV14& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._meshAssets, old._meshAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV14, createFromV13, MaravoCharacterV13)

} // namespace mrv
