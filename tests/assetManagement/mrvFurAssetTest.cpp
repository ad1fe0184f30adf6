// tests/assetManagement/mrvFurAssetTest.cpp
#include "mrvCore/assetManagement/mrvFurAsset.h"

#include "mrvCore/assetManagement/mrvMeshAsset.h"

#include <gtest/gtest.h>

#include <string>

namespace mrv {
namespace {

struct FurTextCase
{
    const char* name;
    const char* text;
    const char* normalForm;
};

const FurTextCase furTextCases[] = {
    { "empty", "", "" },
    { "keysComeInTheirOrder", "meshNames=m;furFileContentDescription=d;furFile=f;enabledMeshes=1",
      "enabledMeshes=1;furFile=f;furFileContentDescription=d;meshNames=m" },
    { "whatIsNoPropertyGoes", "furFile=a;bad;color=red", "furFile=a" },
    { "aValueWithEqualsDropsItsEntry", "furFile=a=b;meshNames=m", "meshNames=m" },
    { "theLastOfARepeatedKeyStays", "furFile=a;;furFile=b;", "furFile=b" },
    { "anEmptyValueIsAValue", "furFile=", "furFile=" },
    { "keysAreExact", "furfile=a; furFile=b", "" },
};

class FurText : public testing::TestWithParam<FurTextCase>
{};

TEST_P(FurText, comesOutInNormalForm)
{
    FurInformationManipulator manipulator(GetParam().text);
    EXPECT_STREQ(manipulator.getModifiedFurInformation().c_str(), GetParam().normalForm);
    manipulator.setFurProperty("color", "red");
    EXPECT_STREQ(manipulator.getModifiedFurInformation().c_str(), GetParam().normalForm);
    manipulator.setFurProperty("furFile", "new");
    MrvString value = "untouched";
    EXPECT_FALSE(manipulator.getFurProperty("color", value));
    EXPECT_STREQ(value.c_str(), "untouched");
    EXPECT_NE(manipulator.getModifiedFurInformation().find("furFile=new"), MrvString::npos);
}

INSTANTIATE_TEST_SUITE_P(Table, FurText, testing::ValuesIn(furTextCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FurAsset, textsAddToEachOther)
{
    MrvMap<MrvString, MrvString> properties;
    FurInformationManipulator::parseFurInfo("furFile=a;meshNames=m", properties);
    FurInformationManipulator::parseFurInfo("furFile=b", properties);
    EXPECT_EQ(properties.size(), 2u);
    EXPECT_STREQ(properties["furFile"].c_str(), "b");
}

TEST(FurAsset, aMeshRemembersWhetherItIsFur)
{
    MeshAssetV8 mesh;
    mesh._furAsset._furInformation = "meshNames=m;x=y";
    EXPECT_FALSE(mesh.isFur());
    mesh.setFurProperty("furFile", "f");
    EXPECT_STREQ(mesh._furAsset._furInformation.c_str(), "furFile=f;meshNames=m");
    EXPECT_FALSE(mesh.isFur()) << "the first answer is kept";
    MeshAssetV8 other;
    other._furAsset = mesh._furAsset;
    EXPECT_TRUE(other.isFur());
}

} // namespace
} // namespace mrv
