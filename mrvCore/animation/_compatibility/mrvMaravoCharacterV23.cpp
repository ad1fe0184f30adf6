// mrvCore/animation/_compatibility/mrvMaravoCharacterV23.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV23.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV22.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV23, "mrv::MaravoCharacterV23",
                            "4215fa73-70aa-4bd6-9b51-1ccad91673af")

void MaravoCharacterV23::addAttributes()
{
    using V23 = MaravoCharacterV23;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V23::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V23::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V23::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV3>>("allAssetGroups", &V23::_allAssetGroups);
    addAttribute<Array<MeshAssetV8>>("meshAssets", &V23::_meshAssets);
    addAttribute<MrvMap<short, Array<GeometryAssetV4>>>("geometryAssetsPerTags",
                                                        &V23::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V23::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V23::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V23::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V23::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV8&>(
        "converterMapping", &V23::getConverterMapping, &V23::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V23::getCharacterUserData,
                                                      &V23::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V23::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V23::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V23::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V23::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V23::_perceptionShapeOffset);
    addAttribute<Array<BoneDisplayConfigurationV0>>("skeletonDisplay", &V23::_skeletonDisplay);
    addAttribute<Array<DeepDeformerAssetV0>>("deepDeformerAssets", &V23::_deepDeformerAssets);
}

MaravoCharacterV23::MaravoCharacterV23() = default;

MaravoCharacterV23::~MaravoCharacterV23() = default;

namespace {

/// What a mesh told of its deformer.
DeepDeformerAssetV0 getDeepDeformer(const MeshAssetV7& mesh)
{
    DeepDeformerAssetV0 deformer;
    deformer._name = mesh._deepMeshName.empty() ? mesh._name : mesh._deepMeshName;
    deformer._lodLevel = mesh._lodLevelFlags;
    deformer._geometryTags = mesh._geometryTags;
    deformer._deepFilename = mesh._deepMeshConfFile;
    return deformer;
}

template <class Old>
void step(MaravoCharacterV23& to, Old& old)
{
    for (const MeshAssetV7& mesh : old._meshAssets)
        if (!mesh._deepMeshConfFile.empty())
            to._deepDeformerAssets.push_back(getDeepDeformer(mesh));
    internal::takeUnchanged(to, old);
    stepUp(to._allAssetGroups, old._allAssetGroups);
    stepUp(to._meshAssets, old._meshAssets);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV23, createFromV22, MaravoCharacterV22)

} // namespace mrv
