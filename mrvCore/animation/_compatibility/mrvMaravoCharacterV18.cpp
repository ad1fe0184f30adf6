// mrvCore/animation/_compatibility/mrvMaravoCharacterV18.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV18.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV17.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV18, "mrv::MaravoCharacterV18",
                            "34179ab7-c707-4e79-a57a-b3c049f3ab9f")

void MaravoCharacterV18::addAttributes()
{
    using V18 = MaravoCharacterV18;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V18::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V18::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V18::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V18::_allAssetGroups);
    addAttribute<Array<MeshAssetV5>>("meshAssets", &V18::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V18::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V18::_shadingGroups);
    addAttribute<Array<ShaderAttributeV2>>("shaderAttributes", &V18::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V18::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V18::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V18::getConverterMapping, &V18::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V18::getCharacterUserData,
                                                      &V18::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V18::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V18::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V18::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V18::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V18::_perceptionShapeOffset);
}

MaravoCharacterV18::MaravoCharacterV18() = default;

MaravoCharacterV18::~MaravoCharacterV18() = default;

namespace {

template <class Old>
void step(MaravoCharacterV18& to, Old& old)
{
    internal::takeUnchanged(to, old);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV18, createFromV17, MaravoCharacterV17)

} // namespace mrv
