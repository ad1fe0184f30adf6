// tests/assetManagement/batches/mrvCharacterBatchTest.cpp
#include "mrvCore/assetManagement/mrvAssetAssociations.h"
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "mrvCore/system/thread/mrvThread.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <stdlib.h>

namespace mrv {
namespace {

class CharacterBatchTest : public CoreTest
{
protected:
    CharacterBatchTest()
    {
        getMultiThreadProcessor()->updateThreadCount(getSupportedConcurrentThreadCount());
        _logger = std::make_unique<CallbackLogger>();
        _logger->registerCallback(
            [](const char* text, void* all) { *static_cast<std::string*>(all) += text; }, &_log);
        for (const char* name : { "biped", "quadruped" })
        {
            MaravoCharacterV24 character;
            EXPECT_EQ(character.loadCharacterFile(MrvString(MRV_TEST_DATA "/characters/") + name + "_v24.mvc",
                                                  false),
                      LoadCharacterFileErrorCode::SUCCESS);
            character._name = name;
            character._shadingGroups.resize(1);
            character._shadingGroups[0]._name = "main";
            character._mainShaderAttributes.push_back(3);
            character.saveCharacterFile(_folder.path((std::string(name) + ".mvc").c_str()));
        }
        _folder.write("bad.mvc", "This is no character.");
        _folder.write("future.mvc", std::string("\x11\x6C\x63\0\0\0", 6));
        _folder.write("bare.mvcf", "<maravoObject Version=\"24\"/>");
    }
    ~CharacterBatchTest() override
    {
        for (const MaravoCharacterV24* character : _characters)
            delete character;
        _logger.reset();
    }

    /// The path with {T} as the folder of the files.
    MrvString inFolder(std::string text) const
    {
        for (size_t place = text.find("{T}"); place != std::string::npos; place = text.find("{T}"))
            text.replace(place, 3, _folder.path("").c_str());
        return text;
    }

    /// The names of the characters with those of their first shading groups; "-" for null.
    std::string describe() const
    {
        std::ostringstream text;
        for (const MaravoCharacterV24* character : _characters)
        {
            text << (text.tellp() > 0 ? " " : "");
            if (character == nullptr)
                text << '-';
            else
                text << character->_name.c_str() << '/' << character->_shadingGroups[0]._name.c_str();
        }
        return text.str();
    }

    TemporaryFolder _folder;
    std::string _log;
    std::unique_ptr<CallbackLogger> _logger;
    PODArray<MaravoCharacterV24*> _characters;
};

TEST_F(CharacterBatchTest, slotsFollowTheList)
{
    struct Case
    {
        const char* name;
        const char* files;
        const char* namespaces;
        const char* slots;
        const char* log; ///< of each failed file, in the order of the list
    };
    const Case cases[] = {
        { "two", "{T}biped.mvc;{T}quadruped.mvc", "", "biped/main quadruped/main", "" },
        { "nothing", "", "", "", "" },
        { "separators alone", " ;\t;\r\n;", "", "", "" },
        { "empty in the middle", "{T}biped.mvc;;{T}quadruped.mvc", "a;b;c", "biped/a:main - quadruped/c:main",
          "" },
        { "ends are trimmed", "\t;{T}biped.mvc; \r\n", "", "biped/main", "" },
        { "blank at an inner separator", "{T}biped.mvc ;{T}biped.mvc", "", "- biped/main",
          "'{T}biped.mvc '. The file does not exist!" },
        { "fewer namespaces", "{T}biped.mvc;{T}biped.mvc", "a", "biped/a:main biped/main", "" },
        { "more namespaces", "{T}biped.mvc", "a;b;c", "biped/a:main", "" },
        { "goes on behind failures", "{T}none.mvc;{T}future.mvc;{T}bad.mvc;{T}bare.mvcf;{T}biped.mvc", "",
          "- - - - biped/main",
          "{T}none.mvc'. The file does not exist!|{T}future.mvc'. The file version is incorrect!|"
          "{T}bad.mvc'. The file is invalid!|{T}bare.mvcf'. The skeleton description is invalid!" },
        { "a folder", "{T}", "", "-", "'{T}'. The file is invalid!" },
    };
    for (const Case& c : cases)
        for (const bool multiThreaded : { false, true })
        {
            SCOPED_TRACE(c.name);
            _log.clear();
            loadCharacterFiles(_characters, inFolder(c.files), c.namespaces, false, multiThreaded, nullptr);
            EXPECT_EQ(describe(), c.slots);
            size_t failures = 0;
            std::istringstream log(inFolder(c.log).c_str());
            for (std::string message; std::getline(log, message, '|'); ++failures)
                EXPECT_NE(_log.find(message), std::string::npos) << message << "\n" << _log;
            EXPECT_EQ(_log.empty(), failures == 0) << _log;
            const bool isLastLoaded = _characters.any() && _characters.back() != nullptr;
            EXPECT_TRUE(!isLastLoaded || _characters.back()->_shadingGroups[0]._shaderAttributes.back() == 3);
        }
}

TEST_F(CharacterBatchTest, tenThousandEntriesKeepTheirPlaces)
{
    std::string files;
    for (int i = 0; i < 10000; ++i)
        files += i % 100 == 7 ? "{T}biped.mvc;" : i % 3 == 0 ? "{T}none.mvc;" : ";";
    for (const int threadCount : { 1, 2, 3 })
    {
        getMultiThreadProcessor()->updateThreadCount(threadCount);
        loadCharacterFiles(_characters, inFolder(files + "{T}biped.mvc"), false, true, nullptr);
        ASSERT_EQ(_characters.size(), 10001u);
        for (size_t i = 0; i < 10000; ++i)
            EXPECT_EQ(_characters[i] != nullptr, i % 100 == 7) << i;
    }
}

TEST_F(CharacterBatchTest, remapsWhatDoesNotExist)
{
    setenv("MRV_TEST_BATCH", _folder.path().c_str(), 1);
    struct Case
    {
        const char* file;
        std::vector<std::string> dirmaps;
        const char* result; ///< null for the file as it was
    };
    const Case cases[] = {
        { "{T}biped.mvc", { "{T}", "/nowhere/" }, "{T}biped.mvc" },
        { "/old/biped.mvc", { "/old/", "{T}" }, "{T}biped.mvc" },
        { "/old/biped.mvc", { "^/old/", "{T}" }, "{T}biped.mvc" },
        { "/old/biped.mvc", { "/old/" }, nullptr },
        { "/old/biped.mvc", { "/old/", "/nowhere/", "/old/" }, nullptr },
        { "/old/biped.mvc", { "/old/", "/nowhere/", "/old/", "{T}" }, "{T}biped.mvc" },
        { "/old/biped.mvc",
          { "/old/", "/new/", "/new/", "{T}" },
          nullptr }, // pairs do not build on each other
        { "/old/biped.mvc", { "/old/bi", "{T}quadru", "/old/", "{T}" }, "{T}quadruped.mvc" },
        { "%MRV_TEST_BATCH%/biped.mvc", {}, "{T}biped.mvc" },
        { "%MRV_TEST_BATCH%/none.mvc", { "%MRV", "{T}" }, nullptr },
        { "", {}, nullptr },
    };
    for (const Case& c : cases)
    {
        Array<MrvString> dirmaps;
        for (const std::string& entry : c.dirmaps)
            dirmaps.push_back(inFolder(entry));
        MrvString file = inFolder(c.file);
        const MrvString expected = c.result != nullptr ? inFolder(c.result) : file;
        EXPECT_EQ(findDirmappedFile(file, file, dirmaps), c.result != nullptr) << c.file;
        EXPECT_EQ(file, expected) << c.file;
        loadCharacterFiles(_characters, inFolder(c.file), false, false, &dirmaps);
        EXPECT_EQ(_characters.any() && _characters[0] != nullptr, c.result != nullptr) << c.file;
    }
    unsetenv("MRV_TEST_BATCH");
}

TEST_F(CharacterBatchTest, associationFilesComeInWhateverTheirClassIsCalled)
{
    const std::string record = "<element index=\"0\" pointerID=\"2\"><entityId value=\"-7\"/>"
                               "<characterIdx value=\"1\"/><renderingTypeIdx value=\"4\"/></element>";
    const auto file = [&](const std::string& attributes) {
        return "<XMLSerialization><maravoObject" + attributes + "><rngSeed value=\"4294967295\"/>" +
               "<entityRenderInfo>" + record + "</entityRenderInfo></maravoObject></XMLSerialization>";
    };
    struct Case
    {
        const char* name;
        std::string text;
        bool isRead;
        bool isLogged;
    };
    const Case cases[] = {
        { "own name", file(" pointerID=\"1\" typeName=\"AssetAssociationsV0\""), true, false },
        { "other name", file(" pointerID=\"1\" typeName=\"mrv::AssetAssociationsV7\""), true, false },
        { "empty", "", false, true },
        { "cut", file(" typeName=\"AssetAssociationsV0\"").substr(0, 150), false, true },
        { "no child", "<XMLSerialization/>", false, false },
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        _log.clear();
        AssetAssociationsV0 associations;
        associations._rngSeed = 5;
        EXPECT_TRUE(loadCAAFile(associations, _folder.write("population.caa", c.text)));
        EXPECT_EQ(associations._rngSeed, c.isRead ? 4294967295u : 5u);
        ASSERT_EQ(associations._entityRenderInfo.size(), c.isRead ? 1u : 0u);
        EXPECT_EQ(!_log.empty(), c.isLogged) << _log;
        if (!c.isRead)
            continue;
        const RenderInfoV0& info = associations._entityRenderInfo[0];
        EXPECT_EQ(info._entityId, -7);
        EXPECT_EQ(info._characterIdx, 1);
        EXPECT_EQ(info._renderingTypeIdx, 4);
        EXPECT_FALSE(loadCAAFile(associations, "/nowhere/population.caa"));
        EXPECT_NE(_log.find("Failed to open the asset association file '/nowhere/population.caa'"),
                  std::string::npos);
        EXPECT_EQ(associations._entityRenderInfo.size(), 1u);
        clearAssetAssociation(associations);
        EXPECT_EQ(associations._entityRenderInfo.capacity(), 0u);
        EXPECT_EQ(associations._rngSeed, 4294967295u);
    }
}

TEST_F(CharacterBatchTest, holdersGiveTheirMemoryBackAsTold)
{
    MeshAssetAssociation meshes;
    meshes._meshAssociations.resize(3);
    meshes.getMeshAssetAssociationForEntity(2).push_back(8);
    EXPECT_EQ(meshes._meshAssociations[2].size(), 1u);
    clearMeshAssetAssociations(meshes);
    EXPECT_EQ(meshes._meshAssociations.capacity(), 0u);

    ShaderNameReplacement names;
    names._replacedShaderNames.push_back("a");
    names._replacementShaderNames.push_back("b");
    names._replacementsPerEntityId[5].push_back(0);
    clearShaderNameReplacement(names);
    EXPECT_EQ(names._replacedShaderNames.capacity() + names._replacementShaderNames.capacity(), 0u);
    EXPECT_TRUE(names._replacementsPerEntityId.empty());

    ShaderAssetDataContainer data;
    data.intData.resize(4);
    data.stringData.resize(4);
    data.clear();
    EXPECT_TRUE(data.intData.empty() && data.stringData.empty());
    EXPECT_GE(data.intData.capacity(), 4u);
}

} // namespace
} // namespace mrv
