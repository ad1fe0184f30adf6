// tests/animation/mrvCharacterFileTest.cpp
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "tests/support/mrvCharacterDescription.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <csignal>
#include <sstream>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mrv {
namespace {

using Load = LoadCharacterFileErrorCode;
using Save = SaveCharacterFileErrorCode;

std::string dataFile(const std::string& name)
{
    return std::string(MRV_TEST_DATA) + "/characters/" + name;
}

std::string contentOf(const MrvString& fileName)
{
    std::ifstream stream(fileName.c_str(), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

class StoredCharacters : public CoreTest, public testing::WithParamInterface<const char*>
{
protected:
    MrvString fileName() const { return dataFile(GetParam()); }
    std::string extension() const { return fileName().getStringAfterlast('.').c_str(); }
    MaravoCharacterV24 _character;
    TemporaryFolder _folder;
};

TEST_P(StoredCharacters, comeOutWithAllOfTheirContent)
{
    const CharacterDescription description(
        dataFile(fileName().getStringAfterlast('/').getStringBeforeFirst('.').c_str()) + ".json");
    ASSERT_EQ(description.result, "SUCCESS");
    ASSERT_EQ(_character.loadCharacterFile(fileName(), false), Load::SUCCESS);
    EXPECT_EQ(_character._fileVersion, description.versionRead);
    EXPECT_STREQ(_character._runtimeFilePath.c_str(), fileName().c_str());
    EXPECT_EQ(_character._converterMapping.getSkeletonDisplay(), &_character._skeletonDisplay);
    expectDescribed(_character, description);
}

TEST_P(StoredCharacters, areSavedAsTheyWere)
{
    ASSERT_EQ(_character.loadCharacterFile(fileName(), false), Load::SUCCESS);
    const MrvString saved = _folder.path("saved.") + extension();
    ASSERT_EQ(_character.saveCharacterFile(saved), Save::SUCCESS);
    EXPECT_STREQ(_character._runtimeFilePath.c_str(), saved.c_str());
    EXPECT_TRUE(contentOf(saved) == contentOf(fileName()));
}

INSTANTIATE_TEST_SUITE_P(Samples, StoredCharacters,
                         testing::Values("biped_v24.mvc", "biped_v24.mvcf", "quadruped_v24.mvc",
                                         "quadruped_v24.mvcf"),
                         [](const auto& row) {
                             std::string name = row.param;
                             name[name.find('.')] = '_';
                             return name;
                         });

class CharacterFile : public CoreTest
{
protected:
    CharacterFile()
    {
        EXPECT_EQ(_character.loadCharacterFile(dataFile("biped_v24.mvc"), false), Load::SUCCESS);
        _character._name = "former";
    }
    std::string sample(const char* name) const { return contentOf(dataFile(name)); }
    Load::Value load(const char* name, const std::string& content)
    {
        return _character.loadCharacterFile(_folder.write(name, content), false);
    }

    MaravoCharacterV24 _character;
    TemporaryFolder _folder;
};

std::string withVersion(std::string binary, int version)
{
    binary[2] = static_cast<char>(version);
    for (size_t i = 3; i < 6; ++i)
        binary[i] = static_cast<char>(version < 0 ? -1 : 0);
    return binary;
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    EXPECT_NE(text.find(from), std::string::npos);
    return text.replace(text.find(from), from.size(), to);
}

TEST_F(CharacterFile, refusesWhatIsNoCharacterAndKeepsTheFormerContent)
{
    const std::string binary = sample("biped_v24.mvc");
    const std::string xml = sample("biped_v24.mvcf");
    const struct
    {
        const char* what;
        const char* name;
        std::string content;
        Load::Value result;
        int version;
    } cases[] = {
        { "empty", "c.mvc", "", Load::INVALID_FILE, -1 },
        { "no magic", "c.mvc", "\x6c\x11" + binary.substr(2), Load::INVALID_FILE, -1 },
        { "a cut version", "c.mvc", binary.substr(0, 4), Load::INVALID_FILE, -1 },
        { "no object", "c.mvc", binary.substr(0, 6), Load::INVALID_FILE, 24 },
        { "no skeleton yet", "c.mvc", binary.substr(0, 200), Load::INVALID_FILE, 24 },
        { "next version", "c.mvc", withVersion(binary, 25), Load::INCORRECT_VERSION, 25 },
        { "negative version", "c.mvc", withVersion(binary, -2), Load::INCORRECT_VERSION, -2 },
        { "next version in XML", "c.mvcf", replaced(xml, "\"24\"", "\"25\""), Load::INCORRECT_VERSION, 25 },
        { "capitals are binary", "c.MVCF", xml, Load::INVALID_FILE, -1 },
    };
    for (const auto& row : cases)
    {
        EXPECT_EQ(load(row.name, row.content), row.result) << row.what;
        EXPECT_EQ(_character._fileVersion, row.version) << row.what;
        EXPECT_STREQ(_character._name.c_str(), "former") << row.what;
    }
    _character._fileVersion = 7;
    EXPECT_EQ(_character.loadCharacterFile(_folder.path("nothing.mvc"), false), Load::FILE_NOT_FOUND);
    EXPECT_EQ(_character._fileVersion, 7);
}

TEST_F(CharacterFile, readsWhatIsBehindTheObject)
{
    EXPECT_EQ(load("c.mvc", sample("biped_v24.mvc") + "more"), Load::SUCCESS);
}

TEST_F(CharacterFile, takesTheVersionBesideTheClassInXML)
{
    const std::string xml = sample("biped_v24.mvcf");
    EXPECT_EQ(load("c.mvcf", replaced(xml, "\"24\"", "\" 24x\"")), Load::SUCCESS);
    EXPECT_EQ(load("c.mvcf", replaced(xml, "maravoObject Version", "other Version") + "x"),
              load("c.mvcf", "no XML"))
        << "unreadable";
    EXPECT_EQ(_character._fileVersion, 0);
    EXPECT_EQ(load("c.mvcf", replaced(xml, "\"mrv::MaravoCharacterV24\"", "\"AssetUnitV3\"")),
              Load::INVALID_SKELETON_DESCRIPTION);
    EXPECT_STREQ(_character._name.c_str(), "Character") << "nothing arrived";
}

TEST_F(CharacterFile, tellsAnInvalidSkeleton)
{
    const std::string xml = sample("biped_v24.mvcf");
    EXPECT_EQ(load("c.mvcf", replaced(xml, "<skeletonDescription ", "<other ")),
              Load::INVALID_SKELETON_DESCRIPTION);
    EXPECT_STREQ(_character._name.c_str(), "Townsperson");
}

TEST_F(CharacterFile, expandsVariablesAndRelativePaths)
{
    _folder.write("c.mvc", sample("biped_v24.mvc"));
    setenv("MRV_TEST_FOLDER", _folder.path().c_str(), 1);
    EXPECT_EQ(_character.loadCharacterFile("%MRV_TEST_FOLDER%\\c.mvc", true), Load::SUCCESS);
    unsetenv("MRV_TEST_FOLDER");
    EXPECT_STREQ(_character._runtimeFilePath.c_str(), _folder.path("c.mvc").c_str());
    EXPECT_STREQ(_character.getGeometryAssets(0)->front()._filename.c_str(),
                 _folder.path("geometry/townsperson_near.mvg").c_str());
}

TEST_F(CharacterFile, leavesSpecificAnimationsOutOfTheFileOnly)
{
    const std::string former = (_character.saveCharacterFile(_folder.path("a.mvc")), _folder.read("a.mvc"));
    Array<BlindDataV1>& blindData = _character._converterMapping.touchBlindDataInfo();
    BlindDataV1::addSpecificAnimationBlindDataInfo(blindData, "dance");
    const Array<BlindDataV1> all = blindData;
    EXPECT_EQ(_character.saveCharacterFile(_folder.path("b.mvc")), Save::SUCCESS);
    EXPECT_TRUE(_folder.read("b.mvc") == former);
    EXPECT_TRUE(_character._converterMapping.getBlindDataInfo() == all);
    EXPECT_EQ(_character._converterMapping.getBlindDataTotalFloatCount(),
              _character._converterMapping.countExportedBlindData() + 8);
    EXPECT_EQ(_character.saveCharacterFileBinary(_folder.path("c.mvc")), Save::SUCCESS);
    EXPECT_GT(_folder.read("c.mvc").size(), former.size()) << "the direct form writes all there is";
}

TEST_F(CharacterFile, isWrittenInTheFormThatIsAskedFor)
{
    EXPECT_EQ(_character.saveCharacterFileXML(_folder.path("x.mvc")), Save::SUCCESS);
    EXPECT_EQ(_character.saveCharacterFileBinary(_folder.path("b.mvcf")), Save::SUCCESS);
    EXPECT_EQ(_character.saveCharacterFile(_folder.path("a.mvcf")), Save::SUCCESS);
    EXPECT_EQ(_character.saveCharacterFile(_folder.path("a.mvc")), Save::SUCCESS);
    EXPECT_TRUE(_folder.read("x.mvc") == _folder.read("a.mvcf"));
    EXPECT_TRUE(_folder.read("b.mvcf") == _folder.read("a.mvc"));
    EXPECT_STREQ(_character._runtimeFilePath.c_str(), _folder.path("a.mvc").c_str());
}

TEST_F(CharacterFile, copiesAllThatFilesHold)
{
    MaravoCharacterV24 copy;
    copy._fileVersion = 3;
    copy.loadCharacter(_character);
    EXPECT_EQ(copy._fileVersion, 3);
    EXPECT_TRUE(copy._runtimeFilePath.empty());
    EXPECT_EQ(copy.saveCharacterFile(_folder.path("copy.mvcf")), Save::SUCCESS);
    EXPECT_EQ(_character.saveCharacterFile(_folder.path("own.mvcf")), Save::SUCCESS);
    EXPECT_TRUE(_folder.read("copy.mvcf") == _folder.read("own.mvcf"));

    MaravoCharacterV24 taken;
    taken._fileVersion = 3;
    taken.takeCharacter(copy);
    EXPECT_EQ(taken._fileVersion, 3);
    EXPECT_TRUE(taken._runtimeFilePath.empty());
    EXPECT_EQ(taken.saveCharacterFile(_folder.path("taken.mvcf")), Save::SUCCESS);
    EXPECT_TRUE(_folder.read("taken.mvcf") == _folder.read("own.mvcf"));
    for (const MaravoCharacterV24* character : { &copy, &taken })
        EXPECT_EQ(character->getConverterMapping().getSkeletonDisplay(), &character->_skeletonDisplay);
}

TEST_F(CharacterFile, numbersTheBonesOfWhatItReads)
{
    for (HierarchicalBoneV1* bone : _character._converterMapping.touchSkeletonDescription()->touchBones())
        bone->setSpecificBoneIndex(0);
    for (const char* name : { "c.mvc", "c.mvcf" })
    {
        EXPECT_EQ(_character.saveCharacterFile(_folder.path(name)), Save::SUCCESS);
        MaravoCharacterV24 loaded;
        EXPECT_EQ(loaded.loadCharacterFile(_folder.path(name), false), Load::SUCCESS);
        EXPECT_EQ(
            loaded.getConverterMapping().getSkeletonDescription()->getBones()[2]->getSpecificBoneIndex(), 2);
    }
}

TEST_F(CharacterFile, isNotReadFromWhatIsNoRegularFile)
{
    ASSERT_EQ(mkdir(_folder.path("folder.mvc").c_str(), 0700), 0);
    ASSERT_EQ(mkfifo(_folder.path("pipe.mvc").c_str(), 0600), 0);
    for (const MrvString& name :
         { _folder.path("folder.mvc"), _folder.path("pipe.mvc"), MrvString("/dev/zero") })
        EXPECT_EQ(_character.loadCharacterFile(name, false), Load::INVALID_FILE) << name.c_str();
}

// A child process may write no more than 1000 bytes to a file.
TEST_F(CharacterFile, staysWholeOnAFullDisk)
{
    for (const char* name : { "c.mvc", "c.mvcf" })
    {
        _folder.write(name, "former");
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0)
        {
            const rlimit limit{ 1000, 1000 };
            std::signal(SIGXFSZ, SIG_IGN);
            const bool isRight =
                setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
                _character.saveCharacterFile(_folder.path(name)) == Save::FILE_CREATION_FAILED &&
                _character._runtimeFilePath != _folder.path(name);
            _exit(isRight ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << name;
        EXPECT_EQ(_folder.read(name), "former");
    }
    EXPECT_EQ(_folder.countEntries(), 2u) << "a temporary file was left";
    EXPECT_EQ(_character.saveCharacterFile(_folder.path("no/such/c.mvc")), Save::FILE_CREATION_FAILED);
}

} // namespace
} // namespace mrv
