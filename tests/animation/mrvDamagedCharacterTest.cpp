// tests/animation/mrvDamagedCharacterTest.cpp
// Damaged character files: whatever they hold, loading ends in an error code or in a character that can be
// used.
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "tests/support/mrvDamagedFiles.h"
#include "tests/support/mrvTestSkeleton.h"

#include <random>
#include <string>
#include <vector>

namespace mrv {
namespace {

using Load = LoadCharacterFileErrorCode;

std::string sample(const std::string& name)
{
    std::ifstream stream(std::string(MRV_TEST_DATA) + "/" + name, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(stream), {});
    EXPECT_FALSE(content.empty());
    return content;
}

/// Follows every index and pointer that a character holds.
void use(MaravoCharacterV24& character)
{
    PODArray<int> indices;
    PODArray<bool> enabled;
    const WeightOverrideV1* found = nullptr;
    for (const AssetGroupV4& group : character._allAssetGroups)
        group.getAllMeshAssets(indices, character);
    for (const ShadingGroupV1& group : character._shadingGroups)
        character.findShaderAsset(group, "surface");
    for (const MeshAssetV8& mesh : character._meshAssets)
        character.getFurMeshes(mesh, indices, enabled);
    for (int type = 0; type < character._renderingTypes.sizeInt(); ++type)
        MaravoCharacterV24::findWeightOverride(found, character._renderingTypes, type, 0,
                                               WeightOverrideType::GROUP);
    indices.clear();
    for (int bone = 0; bone < 100; ++bone)
        indices.push_back(bone);
    character.autoComputePerceptionShape();
    character.autoComputeSkeletonDisplay(indices);
}

class DamagedCharacters : public DamagedFiles
{
protected:
    using IsRight = std::function<bool(size_t, Load::Value)>;

    size_t load(const char* extension, size_t count, const MakeInput& makeInput, const IsRight& isRight)
    {
        return loadInputs(extension, count, makeInput, [&](size_t input, const MrvString& fileName) {
            MaravoCharacterV24 character;
            const Load::Value result = character.loadCharacterFile(fileName, true);
            if (result == Load::SUCCESS)
                use(character);
            character.saveCharacterFileBinary("/dev/null");
            return isRight(input, result);
        });
    }
};

/// The files to damage: large ones of the current version, a small one of each version before it.
std::vector<std::string> sampleNames()
{
    std::vector<std::string> names = { "characters/biped_v24.mvc", "characters/quadruped_v24.mvc",
                                       "characters/biped_v24.mvcf", "characters/quadruped_v24.mvcf" };
    for (int version = 0; version < MRV_MVC_VERSION; ++version)
        for (const char* extension : { ".mvc", ".mvcf" })
            names.push_back("versions/character_v" + std::to_string(version) + extension);
    return names;
}

const char* extensionOf(const std::string& name)
{
    return name.back() == 'f' ? "mvcf" : "mvc";
}

TEST_F(DamagedCharacters, thatAreCutOffAreRefused)
{
    constexpr size_t step = 97;
    for (const std::string& name : sampleNames())
    {
        const std::string whole = sample(name);
        const bool isXML = name.back() == 'f';
        const size_t needed = isXML ? whole.rfind('>') : whole.size() - 1;
        const size_t ends = load(
            extensionOf(name), needed / step + 1,
            [&](size_t i) { return whole.substr(0, needed - i * step); },
            [&](size_t, Load::Value result) {
                return isXML ? result != Load::SUCCESS : result == Load::INVALID_FILE;
            });
        EXPECT_EQ(ends, 0u) << name;
    }
}

TEST_F(DamagedCharacters, withWrongBytesAreSurvived)
{
    constexpr size_t count = 40;
    for (const std::string& name : sampleNames())
    {
        const std::string whole = sample(name);
        load(
            extensionOf(name), count,
            [&](size_t i) {
                std::mt19937 random(static_cast<uint32_t>(i));
                std::string damaged = whole;
                damaged[random() % damaged.size()] = static_cast<char>(random());
                return damaged;
            },
            [](size_t, Load::Value result) { return result >= Load::SUCCESS && result < Load::END; });
    }
}

/// What a file can make of a skeleton with the bones root, a, b.
const struct
{
    const char* name;
    void (*damage)(HierarchicalSkeletonDescriptionV1&, HierarchicalBoneV1* root, HierarchicalBoneV1* a,
                   HierarchicalBoneV1* b);
    bool isLoaded; ///< what the copy of the description mends
} skeletonCases[] = {
    { "sound", [](auto&, auto, auto, auto) {}, true },
    { "equalIndices", [](auto&, auto, auto, auto b) { b->setSpecificBoneIndex(1); }, true },
    { "aFatherFromOutside", [](auto& skeleton, auto, auto, auto) { skeleton.touchBones().eraseAt(1); },
      true },
    { "aRing", [](auto&, auto, auto a, auto b) { a->setFather(b); }, false },
    { "aRingOfOne", [](auto&, auto, auto a, auto) { a->setFather(a); }, false },
    { "aRingAtTheRoot", [](auto&, auto root, auto, auto b) { root->setFather(b); }, false },
    { "aNullBone", [](auto& skeleton, auto, auto, auto) { skeleton.touchBones().push_back(nullptr); },
      false },
    { "noRoot", [](auto& skeleton, auto, auto, auto) { skeleton.setRootBone(nullptr); }, false },
    { "aRootThatIsNotTheFirst", [](auto& skeleton, auto, auto a, auto) { skeleton.setRootBone(a); }, false },
};

TEST_F(DamagedCharacters, withoutATreeOfBonesAreRefused)
{
    const auto makeInput = [&](size_t i) {
        MaravoCharacterV24 character;
        HierarchicalSkeletonDescriptionV1 skeleton("skeleton");
        test::fillSkeleton(skeleton, "root -\na root 0 0 1\nb a 0 0 1\n");
        character._converterMapping.duplicateHierarchicalSkeletonDescription(skeleton);
        HierarchicalSkeletonDescriptionV1& damaged = *character._converterMapping.touchSkeletonDescription();
        const PODArray<HierarchicalBoneV1*> bones = damaged.getBones();
        skeletonCases[i].damage(damaged, bones[0], bones[1], bones[2]);
        TemporaryFolder folder;
        character.saveCharacterFileBinary(folder.path("c.mvc"));
        return folder.read("c.mvc");
    };
    const auto isRight = [](size_t i, Load::Value result) {
        return result == (skeletonCases[i].isLoaded ? Load::SUCCESS : Load::INVALID_SKELETON_DESCRIPTION);
    };
    EXPECT_EQ(load("mvc", std::size(skeletonCases), makeInput, isRight), 0u);
}

// A bone that is listed twice belongs to the description once.
TEST_F(DamagedCharacters, mayListABoneTwice)
{
    const auto makeInput = [](size_t) {
        std::string text = sample("characters/biped_v24.mvcf");
        const std::string bones = "<bones>";
        const size_t first = text.find("pointerID=", text.find(bones));
        const size_t second = text.find("pointerID=", first + 1);
        const auto idAt = [&text](size_t place) {
            return text.substr(place, text.find('"', place + 11) + 1 - place);
        };
        return text.replace(second, idAt(second).size(), idAt(first));
    };
    EXPECT_EQ(load("mvcf", 1, makeInput, [](size_t, Load::Value result) { return result == Load::SUCCESS; }),
              0u);
}

} // namespace
} // namespace mrv
