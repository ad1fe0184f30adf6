// tests/animation/mrvCharacterVersionsTest.cpp
// Every version of the character, from both forms of its files up to the current one.
#include "mrvCore/animation/mrvCharacterVersions.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/animation/mrvCharacterVersionValues.h"
#include "tests/support/mrvCharacterDescription.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvItemPaths.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <sstream>

namespace mrv {
namespace {

using Load = LoadCharacterFileErrorCode;
using AnyCharacter = std::unique_ptr<MaravoCharacterInterface>;

DataItem pack(const MaravoCharacterInterface& character)
{
    DataItem root("maravoObject");
    XMLStream().pack(root, character);
    return root;
}

const DataItem& objectIn(const DataItem& root)
{
    return root.getChild(0u);
}

bool isOf(const VersionValue& row, int version)
{
    return row.first <= version && version <= row.last;
}

/// A packed character of that version with all values of the table.
DataItem makeItem(int version)
{
    DataItem root("maravoObject");
    root.addAttribute("Version", version);
    DataItem& object = root.addChild();
    object.setName("maravoObject");
    for (const VersionValue& row : versionValues)
        if (isOf(row, version) && row.in != nullptr)
            test::setItem(object, row.in, row.value);
    return root;
}

AnyCharacter makeCharacter(int version)
{
    AnyCharacter character(createCharacter(version));
    EXPECT_TRUE(XMLStream().unpack(makeItem(version), *character));
    return character;
}

std::string textOf(DataItem root)
{
    std::ostringstream text;
    XMLDataFileParser().writeToBuffer(text, root);
    return text.str();
}

std::string xmlForm(const MaravoCharacterInterface& character, int version)
{
    DataItem root("maravoObject");
    root.addAttribute("Version", version);
    XMLStream().pack(root, character);
    return textOf(root);
}

std::string binaryForm(const MaravoCharacterInterface& character, int version)
{
    BinaryStream stream;
    stream.pack(character);
    std::string bytes = "\x11\x6C";
    bytes.append(reinterpret_cast<const char*>(&version), sizeof(version));
    return bytes + stream.getStream().str();
}

std::string formOf(const MaravoCharacterInterface& character, int version, const std::string& extension)
{
    return extension == "mvcf" ? xmlForm(character, version) : binaryForm(character, version);
}

/// Normalized axes and orientations are near what they should be.
bool isSameValue(const std::string& actual, const std::string& expected)
{
    char* actualEnd = nullptr;
    char* expectedEnd = nullptr;
    const double a = std::strtod(actual.c_str(), &actualEnd);
    const double b = std::strtod(expected.c_str(), &expectedEnd);
    const bool areNumbers = !expected.empty() && *actualEnd == '\0' && *expectedEnd == '\0';
    return areNumbers ? std::abs(a - b) < 1e-5 : actual == expected;
}

/// Fails for each value that did not go where the table sends it.
void expectValues(const MaravoCharacterInterface& character, int version)
{
    const DataItem root = pack(character);
    for (const VersionValue& row : versionValues)
    {
        const std::string out = row.out != nullptr ? row.out : row.in;
        if (!isOf(row, version) || out.empty())
            continue;
        const std::string actual = test::getItem(objectIn(root), out);
        const std::string expected = row.result != nullptr ? row.result : row.value;
        EXPECT_TRUE(isSameValue(actual, expected)) << out << " is " << actual << ", not " << expected;
    }
}

using CharacterVersions = CoreTest;

TEST_F(CharacterVersions, areMadeByNumber)
{
    for (int version = 0; version <= MRV_MVC_VERSION; ++version)
        EXPECT_EQ("mrv::MaravoCharacterV" + std::to_string(version),
                  AnyCharacter(createCharacter(version))->getRTTI().getTypeName());
    EXPECT_EQ(createCharacter(-1), nullptr);
    EXPECT_EQ(createCharacter(MRV_MVC_VERSION + 1), nullptr);
}

TEST_F(CharacterVersions, haveNamesOfTheProduct)
{
    const std::pair<int, const char*> names[] = {
        { -1, "" },       { 0, "" },       { 2, "" },       { 3, "4.0.2" }, { 7, "5.0.4_develop" },
        { 8, "5.1.1.2" }, { 21, "9.0.0" }, { 23, "9.0.0" }, { 24, "9.1" },  { 25, "" },
    };
    for (const auto& [version, name] : names)
        EXPECT_STREQ(MaravoCharacterV24::getCharacterVersionName(version).c_str(), name) << version;
}

TEST_F(CharacterVersions, endAtTheCurrentOneAlsoWhereThereIsNothingInThem)
{
    for (int version = 0; version < MRV_MVC_VERSION; ++version)
    {
        MaravoCharacterInterface* converted = nullptr;
        convertFrom(createCharacter(version), converted, version);
        const AnyCharacter owner(converted);
        const MaravoCharacterV24* character = dynamic_cast<MaravoCharacterV24*>(converted);
        ASSERT_NE(character, nullptr) << version;
        EXPECT_STREQ(character->_name.c_str(), version < 5 ? "" : "Character") << version;
        EXPECT_EQ(character->_perceptionShapeExtents, Vector3(1.0f, 1.0f, 1.0f)) << version;
    }
    MaravoCharacterV24 current;
    MaravoCharacterInterface* same = nullptr;
    convertFrom(&current, same, MRV_MVC_VERSION);
    EXPECT_EQ(same, &current);
}

TEST_F(CharacterVersions, thatAreNotWhatTheNumberSaysAreFatal)
{
    MaravoCharacterV24 current;
    MaravoCharacterInterface* result = nullptr;
    EXPECT_DEATH(convertFrom(&current, result, 12), "oldCharacter != NULL");
    EXPECT_DEATH(convertFrom(nullptr, result, 12), "oldCharacter != NULL");
    EXPECT_DEATH(convertFrom(&current, result, 25), "version == MRV_MVC_VERSION");
    EXPECT_DEATH(convertFrom(&current, result, -1), "version == MRV_MVC_VERSION");
    EXPECT_DEATH(convertFrom(nullptr, result, 24), "dynamic_cast<MaravoCharacter\\*>\\(newChar\\) != NULL");
}

class EachCharacterVersion : public CoreTest, public testing::WithParamInterface<int>
{
protected:
    void expectFile(const MrvString& fileName)
    {
        SCOPED_TRACE(fileName.c_str());
        MaravoCharacterV24 character;
        ASSERT_EQ(character.loadCharacterFile(fileName, false), Load::SUCCESS);
        EXPECT_EQ(character._fileVersion, GetParam());
        expectValues(character, GetParam());
    }

    TemporaryFolder _folder;
};

TEST_P(EachCharacterVersion, comesUpFromBothForms)
{
    const AnyCharacter character = makeCharacter(GetParam());
    for (const std::string extension : { "mvc", "mvcf" })
        expectFile(_folder.write(("c." + extension).c_str(), formOf(*character, GetParam(), extension)));
}

void replaceAll(std::string& text, const std::string& part, const std::string& other)
{
    for (size_t place = text.find(part); place != std::string::npos; place = text.find(part, place))
        text.replace(place, part.size(), other);
}

/// Elements of one class have one row for each value.
std::string normalize(std::string path)
{
    replaceAll(path, ".children[0]", "");
    for (char digit = '0'; digit <= '9'; ++digit)
        replaceAll(path, std::string("[") + digit + "]", "");
    replaceAll(path, "limbBones", "spineBones");
    replaceAll(path, "effectorBones", "spineBones");
    return path;
}

/// Classes that never changed have one row; ids and empty lists have none.
bool isOfUnchangedClass(const std::string& path)
{
    for (const char* part : { "skeletonOverrides.", "blindDataOverrides.", "physicsOverrides.",
                              "skeletonDisplay.", "#", "rootBone.children", "renderingTypes.children" })
        if (path.find(part) != std::string::npos)
            return true;
    return false;
}

// A value that the table forgot would be lost unnoticed.
TEST_P(EachCharacterVersion, hasEachOfItsValuesInTheTable)
{
    std::set<std::string> told;
    for (const VersionValue& row : versionValues)
        if (isOf(row, GetParam()) && row.in != nullptr)
            told.insert(normalize(row.in));
    const DataItem root = pack(*makeCharacter(GetParam()));
    for (const std::string& path : test::getItemPaths(objectIn(root)))
    {
        const std::string value = normalize(path);
        const auto found = told.lower_bound(value);
        EXPECT_TRUE(isOfUnchangedClass(value) || (found != told.end() && found->find(value) == 0)) << path;
    }
}

// Files that were written once. For a new version they are written where they are missing, by a run with
// MRV_WRITE_VERSION_FILES set; they are never written anew.
TEST_P(EachCharacterVersion, comesUpFromItsStoredFiles)
{
    for (const std::string extension : { "mvc", "mvcf" })
    {
        const std::string fileName = std::string(MRV_TEST_DATA) + "/versions/character_v" +
                                     std::to_string(GetParam()) + "." + extension;
        if (std::getenv("MRV_WRITE_VERSION_FILES") != nullptr && !std::filesystem::exists(fileName))
            std::ofstream(fileName, std::ios::binary)
                << formOf(*makeCharacter(GetParam()), GetParam(), extension);
        expectFile(fileName.c_str());
    }
}

INSTANTIATE_TEST_SUITE_P(Versions, EachCharacterVersion, testing::Range(0, MRV_MVC_VERSION),
                         [](const auto& row) { return std::to_string(row.param); });

/// What a damaged file can lack, tell twice or tie into a ring.
const struct
{
    const char* path;
    const char* value;
    int lastVersion;
    Load::Value result;
} treeDamages[] = {
    { "assetManager#", "0", 4, Load::SUCCESS },
    { "assetManager.assetGroups[0].assets[1]#", "0", 4, Load::SUCCESS },
    { "assetManager.assetGroups[0].assets[1]#", "21", 4, Load::SUCCESS },
    { "assetManager.geometryGroup#", "0", 4, Load::SUCCESS },
    { "characterUserData#", "0", 4, Load::SUCCESS },
    { "converterMapping#", "0", 4, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription#", "0", 4, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription.rootBone#", "0", 0, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription.rootBone.father#", "12", 0, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription.rootBone.father#", "11", 0, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription.bones[1]#", "0", 0, Load::INVALID_SKELETON_DESCRIPTION },
    { "converterMapping.skeletonDescription.bones[2]#", "99", 0, Load::SUCCESS },
};

TEST_F(CharacterVersions, ofPointersSurviveWhatTheyLack)
{
    const TemporaryFolder folder;
    for (const auto& [path, value, lastVersion, result] : treeDamages)
    {
        for (int version = 0; version <= lastVersion; ++version)
        {
            DataItem root = makeItem(version);
            test::setItem(root.touchChild(0u), path, value);
            MaravoCharacterV24 character;
            EXPECT_EQ(character.loadCharacterFile(folder.write("c.mvcf", textOf(root)), false), result)
                << version << ' ' << path << ' ' << value;
        }
    }
}

/// Steps from a filled character, once from one that is used up and once from one that stays.
template <class Old, class New>
void expectCopy(int version, void (New::*take)(Old&), void (New::*copy)(const Old&))
{
    SCOPED_TRACE(version);
    const AnyCharacter kept = makeCharacter(version);
    const AnyCharacter usedUp = makeCharacter(version);
    const std::string before = xmlForm(*kept, version);
    New copied, taken;
    (copied.*copy)(static_cast<const Old&>(*kept));
    (taken.*take)(static_cast<Old&>(*usedUp));
    EXPECT_EQ(xmlForm(*kept, version), before);
    EXPECT_EQ(xmlForm(copied, version), xmlForm(taken, version));
}

TEST_F(CharacterVersions, mayAlsoBeCopied)
{
    expectCopy<MaravoCharacterV5, MaravoCharacterV6>(5, &MaravoCharacterV6::createFromV5,
                                                     &MaravoCharacterV6::createFromV5);
    expectCopy<MaravoCharacterV7, MaravoCharacterV8>(7, &MaravoCharacterV8::createFromV7,
                                                     &MaravoCharacterV8::createFromV7);
    expectCopy<MaravoCharacterV20, MaravoCharacterV21>(20, &MaravoCharacterV21::createFromV20,
                                                       &MaravoCharacterV21::createFromV20);
}

TEST_F(CharacterVersions, keepTheDisplayOfTheirOwn)
{
    MaravoCharacterInterface* converted = nullptr;
    convertFrom(makeCharacter(MRV_MVC_VERSION - 1).release(), converted, MRV_MVC_VERSION - 1);
    const AnyCharacter owner(converted);
    const MaravoCharacterV24& character = static_cast<const MaravoCharacterV24&>(*converted);
    EXPECT_EQ(character.getConverterMapping().getSkeletonDisplay(), &character._skeletonDisplay);
}

/// All values of an item by their paths.
void flatten(const DataItem& item, const std::string& path, std::map<std::string, std::string>& values)
{
    for (unsigned int i = 0; i < item.getAttributesCount(); ++i)
        values[path + ':' + item.getAttribute(i).first] = item.getAttribute(i).second;
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        flatten(item.getChild(i), path + '.' + item.getChild(i).getName() + std::to_string(i), values);
}

/// What a version does not hold, or holds in another way, up to the one before `since`.
const struct
{
    const char* part;
    int since;
} newParts[] = {
    { ":pointerID", MRV_MVC_VERSION }, // counts the objects of a file
    { "shadingGroups", 1 },            // are called as their shaders
    { "allAssetGroups", 5 },           // with the weights of the mean of a group
    { "mainAssetGroups", 5 },
    { "weightOverrides", 5 },
    { "parentRenderingType", 12 },
    { "LODMinDistance", 12 },
    { "LODMaxDistance", 12 },
    { "spineMirrorSources", 12 },
    { "previewName", 20 },
    { "perceptionShape", 20 },
};

bool isHeld(const std::string& path, int version)
{
    return std::none_of(std::begin(newParts), std::end(newParts), [&](const auto& part) {
        return version < part.since && path.find(part.part) != std::string::npos;
    });
}

TEST_F(CharacterVersions, ofOneCharacterAgree)
{
    const auto load = [](int version, const char* extension) {
        MaravoCharacterV24 character;
        const std::string name = MRV_TEST_DATA "/characters/biped_v" + std::to_string(version) + extension;
        EXPECT_EQ(character.loadCharacterFile(name.c_str(), false), Load::SUCCESS) << name;
        std::map<std::string, std::string> values;
        flatten(objectIn(pack(character)), "", values);
        return values;
    };
    for (const char* extension : { ".mvc", ".mvcf" })
    {
        const auto newest = load(MRV_MVC_VERSION, extension);
        for (const int version : { 0, 4, 5, 12, 20, 23 })
        {
            const auto old = load(version, extension);
            for (const auto& [path, value] : newest)
            {
                if (!isHeld(path, version))
                    continue;
                EXPECT_EQ(old.count(path) != 0 ? old.at(path) : "nothing", value)
                    << version << extension << ' ' << path;
            }
            for (const auto& [path, value] : old)
                EXPECT_TRUE(newest.count(path) != 0 || !isHeld(path, version))
                    << version << extension << ' ' << path << ' ' << value;
        }
    }
}

class OldSamples : public CoreTest, public testing::WithParamInterface<const char*>
{};

TEST_P(OldSamples, comeOutWithAllOfTheirContent)
{
    const std::string name = std::string(MRV_TEST_DATA) + "/characters/" + GetParam();
    const CharacterDescription description(name + ".json");
    for (const char* extension : { ".mvc", ".mvcf" })
    {
        SCOPED_TRACE(extension);
        MaravoCharacterV24 character;
        ASSERT_EQ(character.loadCharacterFile((name + extension).c_str(), false), Load::SUCCESS);
        EXPECT_EQ(character._fileVersion, description.versionRead);
        expectDescribed(character, description);
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, OldSamples,
                         testing::Values("biped_v0", "biped_v4", "biped_v5", "biped_v12", "biped_v20",
                                         "biped_v23"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace mrv
