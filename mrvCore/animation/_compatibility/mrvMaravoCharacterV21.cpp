// mrvCore/animation/_compatibility/mrvMaravoCharacterV21.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV21, "mrv::MaravoCharacterV21",
                            "eb6907ec-d4fc-4f40-b0e5-b3d3a547111f")

void MaravoCharacterV21::addAttributes()
{
    using V21 = MaravoCharacterV21;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V21::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V21::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V21::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV2>>("allAssetGroups", &V21::_allAssetGroups);
    addAttribute<Array<MeshAssetV6>>("meshAssets", &V21::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV3>>>("geometryAssetsPerTags",
                                                        &V21::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V21::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V21::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V21::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V21::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV8&>(
        "converterMapping", &V21::getConverterMapping, &V21::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V21::getCharacterUserData,
                                                      &V21::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V21::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V21::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V21::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V21::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V21::_perceptionShapeOffset);
    addAttribute<Array<BoneDisplayConfigurationV0>>("skeletonDisplay", &V21::_skeletonDisplay);
}

MaravoCharacterV21::MaravoCharacterV21() = default;

MaravoCharacterV21::~MaravoCharacterV21() = default;

namespace {

template <class Old>
void step(MaravoCharacterV21& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._meshAssets, old._meshAssets);
    to._converterMapping.createFromV7(old._converterMapping);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV21, createFromV20, MaravoCharacterV20)

} // namespace mrv
