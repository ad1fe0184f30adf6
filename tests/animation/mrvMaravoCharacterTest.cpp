// tests/animation/mrvMaravoCharacterTest.cpp
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include "mrvCore/animation/mrvCharacterVersions.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTestSkeleton.h"

#include <string>
#include <vector>

namespace mrv {
namespace {

using Character = CoreTest;

std::vector<int> toVector(const PODArray<int>& values)
{
    return std::vector<int>(values.begin(), values.end());
}

GeometryAssetV4 rangeOf(float min, float max)
{
    GeometryAssetV4 asset;
    asset._LODMinDistance = min;
    asset._LODMaxDistance = max;
    return asset;
}

void setRanges(MaravoCharacterV24& character, const std::vector<std::pair<float, float>>& ranges)
{
    Array<GeometryAssetV4>& assets = character._geometryAssetsPerTags[3];
    for (const auto& range : ranges)
        assets.push_back(rangeOf(range.first, range.second));
}

struct DistanceCase
{
    const char* name;
    std::vector<std::pair<float, float>> ranges;
    float distance;
    int lod; ///< -1 for none
};

const DistanceCase distanceCases[] = {
    { "theFirstOfTwoThatHoldIt", { { 0, 10 }, { 10, 20 } }, 10, 0 },
    { "within", { { 0, 10 }, { 10, 20 } }, 10.5f, 1 },
    { "nearestRange", { { 0, 10 }, { 18, 20 } }, 15, 1 },
    { "nearestRangeFromBelow", { { 0, 10 }, { 18, 20 } }, 13, 0 },
    { "theFirstOnATie", { { 0, 10 }, { 20, 30 } }, 15, 0 },
    { "aLaterRangeThatHoldsItBeatsAGap", { { 0, 10 }, { 12, 20 } }, 12, 1 },
    { "noAssets", {}, 1, -1 },
    { "noAssetsByIndex", {}, -1, -1 },
    { "byIndex", { { 0, 1 }, { 0, 1 }, { 0, 1 } }, -1, 2 },
    { "byIndexBeyond", { { 0, 1 }, { 0, 1 } }, -1, -1 },
};

class LevelOfDetail : public CoreTest, public testing::WithParamInterface<DistanceCase>
{};

TEST_P(LevelOfDetail, isChosenByDistance)
{
    MaravoCharacterV24 character;
    setRanges(character, GetParam().ranges);
    const Array<GeometryAssetV4>& assets = *character.getGeometryAssets(3);
    size_t lod = 2;
    const GeometryAssetV4* asset = character.getGeometryAsset(3, lod, GetParam().distance, nullptr, nullptr);
    ASSERT_EQ(asset == nullptr, GetParam().lod == -1);
    EXPECT_EQ(lod, asset != nullptr ? static_cast<size_t>(GetParam().lod) : 2u);
    EXPECT_EQ(asset, asset != nullptr ? &assets[lod] : nullptr);
}

INSTANTIATE_TEST_SUITE_P(Table, LevelOfDetail, testing::ValuesIn(distanceCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Character, overridesReplaceRangesAsFarAsTheyGo)
{
    MaravoCharacterV24 character;
    setRanges(character, { { 0, 10 }, { 10, 20 }, { 20, 30 } });
    const PODArray<float> mins(1, 5.0f), maxs(2, 12.0f);
    const auto lodAt = [&](float distance) {
        size_t lod = 9;
        character.getGeometryAsset(3, lod, distance, &mins, &maxs);
        return lod;
    };
    EXPECT_EQ(lodAt(4.0f), 0u);
    EXPECT_EQ(lodAt(12.0f), 0u);
    EXPECT_EQ(lodAt(17.0f), 2u);
    size_t lod = 9;
    EXPECT_EQ(character.getGeometryAsset(4, lod, 4.0f, nullptr, nullptr), nullptr);
}

TEST_F(Character, theFirstLevelBeginsNearest)
{
    MaravoCharacterV24 character;
    EXPECT_EQ(character.getGeometryAssetFirstLOD(3), nullptr);
    setRanges(character, { { 5, 6 }, { 3, 4 }, { 3, 9 } });
    const Array<GeometryAssetV4>& assets = *character.getGeometryAssets(3);
    EXPECT_EQ(character.getGeometryAssetFirstLOD(3), &assets[1]);
    setRanges(character, { { -1, 6 }, { -2, 4 } });
    EXPECT_EQ(character.getGeometryAssetFirstLOD(3), &assets[3]) << "the scan ends at 0 or less";
}

TEST_F(Character, geometryIsCountedPerTagAndInAll)
{
    MaravoCharacterV24 character;
    setRanges(character, { { 0, 1 }, { 1, 2 } });
    character._geometryAssetsPerTags[-4].push_back(rangeOf(0, 1));
    EXPECT_EQ(character.getGeometryAssetsCount(), 3u);
    EXPECT_EQ(character.getGeometryAssetsCount(3), 2u);
    EXPECT_EQ(character.getGeometryAssetsCount(4), 0u);
    EXPECT_EQ(character.getGeometryAssets(4), nullptr);
    MrvString file = "former";
    character._geometryAssetsPerTags[-4][0]._filename = "a.mvg";
    character.getFirstAvailableAbsoluteGeometryFile(file, "/r");
    EXPECT_STREQ(file.c_str(), "/r/a.mvg");
    character._geometryAssetsPerTags[-5];
    character.getFirstAvailableAbsoluteGeometryFile(file, "/other");
    EXPECT_STREQ(file.c_str(), "/r/a.mvg") << "the lowest tag is empty";
}

TEST_F(Character, meshesAreFoundAcrossNamespaces)
{
    MaravoCharacterV24 character;
    for (const char* name : { "a:hat", "body", "x:body", "b:hat" })
        character._meshAssets.addOne()._name = name;
    const std::pair<const char*, int> cases[] = {
        { "body", 1 },  { "x:body", 2 }, { "ns:body", 1 }, { "hat", 0 },
        { "b:hat", 3 }, { "at", -1 },    { "c:hat", -1 },  { "ns:a:hat", 0 },
    };
    for (const auto& [name, index] : cases)
        EXPECT_EQ(character.findMeshAssetIdx(name), index) << name;
}

TEST_F(Character, shadersAreFoundByCategory)
{
    MaravoCharacterV24 character;
    character._shaderAssets.resize(3);
    character._shaderAssets[1]._category = "surface";
    character._shaderAssets[2]._category = "surface";
    ShadingGroupV1 group;
    for (const int index : { -1, 7, 0, 2, 1 })
        group._shaderAssets.push_back(index);
    EXPECT_EQ(character.findShaderAsset(group, "Surface"), 2);
    EXPECT_EQ(character.findShaderAsset(group, ""), 0);
    EXPECT_EQ(character.findShaderAsset(group, "volume"), -1);
}

// Type 1 inherits from 0, 2 from 1; 3 and 4 from each other; 5 from beyond the end.
TEST_F(Character, weightsAreInherited)
{
    Array<RenderingTypeV4> types(6);
    const int parents[] = { -1, 0, 1, 4, 3, 9 };
    for (size_t i = 0; i < types.size(); ++i)
        types[i]._parentRenderingType = parents[i];
    const auto add = [&types](size_t type, int index, WeightOverrideType::Value kind) {
        WeightOverrideV1& added = types[type]._weightOverrides.addOne();
        added._assetIndex = index;
        added._type = kind;
    };
    add(0, 5, WeightOverrideType::GROUP);
    add(1, 5, WeightOverrideType::SHADER_ATTRIBUTE);
    add(2, 6, WeightOverrideType::GROUP);
    add(2, 6, WeightOverrideType::GROUP);
    const struct
    {
        int type, index, holder;
    } cases[] = { { 2, 6, 2 },  { 2, 5, 0 },  { 1, 6, -1 }, { 3, 5, -1 },
                  { 5, 5, -1 }, { 6, 5, -1 }, { -1, 5, -1 } };
    for (const auto& row : cases)
    {
        const WeightOverrideV1* found = &types[0]._weightOverrides[0];
        EXPECT_EQ(MaravoCharacterV24::findWeightOverride(found, types, row.type, row.index,
                                                         WeightOverrideType::GROUP),
                  row.holder)
            << row.type << ' ' << row.index;
        const auto* first =
            row.holder >= 0 ? &types[static_cast<size_t>(row.holder)]._weightOverrides[0] : nullptr;
        EXPECT_EQ(found, first);
    }
}

struct FurCase
{
    const char* text;
    std::vector<int> meshes;
    std::vector<bool> enabled;
};

TEST_F(Character, furNamesItsMeshes)
{
    const FurCase cases[] = {
        { "furFile=f;meshNames= arm,leg\n;enabledMeshes=1,0", { 0, 1 }, { true, false } },
        { "furFile=f;meshNames=arm,nose,leg;enabledMeshes=0,1,1", { 0, 1 }, { false, true } },
        { "furFile=f;meshNames=arm,leg;enabledMeshes=1", { 0 }, { true } },
        { "furFile=f", {}, {} },
        { "meshNames=arm;enabledMeshes=1", {}, {} },
    };
    MaravoCharacterV24 character;
    character._meshAssets.addOne()._name = "arm";
    character._meshAssets.addOne()._name = "leg";
    for (const FurCase& row : cases)
    {
        MeshAssetV8 fur;
        fur._furAsset._furInformation = row.text;
        PODArray<int> meshes(1, 8);
        PODArray<bool> enabled(1, true);
        character.getFurMeshes(fur, meshes, enabled);
        EXPECT_EQ(toVector(meshes), row.meshes) << row.text;
        EXPECT_EQ(std::vector<bool>(enabled.begin(), enabled.end()), row.enabled) << row.text;
    }
}

TEST_F(Character, mainShaderAttributesReachEveryGroupOnce)
{
    MaravoCharacterV24 character;
    for (const int index : { 4, 2, 4 })
        character._mainShaderAttributes.push_back(index);
    character._shadingGroups.resize(2);
    character._shadingGroups[1]._shaderAttributes.push_back(2);
    character.expandMainShaderAttributes();
    const auto attributesOf = [&](size_t group) {
        const Array<int>& attributes = character._shadingGroups[group]._shaderAttributes;
        return std::vector<int>(attributes.begin(), attributes.end());
    };
    EXPECT_EQ(attributesOf(0), (std::vector<int>{ 4, 2 }));
    EXPECT_EQ(attributesOf(1), (std::vector<int>{ 2, 4 }));
}

TEST_F(Character, aNamespaceIsPutBeforeShadingNames)
{
    MaravoCharacterV24 character;
    character._shadingGroups.resize(1);
    character._shaderAssets.addOne()._name = "x";
    character.setShadingNamespace("");
    EXPECT_STREQ(character._shaderAssets[0]._name.c_str(), "x");
    character.setShadingNamespace("a");
    EXPECT_STREQ(character._shaderAssets[0]._name.c_str(), "a:x");
    EXPECT_STREQ(character._shadingGroups[0]._name.c_str(), "a:shadingGroup");
}

TEST_F(Character, theFolderStandsInForADotInFrontOfAPath)
{
    MaravoCharacterV24 character;
    const std::pair<const char*, const char*> cases[] = {
        { "./a.mvg", "/f/g/a.mvg" },
        { "../a.mvg", "/f/g./a.mvg" },
        { "a.mvg", "a.mvg" },
        { "/a\\b.mvg", "/a/b.mvg" },
        { "", "" },
    };
    for (const auto& row : cases)
    {
        character._geometryAssetsPerTags[2].addOne()._filename = row.first;
        character._deepDeformerAssets.addOne()._deepFilename = row.first;
        character._meshAssets.addOne()._clothAsset._filename = row.first;
    }
    MeshAssetV8& fur = character._meshAssets.addOne();
    fur._furAsset._furInformation = "meshNames=m;furFile=./f.mvf";
    character.updateRelativePaths("/f/g/c.mvcf");
    for (size_t i = 0; i < character._deepDeformerAssets.size(); ++i)
    {
        EXPECT_STREQ(character._geometryAssetsPerTags[2][i]._filename.c_str(), cases[i].second);
        EXPECT_STREQ(character._deepDeformerAssets[i]._deepFilename.c_str(), cases[i].second);
        EXPECT_STREQ(character._meshAssets[i]._clothAsset._filename.c_str(), cases[i].second);
    }
    EXPECT_STREQ(character._meshAssets.back()._furAsset._furInformation.c_str(),
                 "furFile=/f/g/f.mvf;meshNames=m");
}

// A trunk of two bones on a root, and a leaf; the pelvis is the second bone.
class SkeletonOfCharacter : public CoreTest
{
protected:
    SkeletonOfCharacter()
    {
        HierarchicalSkeletonDescriptionV1 skeleton("skeleton");
        test::fillSkeleton(skeleton, "root - 0 0 1\n"
                                     "pelvis root 0 0 1\n"
                                     "left pelvis 0 3 4\n"
                                     "right pelvis 0 -3 4\n"
                                     "tip left 0 0 0\n");
        _character._converterMapping.duplicateHierarchicalSkeletonDescription(skeleton);
        _character._converterMapping.setPelvis("pelvis");
    }

    MaravoCharacterV24 _character;
};

TEST_F(SkeletonOfCharacter, givesThePerceptionBox)
{
    _character.autoComputePerceptionShape();
    EXPECT_TRUE(_character._perceptionShapeExtents == Vector3(0.0f, 6.0f, 5.0f));
    EXPECT_TRUE(_character._perceptionShapeOffset == Vector3(0.0f, 0.0f, 2.5f));
    _character._converterMapping.finish();
    _character.autoComputePerceptionShape();
    EXPECT_TRUE(_character._perceptionShapeExtents == Vector3(1.0f, 1.0f, 1.0f));
    EXPECT_TRUE(_character._perceptionShapeOffset == Vector3());
}

TEST_F(SkeletonOfCharacter, givesTheDisplayOfTheListedBones)
{
    _character.autoComputeSkeletonDisplay(PODArray<int>());
    ASSERT_EQ(_character._skeletonDisplay.size(), 5u);
    EXPECT_EQ(_character._skeletonDisplay[1]._shape, RagdollRigidBodyShape::CYLINDER);
    _character._skeletonDisplay[0]._scale = _character._skeletonDisplay[1]._scale = Vector3(9.0f);
    PODArray<int> bones;
    for (const int bone : { 4, 2, 1, 0, -1, 12 })
        bones.push_back(bone);
    _character.autoComputeSkeletonDisplay(bones);
    const Array<BoneDisplayConfigurationV0>& display = _character._skeletonDisplay;
    const bool enabled[] = { false, true, false, true, false };
    for (size_t i = 0; i < display.size(); ++i)
        EXPECT_EQ(display[i]._enabled, enabled[i]) << i;
    EXPECT_TRUE(display[0]._scale == Vector3(9.0f)) << "above the pelvis nothing else changes";
    EXPECT_EQ(display[0]._shape, RagdollRigidBodyShape::CYLINDER);
    EXPECT_TRUE(display[1]._scale == Vector3(1.0f));
    EXPECT_TRUE(display[1]._halfExtents == Vector3(1.0f, 1.0f, 2.5f)) << "children 5 away on average";
    EXPECT_EQ(display[2]._shape, RagdollRigidBodyShape::BOX);
    EXPECT_EQ(display[3]._shape, RagdollRigidBodyShape::CYLINDER) << "not listed";
}

TEST_F(Character, levelsAreReadFromAList)
{
    const std::pair<const char*, uint32_t> cases[] = {
        { "lod1;lod3", 10 },           { "LOD1;Lod1", 4 },     { ";lod9;;", 512 },
        { "lod2;unknown", 4 },         { "none", 0xFFFFFFFF }, { "lod1;all", 0xFFFFFFFF },
        { "lod1;*;lod2", 0xFFFFFFFF }, { "word", 0xFFFFFFFF }, { "", 0xFFFFFFFF },
        { "lod10; lod1", 0xFFFFFFFF },
    };
    for (const auto& [text, flags] : cases)
        EXPECT_EQ(getLODLevelFlagsFromSemiColumnSeparatedString(text), flags) << text;
}

TEST_F(Character, levelsHaveNames)
{
    const std::pair<uint32_t, const char*> cases[] = {
        { 0, "All" }, { 1, "Lod0" }, { 512, "Lod9" }, { 3, "All" }, { 1024, "All" }
    };
    MrvString name;
    for (const auto& [level, text] : cases)
    {
        getStringFromLODLevel(static_cast<LODLevelFlags::Value>(level), name);
        EXPECT_STREQ(name.c_str(), text);
    }
}

TEST_F(Character, versionsHaveClassesAndNames)
{
    for (const int version : { -1, 25 })
        EXPECT_EQ(createCharacter(version), nullptr);
    MaravoCharacterInterface* current = createCharacter(24);
    ASSERT_NE(dynamic_cast<MaravoCharacterV24*>(current), nullptr);
    MaravoCharacterInterface* converted = nullptr;
    convertFrom(current, converted, 24);
    EXPECT_EQ(converted, current);
    delete converted;
    const std::pair<int, const char*> names[] = { { -1, "" },      { 2, "" },       { 3, "4.0.2" },
                                                  { 21, "9.0.0" }, { 23, "9.0.0" }, { 24, "9.1" },
                                                  { 25, "" } };
    for (const auto& [version, name] : names)
        EXPECT_STREQ(MaravoCharacterV24::getCharacterVersionName(version).c_str(), name) << version;
}

} // namespace
} // namespace mrv
