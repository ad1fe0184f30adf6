// hosts/mrvsamples/mrvSampleAssets.cpp
#include "hosts/mrvsamples/mrvSampleAssets.h"

#include "hosts/mrvsamples/mrvSampleSkeleton.h"

#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/debug/mrvAssert.h"

namespace mrvsamples {

namespace {

template <typename T>
T& append(mrv::Array<T>& array)
{
    array.push_back(T());
    return array.back();
}

int findSkeletonOverride(const mrv::MaravoCharacterV24& character, const char* name)
{
    for (size_t i = 0; i < character._skeletonOverrides.size(); ++i)
        if (character._skeletonOverrides[i]._name == name)
            return static_cast<int>(i);
    return -1;
}

mrv::AssetUnitV3 makeUnit(const mrv::MaravoCharacterV24& character, const char* name)
{
    mrv::AssetUnitV3 unit;
    if (name[0] == '=')
        unit._skeletonOverrideIdx = findSkeletonOverride(character, name + 1);
    else
    {
        unit._assetGroupIdx = character.findAssetGroupIdx(name);
        unit._meshAssetIdx = character.findMeshAssetIdx(name);
    }
    MRV_ASSERT(unit._skeletonOverrideIdx >= 0 || unit._assetGroupIdx >= 0 || unit._meshAssetIdx >= 0,
               "there is nothing named %s", name);
    return unit;
}

mrv::ShadingGroupV1& touchShadingGroup(mrv::MaravoCharacterV24& character, const char* name)
{
    const int index = character.findShadingGroupIdx(name);
    MRV_ASSERT(index >= 0, "there is no shading group %s", name);
    return character._shadingGroups[static_cast<size_t>(index)];
}

} // namespace

int addGroup(mrv::MaravoCharacterV24& character, const char* name, const std::vector<Child>& children,
             const char* attribute)
{
    mrv::AssetGroupV4 group;
    group._name = name;
    for (const Child& child : children)
    {
        group._children.push_back(makeUnit(character, child.name));
        group._weights.push_back(child.weight);
    }
    if (attribute != nullptr)
    {
        group._weightType = mrv::AssetGroupWeightType::ATTRIBUTE;
        group._weightAttributeName = attribute;
    }
    character._allAssetGroups.push_back(group);
    return static_cast<int>(character._allAssetGroups.size()) - 1;
}

mrv::MeshAssetV8& addMesh(mrv::MaravoCharacterV24& character, const char* name, const char* shadingGroup,
                          const std::vector<short>& tags)
{
    mrv::MeshAssetV8& mesh = append(character._meshAssets);
    mesh._name = name;
    mesh._shadingGroups.push_back(character.findShadingGroupIdx(shadingGroup));
    for (const short tag : tags)
        mesh._geometryTags.push_back(tag);
    return mesh;
}

void addGeometry(mrv::MaravoCharacterV24& character, short tag, const char* file,
                 const mrv::Vector3& halfExtentsYUp, const std::vector<float>& maxDistances)
{
    float minDistance = 0.0f;
    unsigned int level = 0;
    for (const float maxDistance : maxDistances)
    {
        mrv::GeometryAssetV4& geometry = append(character._geometryAssetsPerTags[tag]);
        geometry._filename = file + ("_lod" + std::to_string(level)) + ".mvg";
        geometry._halfExtentsYUp = halfExtentsYUp;
        geometry._lodLevel = mrv::LODLevelFlags::LOD0 << level;
        geometry._LODMinDistance = minDistance;
        geometry._LODMaxDistance = maxDistance;
        minDistance = maxDistance;
        ++level;
    }
}

void addShading(mrv::MaravoCharacterV24& character, const char* name, const char* category)
{
    mrv::ShaderAssetV2& shader = append(character._shaderAssets);
    shader._name = mrv::MrvString(name) + "Shader";
    shader._category = category;
    shader._previewName = mrv::MrvString(name) + "Preview";
    mrv::ShadingGroupV1& group = append(character._shadingGroups);
    group._name = name;
    group._shaderAssets.push_back(static_cast<int>(character._shaderAssets.size()) - 1);
}

mrv::ShaderAttributeV3& addAttribute(mrv::MaravoCharacterV24& character, const char* name,
                                     mrv::ShaderAttributeType::Value type, const char* minValue,
                                     const char* maxValue, const char* shadingGroup)
{
    const int index = static_cast<int>(character._shaderAttributes.size());
    mrv::ShaderAttributeV3& attribute = append(character._shaderAttributes);
    attribute._name = name;
    attribute._type = type;
    attribute.setMinValue(minValue);
    attribute.setMaxValue(maxValue);
    if (shadingGroup != nullptr)
        touchShadingGroup(character, shadingGroup)._shaderAttributes.push_back(index);
    else
        character._mainShaderAttributes.push_back(index);
    return attribute;
}

void addRenderingType(mrv::MaravoCharacterV24& character, const char* name, const char* parent,
                      const std::vector<GroupWeights>& groupWeights)
{
    mrv::RenderingTypeV4 type;
    type._name = name;
    type._parentRenderingType = parent != nullptr ? character.findRenderingTypeIdx(parent) : -1;
    for (const GroupWeights& row : groupWeights)
    {
        mrv::WeightOverrideV1& weights = append(type._weightOverrides);
        weights._assetIndex = character.findAssetGroupIdx(row.group);
        for (const float weight : row.weights)
            weights._weights.push_back(weight);
    }
    character._renderingTypes.push_back(type);
}

void addBlendShape(mrv::MaravoCharacterV24& character, const char* group, const char* name)
{
    mrv::BlindDataV1& channel = append(character._converterMapping.touchBlindDataInfo());
    channel._groupName = group;
    channel._name = name;
    channel._floatCount = 1;
    character._converterMapping.updateBlindDataFloatCount();
}

void addBoneScales(mrv::MaravoCharacterV24& character, const char* name,
                   const std::vector<std::string>& bones, float scale, unsigned int seed)
{
    mrv::SkeletonOverrideV0& skeletonOverride = append(character._skeletonOverrides);
    skeletonOverride._name = name;
    for (const std::string& bone : bones)
    {
        skeletonOverride._skeletonBonesLocalPosIndices.push_back(
            static_cast<unsigned int>(findBone(character, bone.c_str())));
        skeletonOverride._skeletonBonesLocalPosScales.push_back(mrv::Vector3(scale));
    }
    skeletonOverride._skeletonBonesLocalPosWeightMax = 1.0f;
    skeletonOverride._randomSeed = seed;
}

} // namespace mrvsamples
