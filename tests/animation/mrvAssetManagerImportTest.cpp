// tests/animation/mrvAssetManagerImportTest.cpp
#include "mrvCore/animation/_compatibility/mrvAssetManagerImport.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "tests/support/mrvCoreFixture.h"

#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace mrv {
namespace {

using Strings = std::vector<std::string>;

/// The arrays of version 6.
struct Arrays
{
    MrvString name = "former";
    PODArray<int> mainAssetGroups;
    Array<AssetGroupV0> allAssetGroups;
    Array<MeshAssetV1> meshAssets;
    Array<GeometryAssetV1> geometryAssets;
    Array<ShadingGroupV1> shadingGroups;
    Array<ShaderAttributeV0> shaderAttributes;
    Array<ShaderAssetV1> shaderAssets;
    Array<RenderingTypeV3> renderingTypes;

    void import(const AssetManagerV3* manager)
    {
        importAssetManager(manager, { name, mainAssetGroups, allAssetGroups, meshAssets, geometryAssets,
                                      shadingGroups, shaderAttributes, shaderAssets, renderingTypes });
    }
};

/// Builds a manager from texts. A mesh is one object per text, which is its name up to a "#"; "-" is null.
class AssetManagerImport : public CoreTest
{
protected:
    AssetManagerImport()
    {
        _logger.registerCallback(
            [](const char* text, void* target) { *static_cast<std::string*>(target) += text; }, &_messages);
    }

    MeshAssetV0* mesh(const std::string& text)
    {
        if (text == "-")
            return nullptr;
        std::unique_ptr<MeshAssetV0>& made = _meshes[text];
        if (made == nullptr)
        {
            made = std::make_unique<MeshAssetV0>();
            made->_name = text.substr(0, text.find('#'));
        }
        return made.get();
    }
    void addGroup(const std::string& name, const Strings& meshes)
    {
        if (name == "-")
            return _manager._assetGroups.push_back(nullptr);
        _manager._assetGroups.push_back(new AssetsGroupV0());
        _manager._assetGroups.back()->_name = name;
        for (const std::string& text : meshes)
            _manager._assetGroups.back()->_assets.push_back(mesh(text));
    }
    RenderingTypeV1* addRenderingType(const char* name)
    {
        _manager._renderingTypes.push_back(new RenderingTypeV1());
        _manager._renderingTypes.back()->_name = name;
        return _manager._renderingTypes.back();
    }
    void import()
    {
        _arrays.import(&_manager);
        // The meshes are the test's: a mesh that stands in no group has no other owner.
        for (AssetsGroupV0* group : _manager._assetGroups)
            if (group != nullptr)
                group->_assets.clear();
    }

    AssetManagerV3 _manager;
    Arrays _arrays;
    std::string _messages;

private:
    std::map<std::string, std::unique_ptr<MeshAssetV0>> _meshes;
    CallbackLogger _logger;
};

template <class Indices>
std::string describe(const Indices& indices)
{
    std::string text;
    for (const auto& index : indices)
        text += " " + std::to_string(index);
    return text;
}
template <>
std::string describe(const Array<AssetUnitV0>& units)
{
    std::string text;
    for (const AssetUnitV0& unit : units)
        text += " " + std::to_string(unit._meshAssetIdx) + (unit._assetGroupIdx == -1 ? "" : "!");
    return text;
}
template <class Assets>
std::string namesOf(const Assets& assets)
{
    std::string text;
    for (size_t i = 0; i < assets.size(); ++i)
        text += std::string(i == 0 ? "" : ",") + assets[i]._name.c_str();
    return text;
}

struct NamesCase
{
    const char* name;
    std::vector<std::pair<std::string, Strings>> groups;
    const char* meshes; ///< their names, in order
    const char* units;  ///< for each group its name and the meshes of its children
};

const NamesCase namesCases[] = {
    { "eachMeshOnce", { { "A", { "body", "hat" } }, { "B", { "hat" } } }, "body,hat", "A 0 1;B 1;" },
    { "equalNamesBecomeOne", { { "A", { "body", "body#2", "body" } } }, "body", "A 0 0 0;" },
    { "aNamespaceMayBeMissing", { { "A", { "x:body" } }, { "B", { "body" } } }, "x:body", "A 0;B 0;" },
    { "aNamespaceMayBeMore", { { "A", { "body", "x:body", "y:x:body" } } }, "body", "A 0 0 0;" },
    { "otherNamespacesAreOtherMeshes", { { "A", { "x:body", "y:body" } } }, "x:body,y:body", "A 0 1;" },
    { "theFirstThatDiffersInANamespace",
      { { "A", { "a:x:body", "b:x:body", "x:body", "b:x:body#2" } } },
      "a:x:body,b:x:body",
      "A 0 1 0 1;" },
    { "aNameIsNoPartOfALongerOne",
      { { "A", { "body", "antibody", "x:antibody" } } },
      "body,antibody",
      "A 0 1 1;" },
    { "namesMayBeEmpty", { { "A", { "", "x:", "y" } } }, ",y", "A 0 0 1;" },
    { "noMeshIsNamedAsItsGroup",
      { { "body", { "body", "hat" } }, { "B", { "body" } }, { "body", { "body#2" } } },
      "bodyAsset,hat,body",
      "body 0 1;B 2;body 0;" },
    { "aGroupWithoutAName", { { "", { "Asset", "hat" } } }, "AssetAsset,hat", "Asset 0 1;" },
    { "emptyEntries",
      { { "A", { "-", "body", "-" } }, { "[empty]", { "-" } } },
      "[empty],body,[empty]Asset",
      "A 0 1 0;[empty] 2;" },
    { "aGroupThatIsNull", { { "-", {} }, { "A", { "body" } } }, "body", "Asset;A 0;" },
};

class ImportedNames : public AssetManagerImport, public testing::WithParamInterface<NamesCase>
{};

TEST_P(ImportedNames, leadToOneRecordEach)
{
    for (const auto& group : GetParam().groups)
        addGroup(group.first, group.second);
    import();
    std::string units;
    for (const AssetGroupV0& group : _arrays.allAssetGroups)
    {
        units += group._name.c_str() + describe(group._children) + ";";
        EXPECT_TRUE(group._weights == PODArray<float>(group._children.size(), 1.0f));
    }
    EXPECT_EQ(namesOf(_arrays.meshAssets), GetParam().meshes);
    EXPECT_EQ(units, GetParam().units);
    for (size_t i = 0; i < _arrays.allAssetGroups.size(); ++i)
        EXPECT_EQ(_arrays.mainAssetGroups[i], static_cast<int>(i));
}

INSTANTIATE_TEST_SUITE_P(Table, ImportedNames, testing::ValuesIn(namesCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AssetManagerImport, findsMeshesAsACharacterDoes)
{
    std::mt19937 random(7);
    Strings names(400);
    MaravoCharacterV24 character;
    std::string expected;
    for (size_t i = 0; i < names.size(); ++i)
    {
        for (size_t length = random() % 6; names[i].size() < length;)
            names[i] += "ab::"[random() % 4];
        int index = character.findMeshAssetIdx(names[i]);
        if (index == -1)
        {
            index = character._meshAssets.sizeInt();
            character._meshAssets.addOne()._name = names[i];
        }
        expected += " " + std::to_string(index);
    }
    addGroup("group", names);
    import();
    EXPECT_EQ(describe(_arrays.allAssetGroups[0]._children), expected);
    EXPECT_EQ(namesOf(_arrays.meshAssets), namesOf(character._meshAssets));
}

ShaderGroupV0 makeShaders(const char* name, const Strings& shaders, const Strings& attributes,
                          const char* category)
{
    ShaderGroupV0 group;
    group._name = name;
    for (const std::string& shader : shaders)
    {
        group._shaderAssets.addOne()._name = shader;
        group._shaderAssets.back()._category = category;
    }
    for (const std::string& attribute : attributes)
    {
        group._shaderAttributes.addOne()._name = attribute;
        group._shaderAttributes.back()._ppAttr = category;
    }
    return group;
}

TEST_F(AssetManagerImport, shadingOfEqualNamesBecomesOne)
{
    auto& shaders = _manager._meshesShaderGroups;
    shaders["b"].push_back(makeShaders("metal", { "chrome", "rust" }, { "shine" }, "later"));
    shaders["b"].push_back(makeShaders("skin", {}, {}, "later"));
    shaders["a"].push_back(makeShaders("skin", { "flesh", "flesh" }, { "tint" }, "first"));
    shaders["a"].push_back(makeShaders("metal", { "steel", "chrome" }, { "shine", "tint" }, "first"));
    mesh("wearer")->_meshNames.push_back("b");
    mesh("wearer")->_meshNames.push_back("unknown");
    mesh("wearer")->_meshNames.push_back("a");
    addGroup("A", { "wearer", "bare" });
    import();
    EXPECT_EQ(namesOf(_arrays.shadingGroups), "skin,metal");
    EXPECT_EQ(namesOf(_arrays.shaderAssets), "flesh,steel,chrome,rust");
    EXPECT_EQ(namesOf(_arrays.shaderAttributes), "tint,shine");
    EXPECT_STREQ(_arrays.shaderAssets[2]._category.c_str(), "first");
    EXPECT_STREQ(_arrays.shaderAttributes[1]._ppAttr.c_str(), "first");
    EXPECT_EQ(describe(_arrays.shadingGroups[0]._shaderAssets), " 0");
    EXPECT_EQ(describe(_arrays.shadingGroups[1]._shaderAssets), " 1 2 3");
    EXPECT_EQ(describe(_arrays.shadingGroups[1]._shaderAttributes), " 1 0");
    EXPECT_EQ(describe(_arrays.meshAssets[0]._shadingGroups), " 1 0");
    EXPECT_EQ(describe(_arrays.meshAssets[1]._shadingGroups), "");
}

TEST_F(AssetManagerImport, excludedMeshesAreThoseEnteredFirst)
{
    addGroup("A", { "hat", "A", "-" });
    addGroup("B", { "A", "hat#2", "late" });
    for (const char* excluded : { "A", "loner", "-", "hat#2", "late" })
        mesh("hat")->_excludedMeshAssets.push_back(mesh(excluded));
    mesh("hat#2")->_excludedMeshAssets.push_back(mesh("late"));
    mesh("A")->_excludedMeshAssets.push_back(mesh("A"));
    import();
    ASSERT_EQ(namesOf(_arrays.meshAssets), "hat,AAsset,[empty],A,late");
    EXPECT_EQ(describe(_arrays.meshAssets[0]._excludedAssets), " 1 0 4");
    EXPECT_EQ(describe(_arrays.meshAssets[1]._excludedAssets), " 1");
    EXPECT_EQ(describe(_arrays.meshAssets[3]._excludedAssets), " 1") << "the same object under another name";
}

std::string describe(const RenderingTypeV3& type)
{
    std::ostringstream text;
    text << type._name.c_str() << " below " << type._parentRenderingType << ":";
    for (const WeightOverrideV0& weightOverride : type._weightOverrides)
    {
        text << " " << weightOverride._groupIdx << "=";
        for (const float weight : weightOverride._groupWeights)
            text << weight << ",";
    }
    return text.str();
}

TEST_F(AssetManagerImport, aRenderingTypeExcludesWhatItDoesNotMention)
{
    addGroup("A", { "x", "y" });
    addGroup("B", { "z", "-" });
    addGroup("-", {});
    addGroup("", { "x" });
    addGroup("B", { "w" });
    RenderingTypeV1* rich = addRenderingType("rich");
    RenderingTypeV1* poor = addRenderingType("poor");
    RenderingTypeV1* lone = addRenderingType("lone");
    _manager._renderingTypes.push_back(nullptr);
    RenderingTypeV1 outsider;
    addRenderingType("lost")->_parent = &outsider;
    rich->_parent = poor;
    poor->_parent = rich;
    lone->_parent = lone;
    rich->_assetWeights["ghost"].push_back(1.0f);
    rich->_assetWeights["B"].push_back(0.5f);
    rich->_assetWeights[""].assign(3, 2.0f);
    poor->_assetWeights["A"];
    import();
    ASSERT_EQ(_arrays.renderingTypes.size(), 5u);
    EXPECT_EQ(describe(_arrays.renderingTypes[0]), "rich below 1: 3=2,2,2, 1=0.5, 0=0,0,");
    EXPECT_EQ(describe(_arrays.renderingTypes[1]), "poor below 0: 0= 1=0,0, 3=0, 4=0,");
    EXPECT_EQ(describe(_arrays.renderingTypes[2]), "lone below 2: 0=0,0, 1=0,0, 3=0, 4=0,");
    EXPECT_EQ(describe(_arrays.renderingTypes[3]), " below -1:");
    EXPECT_EQ(_arrays.renderingTypes[4]._parentRenderingType, -1);

    std::string expected;
    for (const auto& [type, group] : std::vector<std::pair<std::string, std::string>>{
             { "rich", "ghost" }, { "poor", "" }, { "lone", "" }, { "lost", "" } })
        expected += "Maravo [WARNING] - Error when importing the Rendering Type '" + type +
                    "' from Orvel 4 character file. The group '" + group + "' was not found!\n";
    EXPECT_EQ(_messages, expected);
}

TEST_F(AssetManagerImport, theRestIsCopied)
{
    _manager._name = "walker";
    _manager._geometryGroup = new GeometryGroupV0();
    _manager._geometryGroup->_assets.push_back(nullptr);
    _manager._geometryGroup->_assets.push_back(new GeometryAssetV0());
    _manager._geometryGroup->_assets[1]->_filename = "walker.qmx";
    _manager._geometryGroup->_assets[1]->_halfExtents = Vector3(1.0f, 2.0f, 3.0f);
    import();
    EXPECT_STREQ(_arrays.name.c_str(), "walker");
    ASSERT_EQ(_arrays.geometryAssets.size(), 2u);
    EXPECT_STREQ(_arrays.geometryAssets[0]._filename.c_str(), "");
    EXPECT_STREQ(_arrays.geometryAssets[1]._filename.c_str(), "walker.qmx");
    EXPECT_EQ(_arrays.geometryAssets[1]._halfExtents, Vector3(1.0f, 2.0f, 3.0f));
}

TEST_F(AssetManagerImport, noManagerIsAnEmptyOne)
{
    _arrays.import(nullptr);
    EXPECT_STREQ(_arrays.name.c_str(), "");
    EXPECT_TRUE(_arrays.allAssetGroups.empty() && _arrays.renderingTypes.empty() && _messages.empty());
}

} // namespace
} // namespace mrv
