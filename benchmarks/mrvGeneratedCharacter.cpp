// benchmarks/mrvGeneratedCharacter.cpp
#include "benchmarks/mrvGeneratedCharacter.h"

#include "benchmarks/mrvBenchmarkInputs.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"

namespace mrvBenchmark {

namespace {

mrv::MrvString numbered(const char* name, int number)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%s_%05d", name, number);
    return text;
}

void fillSkeleton(mrv::MaravoCharacterV24& character, int bones)
{
    mrv::HierarchicalSkeletonDescriptionV1 description("skeleton");
    // Fathers of their own: the depth of real skeletons does not grow with their bones.
    Draw draw(7);
    for (const BoneInput& in : skeletonInput(bones))
    {
        const uint32_t reach = static_cast<uint32_t>(in.index) / 8 + 1;
        mrv::HierarchicalBoneV1* father = in.index > 0 ? description.getBones()[draw.below(reach)] : nullptr;
        const mrv::Vector3 position(in.position[0], in.position[1], in.position[2]);
        const mrv::Quaternion rotation(in.rotation[0], in.rotation[1], in.rotation[2], in.rotation[3]);
        description.touchBones().push_back(
            new mrv::HierarchicalBoneV1(in.name.c_str(), father, position, rotation, in.index));
    }
    description.setRootBone(description.getBones()[0]);
    mrv::GenericSpecificConverterMappingV8 mapping;
    mapping.duplicateHierarchicalSkeletonDescription(description);
    character.setConverterMapping(mapping);
    character._skeletonDisplay.resize(static_cast<size_t>(bones));
}

void fillShading(mrv::MaravoCharacterV24& character, int count)
{
    for (int i = 0; i < count; ++i)
    {
        mrv::ShaderAssetV2& shader = character._shaderAssets.addOne();
        shader._name = numbered("shader", i);
        shader._category = "skin cloth";
        mrv::ShaderAttributeV3& attribute = character._shaderAttributes.addOne();
        attribute._name = numbered("tint", i);
        attribute.setMinValue("0.25");
        attribute.setMaxValue("0.75");
        attribute._values.assign(4, 0.5f);
        attribute._weights.assign(4, 1.0f);
        mrv::ShadingGroupV1& group = character._shadingGroups.addOne();
        group._name = numbered("shadingGroup", i);
        group._shaderAssets.push_back(i);
        group._shaderAttributes.push_back(i);
    }
}

void fillMeshes(mrv::MaravoCharacterV24& character, const CharacterSize& size)
{
    for (int i = 0; i < size.meshes; ++i)
    {
        const short tag = static_cast<short>(1 + i % 1000);
        mrv::MeshAssetV8& mesh = character._meshAssets.addOne();
        mesh._name = numbered("body_mesh", i);
        mesh._shadingGroups.push_back(i % character._shadingGroups.sizeInt());
        mesh._geometryTags.push_back(tag);
        mrv::AssetGroupV4& group = character._allAssetGroups[static_cast<size_t>(i % size.groups)];
        group._children.addOne()._meshAssetIdx = i;
        group._weights.push_back(1.0f);
        mrv::Array<mrv::GeometryAssetV4>& files = character._geometryAssetsPerTags[tag];
        for (int level = static_cast<int>(files.size()); level < 3; ++level)
        {
            mrv::GeometryAssetV4& file = files.addOne();
            file._filename = numbered("./geometry/body", i) + ".mvg";
            file._LODMinDistance = 10.0f * static_cast<float>(level);
            file._LODMaxDistance = 10.0f * static_cast<float>(level + 1);
        }
    }
}

void fillRenderingTypes(mrv::MaravoCharacterV24& character, const CharacterSize& size)
{
    for (int i = 0; i < size.renderingTypes; ++i)
    {
        mrv::RenderingTypeV4& type = character._renderingTypes.addOne();
        type._name = numbered("look", i);
        type._parentRenderingType = i - 1;
        for (int k = 0; k < 10; ++k)
        {
            mrv::WeightOverrideV1& weights = type._weightOverrides.addOne();
            weights._assetIndex = (i * 10 + k) % size.groups;
            weights._weights = character._allAssetGroups[static_cast<size_t>(weights._assetIndex)]._weights;
        }
    }
}

} // namespace

size_t fillCharacter(mrv::MaravoCharacterV24& character, const CharacterSize& size)
{
    character._name = "generated";
    fillSkeleton(character, size.bones);
    fillShading(character, 40);
    for (int i = 0; i < size.groups; ++i)
    {
        character._allAssetGroups.addOne()._name = numbered("group", i);
        character._mainAssetGroups.push_back(i);
    }
    fillMeshes(character, size);
    fillRenderingTypes(character, size);
    const size_t perBone = 3; // with its physics and display
    return static_cast<size_t>(size.bones) * perBone + 3 * 40 + static_cast<size_t>(size.groups) +
           2 * static_cast<size_t>(size.meshes) + character.getGeometryAssetsCount() +
           11 * static_cast<size_t>(size.renderingTypes);
}

} // namespace mrvBenchmark
