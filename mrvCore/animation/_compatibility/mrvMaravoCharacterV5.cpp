// mrvCore/animation/_compatibility/mrvMaravoCharacterV5.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV5, "mrv::MaravoCharacterV5",
                            "60cba17f-4bdc-4507-b056-20694e289dc3")

void MaravoCharacterV5::addAttributes()
{
    using V5 = MaravoCharacterV5;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V5::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V5::_mainAssetGroups);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V5::_allAssetGroups);
    addAttribute<Array<MeshAssetV1>>("meshAssets", &V5::_meshAssets);
    addAttribute<Array<GeometryAssetV1>>("geometryAssets", &V5::_geometryAssets);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V5::_shadingGroups);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &V5::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V5::_shaderAssets);
    addAttribute<Array<RenderingTypeV2>>("renderingTypes", &V5::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV6&>(
        "converterMapping", &V5::getConverterMapping, &V5::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V5::getCharacterUserData,
                                                      &V5::setCharacterUserData);
}

MaravoCharacterV5::MaravoCharacterV5() = default;

MaravoCharacterV5::~MaravoCharacterV5() = default;

} // namespace mrv
