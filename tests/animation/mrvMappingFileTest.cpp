// tests/animation/mrvMappingFileTest.cpp
// Mapping files: both forms, every version, and what is no mapping file.
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/animation/mrvCharacterVersionValues.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCharacterDescription.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvItemPaths.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace mrv {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Load = LoadSkeletonMappingErrorCode;
using Save = SaveSkeletonMappingErrorCode;

std::string dataFile(const std::string& name)
{
    return std::string(MRV_TEST_DATA) + "/mappings/" + name;
}

std::string contentOf(const std::string& fileName)
{
    std::ifstream stream(fileName, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

bool isXML(const std::string& fileName)
{
    return fileName.size() > 4 && fileName.substr(fileName.size() - 4) == ".xml";
}

Load::Value load(Mapping& mapping, const std::string& fileName)
{
    return isXML(fileName) ? mapping.loadMappingXML(fileName.c_str()) : mapping.loadMapping(fileName.c_str());
}

Save::Value save(const Mapping& mapping, const std::string& fileName)
{
    return isXML(fileName) ? mapping.saveMappingXML(fileName.c_str()) : mapping.saveMapping(fileName.c_str());
}

using MappingFiles = CoreTest;

TEST_F(MappingFiles, comeOutWithAllOfTheirContent)
{
    for (const std::string name : { "biped_mapping_v0", "biped_mapping_v8" })
    {
        const CharacterDescription description(dataFile(name + ".json"));
        for (const char* extension : { ".mvsm", ".mvsm.xml" })
        {
            SCOPED_TRACE(name + extension);
            Mapping mapping;
            ASSERT_EQ(load(mapping, dataFile(name + extension)), Load::SUCCESS);
            const bool isOrderLeft = isXML(extension) && description.versionRead == 8;
            EXPECT_EQ(mapping.getSkeletonDescription()->getSortedBones().empty(), isOrderLeft);
            if (isOrderLeft)
                mapping.touchSkeletonDescription()->initSortedBones();
            expectDescribed(mapping, description);
        }
    }
}

TEST_F(MappingFiles, areSavedAsTheyWere)
{
    const TemporaryFolder folder;
    for (const std::string extension : { ".mvsm", ".mvsm.xml" })
    {
        const std::string name = dataFile("biped_mapping_v8" + extension);
        const std::string saved = folder.path(("saved" + extension).c_str()).c_str();
        Mapping mapping;
        ASSERT_EQ(load(mapping, name), Load::SUCCESS);
        ASSERT_EQ(save(mapping, saved), Save::SUCCESS);
        EXPECT_TRUE(contentOf(saved) == contentOf(name)) << extension;
        EXPECT_EQ(save(mapping, folder.path(("no/such" + extension).c_str()).c_str()),
                  Save::FILE_CREATION_FAILED);
    }
    EXPECT_EQ(folder.countEntries(), 2u);
}

TEST_F(MappingFiles, mayStandOneBehindTheOther)
{
    const TemporaryFolder folder;
    const std::string former = contentOf(dataFile("biped_mapping_v0.mvsm"));
    const MrvString name = folder.write("several", former + contentOf(dataFile("biped_mapping_v8.mvsm")));
    Mapping mapping;
    std::ofstream(name.c_str(), std::ios::binary | std::ios::app) << "rest";
    std::ifstream stream(name.c_str(), std::ios::binary);
    EXPECT_EQ(mapping.loadMapping(stream), Load::SUCCESS);
    EXPECT_EQ(stream.tellg(), std::streamoff(former.size()));
    EXPECT_EQ(mapping.loadMapping(stream), Load::SUCCESS);
    std::string rest;
    stream >> rest;
    EXPECT_EQ(rest, "rest");

    std::ofstream copy(folder.path("copy").c_str(), std::ios::binary);
    mapping.saveMapping(copy);
    copy.close();
    EXPECT_TRUE(folder.read("copy") == contentOf(dataFile("biped_mapping_v8.mvsm")));
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    EXPECT_NE(text.find(from), std::string::npos);
    return text.replace(text.find(from), from.size(), to);
}

std::string withVersion(std::string binary, int version)
{
    return binary.replace(0, 4, reinterpret_cast<const char*>(&version), 4);
}

TEST_F(MappingFiles, thatAreNoneAreRefusedAndEmptyTheMapping)
{
    const std::string binary = contentOf(dataFile("biped_mapping_v8.mvsm"));
    const std::string xml = contentOf(dataFile("biped_mapping_v8.mvsm.xml"));
    const std::string noSkeleton = replaced(xml, "<skeletonDescription ", "<other ");
    const struct
    {
        const char* what;
        const char* name;
        std::string content;
        Load::Value result;
    } cases[] = {
        { "empty", "m.mvsm", "", Load::INCORRECT_VERSION },
        { "three bytes", "m.mvsm", binary.substr(0, 3), Load::INCORRECT_VERSION },
        { "next version", "m.mvsm", withVersion(binary, 9), Load::INCORRECT_VERSION },
        { "negative version", "m.mvsm", withVersion(binary, -1), Load::INCORRECT_VERSION },
        { "no object", "m.mvsm", binary.substr(0, 4), Load::INVALID_FILE },
        { "no XML", "m.xml", "", Load::INCORRECT_VERSION },
        { "no child", "m.xml", "<mvsmContainer Version=\"8\"/>", Load::INCORRECT_VERSION },
        { "next version in XML", "m.xml", replaced(xml, "\"8\"", "\"9\""), Load::INCORRECT_VERSION },
        { "negative version in XML", "m.xml", replaced(xml, "\"8\"", "\"-1\""), Load::INVALID_FILE },
        { "another class", "m.xml", replaced(xml, "MappingV8", "BoneV1"), Load::INVALID_FILE },
        { "no version counts as 0", "m.xml", replaced(xml, " Version=\"8\"", ""), Load::INVALID_FILE },
        { "no skeleton", "m.xml", replaced(noSkeleton, "</skeletonDescription>", "</other>"),
          Load::INVALID_FILE },
        { "equal indices", "m.xml",
          replaced(xml, "<specificBoneIndex value=\"3\"", "<specificBoneIndex value=\"4\""),
          Load::INVALID_SKELETON_DESCRIPTION },
    };
    const TemporaryFolder folder;
    for (const auto& row : cases)
    {
        Mapping mapping;
        ASSERT_EQ(load(mapping, dataFile("biped_mapping_v8.mvsm")), Load::SUCCESS);
        EXPECT_EQ(load(mapping, folder.write(row.name, row.content).c_str()), row.result) << row.what;
        EXPECT_EQ(mapping.getSkeletonDescription() != nullptr,
                  row.result == Load::INVALID_SKELETON_DESCRIPTION)
            << row.what;
        EXPECT_EQ(load(mapping, std::string(folder.path("none").c_str()) + row.name), Load::FILE_NOT_FOUND);
    }
}

TEST_F(MappingFiles, getScaleModesForBonesWithoutThem)
{
    Mapping mapping;
    test::fillBody(mapping);
    mapping.setBoneSnsScaleMode(1, Axis::X, SnsScaleMode::NO_SCALE);
    DataItem root("mvsmContainer");
    XMLStream stream;
    EXPECT_EQ(mapping.saveMappingXMLStream(stream, root), Save::SUCCESS);
    EXPECT_EQ(mapping.loadMappingXML(stream, root), Load::SUCCESS);
    EXPECT_EQ(mapping.getBoneSnsScaleMode(1, Axis::X), SnsScaleMode::NO_SCALE);
}

/// A version of the mapping: the version of the character whose rows in the table are its own, apart from
/// those below, and how to write it.
struct MappingVersion
{
    int version;
    int characterVersion;
    std::string (*write)(const DataItem& root, bool isXML);
};

template <class Old, int version>
std::string writeMapping(const DataItem& item, bool isXML)
{
    Old old;
    EXPECT_TRUE(XMLStream().unpack(item, old));
    if (isXML)
    {
        DataItem root("mvsmContainer");
        root.addAttribute("Version", version);
        XMLStream().pack(root, old);
        std::ostringstream text;
        XMLDataFileParser().writeToBuffer(text, root);
        return text.str();
    }
    return std::string(reinterpret_cast<const char*>(&(const int&)version), 4) + test::packed(old);
}

const MappingVersion mappingVersions[] = {
    { 0, 0, writeMapping<GenericSpecificConverterMappingV0, 0> },
    { 1, 0, writeMapping<GenericSpecificConverterMappingV1, 1> },
    { 2, 0, writeMapping<GenericSpecificConverterMappingV2, 2> },
    { 3, 0, writeMapping<GenericSpecificConverterMappingV3, 3> },
    { 4, 0, writeMapping<GenericSpecificConverterMappingV4, 4> },
    { 5, 1, writeMapping<GenericSpecificConverterMappingV5, 5> },
    { 6, 5, writeMapping<GenericSpecificConverterMappingV6, 6> },
    { 7, 8, writeMapping<GenericSpecificConverterMappingV7, 7> },
};

/// Where the step from a file of its own differs from the ladder of the characters. The place is read in
/// these versions; what is not in them is not written either.
constexpr VersionValue ownValues[] = {
    { 0, 0, "channelNames[0]", "Channel", "limbBoneNames[0]" },
    { 0, 0, nullptr, nullptr, "spineBoneNames[0]", "(none)" },
    { 0, 0, nullptr, nullptr, "effectorBoneNames[0]", "Effector" },
    { 0, 1, nullptr, nullptr, "blindDataInfo[0].name", "(none)" },
    { 0, 1, nullptr, nullptr, "blindDataInfo[0].groupName", "(none)" },
    { 0, 1, nullptr, nullptr, "blindDataInfo[0].type", "(none)" },
    { 0, 1, nullptr, nullptr, "blindDataInfo[0].floatCount", "(none)" },
    { 0, 2, nullptr, nullptr, "squashStretchWeightsArray[0]", "1" },
    { 0, 2, nullptr, nullptr, "cacheAllowed[0]", "(none)" },
    { 0, 3, nullptr, nullptr, "bonesSnsScaleModes[0]", "0" },
    { 0, 6, nullptr, nullptr, "spineMirrorSources[0]", "0" },
};

/// A row, and where its value is in the current version; for a value that is dropped, where it is in the
/// file.
struct PlacedValue
{
    std::string place;
    VersionValue row;
};

PlacedValue placed(VersionValue row, size_t prefixLength)
{
    row.in = row.in != nullptr ? row.in + prefixLength : nullptr;
    row.out = row.out != nullptr && *row.out != '\0' ? row.out + prefixLength : row.out;
    return { row.out != nullptr && *row.out != '\0' ? row.out : row.in, row };
}

/// The rows of one version, with paths from the mapping on, in the order in which a file has them.
std::vector<PlacedValue> valuesOf(const MappingVersion& version)
{
    const std::string prefix = "converterMapping.";
    std::vector<PlacedValue> values;
    for (const VersionValue& row : versionValues)
        if (row.first <= version.characterVersion && version.characterVersion <= row.last &&
            std::string(row.in != nullptr ? row.in : row.out).find(prefix) == 0)
            values.push_back(placed(row, prefix.size()));
    for (const VersionValue& row : ownValues)
    {
        if (version.version < row.first || row.last < version.version)
            continue;
        const PlacedValue own = placed(row, 0);
        values.erase(std::remove_if(values.begin(), values.end(),
                                    [&own](const PlacedValue& value) { return value.place == own.place; }),
                     values.end());
        values.push_back(own);
    }
    return values;
}

class EachMappingVersion : public CoreTest, public testing::WithParamInterface<MappingVersion>
{
protected:
    std::string makeFile(bool asXML) const
    {
        DataItem root("mvsmContainer");
        DataItem& object = root.addChild();
        for (const auto& [place, row] : valuesOf(GetParam()))
            if (row.in != nullptr)
                test::setItem(object, row.in, row.value);
        return GetParam().write(root, asXML);
    }

    void expectFile(const std::string& fileName) const
    {
        SCOPED_TRACE(fileName);
        Mapping mapping;
        ASSERT_EQ(load(mapping, fileName), Load::SUCCESS);
        EXPECT_EQ(mapping.getBoneConfigurationsCount(), GetParam().version == 0 ? 2u : 1u);
        DataItem root("root");
        XMLStream().pack(root, mapping);
        for (const auto& [place, row] : valuesOf(GetParam()))
            if (row.out == nullptr || *row.out != '\0')
                expectValue(test::getItem(root.getChild(0u), place), row, place);
    }

private:
    void expectValue(const std::string& actual, const VersionValue& row, const std::string& place) const
    {
        // Of one configuration for two bones the oldest files make new ones.
        if (GetParam().version == 0 && place.find("boneConfigurations") == 0)
            return;
        const std::string expected = row.result != nullptr ? row.result : row.value;
        char* end = nullptr;
        const double number = std::strtod(expected.c_str(), &end);
        if (!expected.empty() && *end == '\0')
            EXPECT_NEAR(std::atof(actual.c_str()), number, 1e-5) << place;
        else
            EXPECT_EQ(actual, expected) << place;
    }
};

// Files that were written once: see the stored files of the characters.
TEST_P(EachMappingVersion, comesUpFromNewAndFromStoredFiles)
{
    const TemporaryFolder folder;
    for (const std::string extension : { ".mvsm", ".mvsm.xml" })
    {
        const std::string name = "mapping_v" + std::to_string(GetParam().version) + extension;
        expectFile(folder.write(name.c_str(), makeFile(isXML(extension))).c_str());
        const std::string stored = std::string(MRV_TEST_DATA) + "/versions/" + name;
        if (std::getenv("MRV_WRITE_VERSION_FILES") != nullptr && !std::filesystem::exists(stored))
            std::ofstream(stored, std::ios::binary) << makeFile(isXML(extension));
        expectFile(stored);
    }
}

INSTANTIATE_TEST_SUITE_P(Versions, EachMappingVersion, testing::ValuesIn(mappingVersions),
                         [](const auto& row) { return std::to_string(row.param.version); });

TEST_F(MappingFiles, ofTheFirstVersionKeepTheirBodiesIfThereIsOneForEachBone)
{
    Mapping mapping;
    ASSERT_EQ(load(mapping, dataFile("biped_mapping_v0.mvsm")), Load::SUCCESS);
    EXPECT_TRUE(mapping.getBoneConfigurations().front()._inUse);
    EXPECT_EQ(mapping.getBoneConfigurations().back()._halfExtents, Vector3(1.0f));
}

TEST_F(MappingFiles, goBackToTheVersionWithBlendShapes)
{
    Mapping mapping;
    test::fillBody(mapping);
    mapping.touchSkeletonDescription()->initSortedBones();
    Array<BlindDataV1>& blindData = mapping.touchBlindDataInfo();
    BlindDataV1::addSpecificAnimationBlindDataInfo(blindData, "dance");
    blindData.resize(blindData.size() + 1);
    blindData.back()._name = "smile";
    blindData.back()._floatCount = 1;
    GenericSpecificConverterMappingV5 old;
    mapping.exportToV5(old);
    ASSERT_EQ(old._blendShapeGroups.size(), 1u);
    EXPECT_NE(old._skeletonDescription, mapping.getSkeletonDescription());

    Mapping back;
    back.createFromV5(old);
    const BlindDataV1 smile = blindData.back();
    blindData.clear();
    blindData.push_back(smile); // no other record has a place there
    mapping.updateBlindDataFloatCount();
    EXPECT_EQ(test::packed(back), test::packed(mapping));
}

} // namespace
} // namespace mrv
