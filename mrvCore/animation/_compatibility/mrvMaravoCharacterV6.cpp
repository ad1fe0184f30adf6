// mrvCore/animation/_compatibility/mrvMaravoCharacterV6.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h"

#include "mrvCore/animation/_compatibility/mrvAssetManagerImport.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV4.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV6, "mrv::MaravoCharacterV6",
                            "5f5ef6ae-41eb-41b6-bec0-b0186a88faca")

void MaravoCharacterV6::addAttributes()
{
    using V6 = MaravoCharacterV6;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V6::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V6::_mainAssetGroups);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V6::_allAssetGroups);
    addAttribute<Array<MeshAssetV1>>("meshAssets", &V6::_meshAssets);
    addAttribute<Array<GeometryAssetV1>>("geometryAssets", &V6::_geometryAssets);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V6::_shadingGroups);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &V6::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V6::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V6::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV6&>(
        "converterMapping", &V6::getConverterMapping, &V6::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V6::getCharacterUserData,
                                                      &V6::setCharacterUserData);
}

MaravoCharacterV6::MaravoCharacterV6() = default;

MaravoCharacterV6::~MaravoCharacterV6() = default;

namespace {

template <class Old>
void step(MaravoCharacterV6& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._renderingTypes, old._renderingTypes);
}

} // namespace

void MaravoCharacterV6::createFromV4(MaravoCharacterV4& old)
{
    importAssetManager(old._assetManager,
                       { _name, _mainAssetGroups, _allAssetGroups, _meshAssets, _geometryAssets,
                         _shadingGroups, _shaderAttributes, _shaderAssets, _renderingTypes });
    // Null where a damaged file has nothing. The mapping is copied, which numbers its bones anew.
    if (old._converterMapping != nullptr)
        _converterMapping.createFromV5(std::as_const(*old._converterMapping));
    if (old._characterUserData != nullptr)
        setCharacterUserData(*old._characterUserData);
}

MRV_DEFINE_STEP(MaravoCharacterV6, createFromV5, MaravoCharacterV5)

} // namespace mrv
