// mrvCore/animation/_compatibility/mrvMaravoCharacterV8.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV8, "mrv::MaravoCharacterV8",
                            "0804a8dc-58cb-4205-a8e6-6e0c2c3365ad")

void MaravoCharacterV8::addAttributes()
{
    using V8 = MaravoCharacterV8;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V8::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V8::_mainAssetGroups);
    addAttribute<Array<AssetGroupV0>>("allAssetGroups", &V8::_allAssetGroups);
    addAttribute<Array<MeshAssetV2>>("meshAssets", &V8::_meshAssets);
    addAttribute<Array<GeometryAssetV1>>("geometryAssets", &V8::_geometryAssets);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V8::_shadingGroups);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &V8::_shaderAttributes);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &V8::_shaderAssets);
    addAttribute<Array<RenderingTypeV3>>("renderingTypes", &V8::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV7&>(
        "converterMapping", &V8::getConverterMapping, &V8::setConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V8::getCharacterUserData,
                                                      &V8::setCharacterUserData);
}

MaravoCharacterV8::MaravoCharacterV8() = default;

MaravoCharacterV8::~MaravoCharacterV8() = default;

namespace {

template <class Old>
void step(MaravoCharacterV8& to, Old& old)
{
    internal::takeUnchanged(to, old);
    to._converterMapping.createFromV6(old._converterMapping);
}

} // namespace

MRV_DEFINE_STEP(MaravoCharacterV8, createFromV7, MaravoCharacterV7)

} // namespace mrv
