// mrvCore/animation/_compatibility/mrvMaravoCharacterV16.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV16.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV15.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV16, "mrv::MaravoCharacterV16",
                            "5899056d-4a50-4784-997b-415368342b47")

void MaravoCharacterV16::addAttributes()
{
    using V16 = MaravoCharacterV16;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V16::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V16::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V16::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV1>>("allAssetGroups", &V16::_allAssetGroups);
    addAttribute<Array<MeshAssetV4>>("meshAssets", &V16::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V16::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V16::_shadingGroups);
    addAttribute<Array<ShaderAttributeV2>>("shaderAttributes", &V16::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V16::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V16::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V16::getConverterMapping, &V16::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V16::getCharacterUserData,
                                                      &V16::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V16::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V16::_blindDataOverrides);
}

MaravoCharacterV16::MaravoCharacterV16() = default;

MaravoCharacterV16::~MaravoCharacterV16() = default;

namespace {

template <class Old>
void step(MaravoCharacterV16& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._geometryAssetsPerTags, old._geometryAssetsPerTags);
    stepUp(to._shaderAssets, old._shaderAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV16, createFromV15, MaravoCharacterV15)

} // namespace mrv
