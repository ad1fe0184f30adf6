// tests/assetManagement/mrvAssetsTest.cpp
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "tests/support/mrvCoreFixture.h"

#include <string>
#include <vector>

namespace mrv {
namespace {

AssetUnitV3 unitOf(int mesh, int group)
{
    AssetUnitV3 unit;
    unit._meshAssetIdx = mesh;
    unit._assetGroupIdx = group;
    return unit;
}
AssetUnitV3 mesh(int index)
{
    return unitOf(index, -1);
}
AssetUnitV3 group(int index)
{
    return unitOf(-1, index);
}

Array<AssetUnitV3> toArray(const std::vector<AssetUnitV3>& units)
{
    Array<AssetUnitV3> array;
    array.insert(array.end(), units.data(), units.data() + units.size());
    return array;
}

struct GroupsCase
{
    const char* name;
    std::vector<std::vector<AssetUnitV3>> groups; ///< asked is the first one
    std::vector<int> before, after;
};

const GroupsCase groupsCases[] = {
    { "anEmptyUnitAddsNothing", { { AssetUnitV3() } }, {}, {} },
    { "depthFirstInOrder",
      { { mesh(5), group(1), mesh(4) }, { group(2), mesh(6) }, { mesh(7) } },
      {},
      { 5, 7, 6, 4 } },
    { "eachMeshOnce", { { mesh(1), group(1) }, { mesh(1), mesh(2), mesh(1) } }, { 2 }, { 2, 1 } },
    { "aGroupHidesTheMeshBesideIt", { { unitOf(3, 1) }, { mesh(1) } }, {}, { 1 } },
    { "aGroupReachedTwice", { { group(1), group(2) }, { group(2), mesh(1) }, { mesh(2) } }, {}, { 2, 1 } },
    { "noSuchGroup", { { group(1), group(-2), mesh(1) } }, {}, { 1 } },
    { "insideItself", { { mesh(1), group(0), mesh(2) } }, {}, { 1, 2 } },
    { "ring", { { group(1), mesh(1) }, { group(0), mesh(2) } }, {}, { 2, 1 } },
};

class AssetGroups : public CoreTest, public testing::WithParamInterface<GroupsCase>
{};

TEST_P(AssetGroups, listTheirMeshes)
{
    MaravoCharacterV24 character;
    for (const std::vector<AssetUnitV3>& children : GetParam().groups)
        character._allAssetGroups.addOne()._children = toArray(children);
    PODArray<int> meshes;
    for (const int known : GetParam().before)
        meshes.push_back(known);
    character._allAssetGroups[0].getAllMeshAssets(meshes, character);
    EXPECT_EQ(std::vector<int>(meshes.begin(), meshes.end()), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Table, AssetGroups, testing::ValuesIn(groupsCases),
                         [](const auto& row) { return std::string(row.param.name); });

using Assets = CoreTest;

// Each group names the next one twice: a walk that enters a group again would not end in a lifetime.
TEST_F(Assets, deepAndSharedGroupsTakeNeitherStackNorTime)
{
    constexpr int depth = 100000;
    MaravoCharacterV24 character;
    character._allAssetGroups.resize(depth);
    for (int i = 0; i + 1 < depth; ++i)
        for (int twice = 0; twice < 2; ++twice)
            character._allAssetGroups[static_cast<size_t>(i)]._children.push_back(group(i + 1));
    character._allAssetGroups.back()._children.push_back(mesh(9));
    PODArray<int> meshes;
    character._allAssetGroups[0].getAllMeshAssets(meshes, character);
    ASSERT_EQ(meshes.size(), 1u);
    EXPECT_EQ(meshes[0], 9);
}

TEST_F(Assets, erasingAChildLeavesTheWeights)
{
    AssetGroupV4 erased;
    for (int i = 0; i < 3; ++i)
        erased._children.push_back(mesh(i));
    erased._weights.assign(3, 1.0f);
    erased.eraseChild(3);
    EXPECT_EQ(erased._children.size(), 3u);
    erased.eraseChild(1);
    ASSERT_EQ(erased._children.size(), 2u);
    EXPECT_EQ(erased._children[1]._meshAssetIdx, 2);
    EXPECT_EQ(erased._weights.size(), 3u);
}

struct PathCase
{
    const char* file;
    const char* root;
    const char* absolute;
};

TEST_F(Assets, onlyRelativeFilesGetTheRoot)
{
    const PathCase cases[] = {
        { "a/b.mvg", "/r", "/r/a/b.mvg" },
        { "./b.mvg", "/r", "/r/./b.mvg" },
        { "/a/b", "/r", "/a/b" },
        { "C:b", "/r", "C:b" },
        { "\\a\\b", "/r", "/r/\\a\\b" },
        { "ab", nullptr, "ab" },
        { "b", "/r", "" },
        { "", "/r", "" },
    };
    for (const PathCase& row : cases)
    {
        GeometryAssetV4 geometry;
        DeepDeformerAssetV0 deformer;
        geometry._filename = deformer._deepFilename = row.file;
        MrvString path = "former", deepPath = "former";
        geometry.getAbsoluteGeometryFile(path, row.root);
        deformer.getAbsoluteDeepFile(deepPath, row.root);
        EXPECT_STREQ(path.c_str(), row.absolute) << row.file;
        EXPECT_STREQ(deepPath.c_str(), row.absolute) << row.file;
    }
}

TEST_F(Assets, geometryIsToldByTheExtension)
{
    const auto typeOf = [](const char* name) {
        GeometryAssetV4 geometry;
        geometry._filename = name;
        return geometry.getGeometryFileType();
    };
    for (const char* name : { "body.MVG", "a/b.c.mvg" })
        EXPECT_EQ(typeOf(name), GeometryFileType::MVG) << name;
    for (const char* name : { "", "mvg", ".mvg", "a.mvg/b", "b.mvgx", "b.qmx" })
        EXPECT_EQ(typeOf(name), GeometryFileType::QMX) << name;
}

TEST_F(Assets, categoriesArePartsOfOneText)
{
    ShaderAssetV2 shader;
    EXPECT_TRUE(shader.hasCategory(""));
    EXPECT_FALSE(shader.hasCategory("a"));
    shader._category = "Surface Displacement";
    EXPECT_TRUE(shader.hasCategory("displaceMENT"));
    EXPECT_FALSE(shader.hasCategory("volume"));
}

TEST_F(Assets, boundsAreKeptParsed)
{
    ShaderAttributeV3 attribute;
    attribute.setMinValue("12.5");
    attribute.setMaxValue("(1,2,3)");
    EXPECT_STREQ(attribute.getMinValue().c_str(), "12.5");
    EXPECT_EQ(attribute.getMinIntValue(), 12);
    EXPECT_EQ(attribute.getMinFloatValue(), 12.5f);
    EXPECT_TRUE(attribute.getMinVectorValue() == Vector3());
    EXPECT_STREQ(attribute.getMaxValue().c_str(), "(1,2,3)");
    EXPECT_TRUE(attribute.getMaxVectorValue() == Vector3(1.0f, 2.0f, 3.0f));
}

TEST_F(Assets, childrenOfARenderingTypeAreDirectAndOthers)
{
    Array<RenderingTypeV4> types(5);
    const int parents[] = { -1, 1, 1, 2, 1 };
    for (size_t i = 0; i < types.size(); ++i)
        types[i]._parentRenderingType = parents[i];
    PODArray<int> children(1, 7);
    RenderingTypeV4::computeChildRenderingTypes(children, 1, types);
    EXPECT_EQ(std::vector<int>(children.begin(), children.end()), (std::vector<int>{ 2, 4 }));
    RenderingTypeV4::computeChildRenderingTypes(children, -1, types);
    EXPECT_EQ(std::vector<int>(children.begin(), children.end()), (std::vector<int>{ 0 }));
}

struct TagCase
{
    std::vector<short> tags;
    unsigned int levels;
    short tag;
    bool isIn;
};

TEST_F(Assets, meshesAreFilteredByLevelAndTag)
{
    const TagCase cases[] = {
        { { 2, 3 }, 4, 3, true },  { { 2, 3 }, 1, 3, false }, { { 2, 3 }, 4, 4, false },
        { { 2, 3 }, 4, 0, true },  { {}, 4, 9, true },        { { 2, 0 }, 4, 9, true },
        { { 2, 0 }, 0, 2, false }, { { 2 }, 6, -2, false },
    };
    for (const TagCase& row : cases)
    {
        MeshAssetV8 tagged;
        tagged._lodLevelFlags = 4;
        for (const short tag : row.tags)
            tagged._geometryTags.push_back(tag);
        EXPECT_EQ(mrvMeshAssetIsInGeoAsset(tagged, row.levels, row.tag), row.isIn) << row.levels << row.tag;
    }
}

} // namespace
} // namespace mrv
