// mrvCore/animation/_compatibility/mrvMaravoCharacterV15.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV15.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV14.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV15, "mrv::MaravoCharacterV15",
                            "ab500887-c019-4d85-9307-b3b9d44efe2a")

void MaravoCharacterV15::addAttributes()
{
    using V15 = MaravoCharacterV15;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V15::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V15::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V15::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV1>>("allAssetGroups", &V15::_allAssetGroups);
    addAttribute<Array<MeshAssetV4>>("meshAssets", &V15::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV2>>>("geometryAssetsPerTags",
                                                        &V15::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V15::_shadingGroups);
    addAttribute<Array<ShaderAttributeV2>>("shaderAttributes", &V15::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V15::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V15::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V15::getConverterMapping, &V15::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V15::getCharacterUserData,
                                                      &V15::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V15::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V15::_blindDataOverrides);
}

MaravoCharacterV15::MaravoCharacterV15() = default;

MaravoCharacterV15::~MaravoCharacterV15() = default;

namespace {

template <class Old>
void step(MaravoCharacterV15& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._shaderAttributes, old._shaderAttributes);
    stepUp(to._renderingTypes, old._renderingTypes);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV15, createFromV14, MaravoCharacterV14)

} // namespace mrv
