// tests/hosts/mrvcharacter/mrvHostDiffTest.cpp
// What the batch host finds in characters, and between two of them.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include <nlohmann/json.hpp>

namespace mrv {

namespace {

using Json = nlohmann::json;

TEST(Host, infoTellsWhatTheCourierIsMadeOf)
{
    const Json info =
        Json::parse(runWell({ "info", "--json", samples + "courier.mvcf" }).out, nullptr, false);
    const Json expected = Json::parse(R"({
        "name": "Courier", "version": 24, "bones": 61, "pelvis": "hips",
        "parts": { "spines": 1, "limbs": 5, "effectors": 12 }, "meshes": 8, "groups": 5,
        "geometry": { "0": 3, "1": 2 }, "shaders": { "groups": 3, "assets": 3, "attributes": 4 },
        "renderingTypes": 2, "overrides": { "skeleton": 2, "blindData": 1, "physics": 1 } })");
    for (const auto& [key, value] : expected.items())
        EXPECT_EQ(info[key], value) << key;
    EXPECT_NEAR(info["height"].get<double>(), 1.805, 1e-4);
}

TEST(Host, convertThereAndBackGivesTheSameBytes)
{
    const TemporaryFolder folder;
    const std::string binary = folder.path("c.mvc").c_str();
    const std::string xml = folder.path("c.mvcf").c_str();
    for (const std::string name : { "courier", "hound" })
    {
        runWell({ "convert", samples + name + ".mvcf", binary });
        EXPECT_EQ(readFile(binary), readFile(samples + name + ".mvc"));
        runWell({ "convert", binary, xml });
        EXPECT_EQ(readFile(xml), readFile(samples + name + ".mvcf"));
    }
}

struct ChangeCase
{
    const char* name;
    const char* from; ///< replaced in the courier's XML, where it stands for the first time
    const char* to;
    const char* differences;
};

const ChangeCase changeCases[] = {
    { "text", R"("skinTone")", R"("skinShade")",
      R"([{ "path": "shaderAttributes[0].attributeName", "a": "skinTone", "b": "skinShade" }])" },
    { "mapOfArrays", R"("./geometry/courier_lod1.mvg")", R"("far.mvg")",
      R"([{ "path": "geometryAssetsPerTags{0}[1].filename", "a": "./geometry/courier_lod1.mvg",
            "b": "far.mvg" }])" },
    { "boneByItsName", R"(<name value="hips"/>
					<relativePos x="0")",
      R"(<name value="hips"/>
					<relativePos x="0.5")",
      R"json([{ "path": "converterMapping.skeletonDescription.bones[hips].relativePos",
            "a": "(0, 0, 0.98)", "b": "(0.5, 0, 0.98)" }])json" },
    { "oneMore", R"(<mainShaderAttributes>)", R"(<mainShaderAttributes><element index="1" value="2"/>)",
      R"([{ "path": "mainShaderAttributes.count", "a": "1", "b": "2" },
          { "path": "mainShaderAttributes[1]", "a": null, "b": "2" }])" },
};

class HostDiff : public testing::TestWithParam<ChangeCase>
{};

TEST_P(HostDiff, listsWhatWasChangedAndNothingElse)
{
    const TemporaryFolder folder;
    const std::string original = samples + "courier.mvcf";
    std::string text = readFile(original);
    const std::string from = GetParam().from;
    ASSERT_NE(text.find(from), std::string::npos);
    text.replace(text.find(from), from.size(), GetParam().to);
    const std::string changed = folder.write("changed.mvcf", text).c_str();

    const HostRun run = runHost({ "diff", "--json", original, changed });
    EXPECT_EQ(run.exitCode, 1) << run.err;
    const Json answer = Json::parse(run.out, nullptr, false);
    EXPECT_EQ(answer["equal"], false);
    EXPECT_EQ(answer["differences"], Json::parse(GetParam().differences));
}

INSTANTIATE_TEST_SUITE_P(Table, HostDiff, testing::ValuesIn(changeCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace mrv
