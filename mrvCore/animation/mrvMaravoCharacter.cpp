// mrvCore/animation/mrvMaravoCharacter.cpp
// The data of a character and the look-ups in it.
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <algorithm>
#include <limits>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV24, "mrv::MaravoCharacterV24",
                            "b59741ec-4b1e-4e6c-a758-86c48b665a65")

// This list is the file format: order, names and types stay. A change is a MaravoCharacterV25.
void MaravoCharacterV24::addAttributes()
{
    using V24 = MaravoCharacterV24;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<MrvString>("name", &V24::_name);
    addAttribute<PODArray<int>>("mainAssetGroups", &V24::_mainAssetGroups);
    addAttribute<PODArray<int>>("mainShaderAttributes", &V24::_mainShaderAttributes);
    addAttribute<Array<AssetGroupV4>>("allAssetGroups", &V24::_allAssetGroups);
    addAttribute<Array<MeshAssetV8>>("meshAssets", &V24::_meshAssets);
    addAttribute<MrvMap<short, GeometryAssets>>("geometryAssetsPerTags", &V24::_geometryAssetsPerTags);
    addAttribute<Array<ShadingGroupV1>>("shadingGroups", &V24::_shadingGroups);
    addAttribute<Array<ShaderAttributeV3>>("shaderAttributes", &V24::_shaderAttributes);
    addAttribute<Array<ShaderAssetV2>>("shaderAssets", &V24::_shaderAssets);
    addAttribute<Array<RenderingTypeV4>>("renderingTypes", &V24::_renderingTypes);
    addAccessorsAttribute<const GenericSpecificConverterMappingV8&>(
        "converterMapping", &V24::getConverterMapping, &V24::setConverterMapping, &V24::takeConverterMapping);
    addAccessorsAttribute<const CharacterUserDataV0&>("characterUserData", &V24::getCharacterUserData,
                                                      &V24::setCharacterUserData);
    addAttribute<Array<SkeletonOverrideV0>>("skeletonOverrides", &V24::_skeletonOverrides);
    addAttribute<Array<BlindDataOverrideV0>>("blindDataOverrides", &V24::_blindDataOverrides);
    addAttribute<Array<PhysicsOverrideV0>>("physicsOverrides", &V24::_physicsOverrides);
    addAttribute<Vector3>("perceptionShapeExtents", &V24::_perceptionShapeExtents);
    addAttribute<Vector3>("perceptionShapeOffset", &V24::_perceptionShapeOffset);
    addAttribute<Array<BoneDisplayConfigurationV0>>("skeletonDisplay", &V24::_skeletonDisplay);
    addAttribute<Array<DeepDeformerAssetV0>>("deepDeformerAssets", &V24::_deepDeformerAssets);
}

namespace {

template <typename Assets>
int findName(const Assets& assets, const MrvString& name)
{
    for (size_t i = 0; i < assets.size(); ++i)
        if (assets[i]._name == name)
            return static_cast<int>(i);
    return -1;
}

const WeightOverrideV1* findOwnOverride(const RenderingTypeV4& renderingType, int assetIndex,
                                        WeightOverrideType::Value type)
{
    for (const WeightOverrideV1& weightOverride : renderingType._weightOverrides)
        if (weightOverride._type == type && weightOverride._assetIndex == assetIndex)
            return &weightOverride;
    return nullptr;
}

float overridden(float value, const PODArray<float>* overrides, size_t index)
{
    return overrides != nullptr && index < overrides->size() ? (*overrides)[index] : value;
}

/// How far a distance lies outside a range; 0 within it.
float gapTo(float distance, float min, float max)
{
    if (min > distance)
        return min - distance;
    return distance > max ? distance - max : 0.0f;
}

Array<MrvString> splitFurList(const MeshAssetV8& mesh, const char* property)
{
    MrvString text;
    mesh.getFurProperty(property, text);
    return stringToStringArray(text.trim("\t\n\r "), ",");
}

} // namespace

MaravoCharacterV24::MaravoCharacterV24()
{
    _converterMapping.setSkeletonDisplay(&_skeletonDisplay);
}

MaravoCharacterV24::~MaravoCharacterV24() = default;

void MaravoCharacterV24::loadCharacter(const MaravoCharacterV24& other)
{
    _name = other._name;
    _mainAssetGroups = other._mainAssetGroups;
    _mainShaderAttributes = other._mainShaderAttributes;
    _allAssetGroups = other._allAssetGroups;
    _meshAssets = other._meshAssets;
    _deepDeformerAssets = other._deepDeformerAssets;
    _geometryAssetsPerTags = other._geometryAssetsPerTags;
    _shadingGroups = other._shadingGroups;
    _shaderAttributes = other._shaderAttributes;
    _shaderAssets = other._shaderAssets;
    _renderingTypes = other._renderingTypes;
    setConverterMapping(other._converterMapping);
    setCharacterUserData(other._characterUserData);
    _skeletonOverrides = other._skeletonOverrides;
    _blindDataOverrides = other._blindDataOverrides;
    _physicsOverrides = other._physicsOverrides;
    _perceptionShapeExtents = other._perceptionShapeExtents;
    _perceptionShapeOffset = other._perceptionShapeOffset;
    _skeletonDisplay = other._skeletonDisplay;
}

void MaravoCharacterV24::setConverterMapping(const GenericSpecificConverterMappingV8& mapping)
{
    _converterMapping.createFromConst(mapping);
}

void MaravoCharacterV24::takeConverterMapping(GenericSpecificConverterMappingV8& mapping)
{
    _converterMapping.takeOver(mapping);
}

size_t MaravoCharacterV24::getGeometryAssetsCount() const
{
    size_t count = 0;
    for (auto entry = _geometryAssetsPerTags.begin(); entry != _geometryAssetsPerTags.end(); ++entry)
        count += entry.getValue().size();
    return count;
}

size_t MaravoCharacterV24::getGeometryAssetsCount(short tag) const
{
    const GeometryAssets* assets = getGeometryAssets(tag);
    return assets != nullptr ? assets->size() : 0;
}

const MaravoCharacterV24::GeometryAssets* MaravoCharacterV24::getGeometryAssets(short tag) const
{
    const auto entry = _geometryAssetsPerTags.find(tag);
    return entry != _geometryAssetsPerTags.end() ? &entry.getValue() : nullptr;
}

const GeometryAssetV4* MaravoCharacterV24::getGeometryAsset(short tag, size_t& lodIndex, float distance,
                                                            const PODArray<float>* minOverrides,
                                                            const PODArray<float>* maxOverrides) const
{
    const GeometryAssets* assets = getGeometryAssets(tag);
    if (assets == nullptr)
        return nullptr;
    if (distance < 0.0f)
        return lodIndex < assets->size() ? &(*assets)[lodIndex] : nullptr;
    const GeometryAssetV4* result = nullptr;
    float best = std::numeric_limits<float>::max();
    for (size_t i = 0; i < assets->size() && best > 0.0f; ++i)
    {
        const GeometryAssetV4& asset = (*assets)[i];
        const float gap = gapTo(distance, overridden(asset._LODMinDistance, minOverrides, i),
                                overridden(asset._LODMaxDistance, maxOverrides, i));
        if (gap < best)
        {
            best = gap;
            lodIndex = i;
            result = &asset;
        }
    }
    return result;
}

const GeometryAssetV4* MaravoCharacterV24::getGeometryAssetFirstLOD(short tag) const
{
    const GeometryAssets* assets = getGeometryAssets(tag);
    const GeometryAssetV4* first = nullptr;
    for (size_t i = 0; assets != nullptr && i < assets->size(); ++i)
    {
        const GeometryAssetV4& asset = (*assets)[i];
        if (first == nullptr || asset._LODMinDistance < first->_LODMinDistance)
            first = &asset;
        // Callers rely on the first asset that begins at the camera, not on one that begins behind it.
        if (asset._LODMinDistance <= 0.0f)
            break;
    }
    return first;
}

void MaravoCharacterV24::getFirstAvailableAbsoluteGeometryFile(MrvString& result, const char* directory) const
{
    const auto lowest = _geometryAssetsPerTags.begin();
    if (lowest != _geometryAssetsPerTags.end() && !lowest.getValue().empty())
        lowest.getValue()[0].getAbsoluteGeometryFile(result, directory);
}

int MaravoCharacterV24::findAssetGroupIdx(const MrvString& name) const
{
    return findName(_allAssetGroups, name);
}

int MaravoCharacterV24::findDeepDeformerAssetIdx(const MrvString& name) const
{
    return findName(_deepDeformerAssets, name);
}

int MaravoCharacterV24::findShadingGroupIdx(const MrvString& name) const
{
    return findName(_shadingGroups, name);
}

int MaravoCharacterV24::findShaderAssetIdx(const MrvString& name) const
{
    return findName(_shaderAssets, name);
}

int MaravoCharacterV24::findRenderingTypeIdx(const MrvString& name) const
{
    return findName(_renderingTypes, name);
}

int MaravoCharacterV24::findShaderAttributeIdx(const MrvString& name) const
{
    return findName(_shaderAttributes, name);
}

int MaravoCharacterV24::findMeshAssetIdx(const MrvString& name) const
{
    const int exact = findName(_meshAssets, name);
    if (exact != -1)
        return exact;
    const MrvString suffix = ":" + name;
    for (size_t i = 0; i < _meshAssets.size(); ++i)
        if (endsWith(name, ":" + _meshAssets[i]._name) || endsWith(_meshAssets[i]._name, suffix))
            return static_cast<int>(i);
    return -1;
}

int MaravoCharacterV24::findShaderAsset(const ShadingGroupV1& group, const MrvString& category) const
{
    for (const int index : group._shaderAssets)
        if (index >= 0 && index < _shaderAssets.sizeInt() &&
            _shaderAssets[static_cast<size_t>(index)].hasCategory(category))
            return index;
    return -1;
}

int MaravoCharacterV24::findWeightOverride(const WeightOverrideV1*& result,
                                           const Array<RenderingTypeV4>& renderingTypes, int renderingType,
                                           int assetIndex, WeightOverrideType::Value type)
{
    result = nullptr;
    // A chain that is longer than the list goes in a circle.
    for (size_t steps = 0; steps < renderingTypes.size(); ++steps)
    {
        if (renderingType < 0 || renderingType >= renderingTypes.sizeInt())
            return -1;
        const RenderingTypeV4& current = renderingTypes[static_cast<size_t>(renderingType)];
        result = findOwnOverride(current, assetIndex, type);
        if (result != nullptr)
            return renderingType;
        renderingType = current._parentRenderingType;
    }
    return -1;
}

void MaravoCharacterV24::getFurMeshes(const MeshAssetV8& mesh, PODArray<int>& meshIndices,
                                      PODArray<bool>& enabled) const
{
    meshIndices.clear();
    enabled.clear();
    if (!mesh.isFur())
        return;
    const Array<MrvString> names = splitFurList(mesh, "meshNames");
    const Array<MrvString> switches = splitFurList(mesh, "enabledMeshes");
    if (names.size() != switches.size())
        MRV_LOG(ORVEL, LOG_ERROR,
                "Fur asset mvf file of asset "
                    << mesh._name
                    << " : fur support 'mesh names' and 'enabled meshes' have different count. Reexport "
                       "your fur or edit the mvcf file to fix this.");
    for (size_t i = 0; i < std::min(names.size(), switches.size()); ++i)
    {
        const int meshIndex = findMeshAssetIdx(names[i]);
        if (meshIndex == -1)
            continue;
        meshIndices.push_back(meshIndex);
        enabled.push_back(switches[i] == "1");
    }
}

void MaravoCharacterV24::expandMainShaderAttributes()
{
    for (const int index : _mainShaderAttributes)
    {
        for (ShadingGroupV1& group : _shadingGroups)
            if (group._shaderAttributes.find(index) == group._shaderAttributes.end())
                group._shaderAttributes.push_back(index);
    }
}

void MaravoCharacterV24::setShadingNamespace(const MrvString& prefix)
{
    if (prefix.empty())
        return;
    for (ShadingGroupV1& group : _shadingGroups)
        group._name = prefix + ":" + group._name;
    for (ShaderAssetV2& shader : _shaderAssets)
        shader._name = prefix + ":" + shader._name;
}

} // namespace mrv
