// tests/hosts/mrvcharacter/mrvCharacterHostTest.cpp
// The sub-commands of the batch host, run as a user runs them.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include "mrvCore/utils/mrvPNG.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <thread>

#include <netinet/in.h>
#include <sys/socket.h>

namespace mrv {

namespace {

using Json = nlohmann::json;

const std::string samples = MRV_TEST_DATA "/../../samples/";
const std::string mappings = MRV_TEST_DATA "/mappings/";
const std::string rigs = MRV_EXTRA_DATA "/data/skeletons/";

std::string readFile(const std::string& name)
{
    std::ifstream stream(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

const std::string heading = "index,name,parent,px,py,pz,qx,qy,qz,qw\n";

const std::string poseHeading = "bone,qx,qy,qz,qw\n";

/// The files of the folder that command lines name by "{T}".
void writeFiles(const TemporaryFolder& folder)
{
    folder.write("empty.mvc", "");
    folder.write("garbage.mvc", "This is no character.");
    folder.write("garbage.mvcf", "<maravoObject Version=\"24\"><maravoObject>");
    folder.write("future.mvc", std::string("\x11\x6C\x63\0\0\0", 6));
    folder.write("empty.csv", "");
    folder.write("heading.csv", heading);
    folder.write("otherTable.csv", "name,price\nrope,3\n");
    folder.write("fatherLoop.csv", heading + "0,root,-1,0,0,1,0,0,0,1\n1,a,1,0,0,1,0,0,0,1\n");
    folder.write("fatherAfterChild.csv",
                 heading + "0,root,-1,0,0,1,0,0,0,1\n1,a,2,0,0,1,0,0,0,1\n2,b,0,0,0,1,0,0,0,1\n");
    folder.write("unknownFather.csv", heading + "0,root,-2,0,0,1,0,0,0,1\n");
    folder.write("skippedIndex.csv", heading + "0,root,-1,0,0,1,0,0,0,1\n2,a,0,0,0,1,0,0,0,1\n");
    folder.write("shortRow.csv", heading + "0,root,-1,0,0,1,0,0,0\n");
    folder.write("noNumber.csv", heading + "0,root,-1,0,zero,1,0,0,0,1\n");
    folder.write("notFinite.csv", heading + "0,root,-1,0,nan,1,0,0,0,1\n");
    folder.write("noRotation.csv", heading + "0,root,-1,0,0,1,0,0,0,0\n");
    folder.write("noName.csv", heading + "0,,-1,0,0,1,0,0,0,1\n");
    folder.write("garbage.bvh", "HIERARCHY\nROOT hips\n{\n");
    folder.write("short.mvsm", "abc");
    folder.write("future.mvsm", std::string("\x09\0\0\0", 4));
    folder.write("empty.mvsm.xml", "<mvsmContainer Version=\"8\"/>");
    folder.write("pose.csv", poseHeading + "hips,0,0,1,0\n3,0.5,0,0,0.5\n");
    folder.write("unknownBone.csv", poseHeading + "tail,0,0,0,1\n");
    folder.write("noTurn.csv", poseHeading + "hips,0,0,0,0\n");
    folder.write("deep.json", "{ \"assetRootName\": \"hound\", \"epochs\": 3 }");
    folder.write("points.csv", "x,y\r\n0,0\r\n 4 ,0\r\n0,4\r\n0,0\r\n\r\n");
    folder.write("bare.csv", "-1,-1\n1e1,0\n0,4");
    folder.write("xOnly.csv", "x,y\n1\n");
    folder.write("threeValues.csv", "x,y\n1,2,3\n");
    folder.write("words.csv", "x,y\n1,2\n3,four\n");
    folder.write("infinite.csv", "0,0\n1,inf\n0,1\n");
    folder.write("beyondFloat.csv", "0,0\n1,1e39\n0,1\n");
    folder.write("gap.csv", "0,0\n\n0,1\n");
    folder.write("line.csv", "0,0\n1,1\n2,2\n");
    folder.write("onePlace.csv", "3,3\n3,3\n");
    folder.write("ground.obj", "v 0 0 1\nv 8 0 1\nv 8 8 1\nv 0 8 1\nf 1 2 3 4\n");
    folder.write("lines.obj", "v 0 0 1\nv 8 0 1\nl 1 2\n");
    folder.write("noNumber.obj", "v 0 0 1\nv 8 0 nan\nv 8 8 1\nf 1 2 3\n");
    folder.write("positions.csv", "x,y,z\n2,1,5\n 1 ,2,-3\n9,9,4\n");
    folder.write("good.csv", heading + "0,root,-1,0,0,1,0,0,0,1\r\n1,a,0,0,0,0.5,0,0,0,2\r\n\r\n");
}

struct CommandCase
{
    const char* name;
    const char* line; ///< {T} is the folder of the files above, {S} that of the samples, {M} of mappings
    int exitCode;
    const char* out; ///< part of the text, null for no text at all
    const char* err;
};

const CommandCase commandCases[] = {
    { "helpNamesTheCommands", "--help", 0, "validate", nullptr },
    { "helpOfInfo", "info --help", 0, "FILES", nullptr },
    { "helpOfValidate", "validate --help", 0, "--json", nullptr },
    { "helpOfConvert", "convert --help", 0, ".mvcf", nullptr },
    { "helpOfImport", "import --help", 0, "--front", nullptr },
    { "helpOfMapTellsDefaults", "map --help", 0, "=0.5", nullptr },
    { "helpOfDraw", "draw --help", 0, "OUT.png", nullptr },
    { "helpOfDiffTellsExitCodes", "diff --help", 0, "2 for trouble", nullptr },
    { "noCommand", "", 2, nullptr, "subcommand is required" },
    { "unknownCommand", "mangle", 2, nullptr, "subcommand is required" },

    { "classesAsMarkdown", "classes --markdown", 0,
      "\n### Frozen classes\n\n#### `AssetGroupV0`\n\nType id `2d9f936e-9230-4521-9d6d-2bad415fcf12`, 4 "
      "attributes.\n"
      "\n| # | name | type |\n|---|---|---|\n| 0 | `name` | `string` |\n| 1 | `children` | "
      "`Array<AssetUnitV0>` |\n",
      nullptr },
    { "classesInTwoForms", "classes --markdown --attributes", 2, nullptr, "--attributes" },

    { "infoOfNothing", "info", 2, nullptr, "FILES" },
    { "infoOfMissing", "info {T}missing.mvc", 1, nullptr, "missing.mvc: FILE_NOT_FOUND" },
    { "infoOfFolder", "info {T}", 1, nullptr, ": INVALID_FILE" },
    { "infoOfEmpty", "info {T}empty.mvc", 1, nullptr, "empty.mvc: INVALID_FILE" },
    { "infoGoesOnBehindABadFile", "info {T}garbage.mvc {S}courier.mvc", 1, "Courier",
      "garbage.mvc: INVALID_FILE" },
    { "infoHasOneLineAFile", "info {S}hound.mvcf {S}courier.mvc", 0, "Hound", nullptr },

    { "validateGood", "validate {S}courier.mvcf {S}hound.mvc", 0, "hound.mvc: SUCCESS (version 24)",
      nullptr },
    { "validateGarbage", "validate {T}garbage.mvc {S}hound.mvc", 1, "hound.mvc: SUCCESS",
      "garbage.mvc: INVALID_FILE" },
    { "validateCutXmlTellsWhere", "validate {T}garbage.mvcf", 1, nullptr, "    Maravo [ERROR] - " },
    { "validateFutureVersion", "validate {T}future.mvc", 1, nullptr, "INCORRECT_VERSION (version 99)" },
    { "validateAsJson", "validate --json {T}empty.mvc", 1,
      R"("kind":"character","version":-1,"result":"INVALID_FILE","messages":[)", nullptr },

    { "infoOfMappings", "info --json {M}biped_mapping_v0.mvsm", 0,
      R"("version":0,"bones":27,"height":1.86,"pelvis":"hips","parts":{"spines":1,"limbs":5,"effectors":6}})",
      nullptr },
    { "infoOfMappingAndCharacter", "info {M}biped_mapping_v8.mvsm.xml {S}hound.mvc", 0, "Hound", nullptr },
    { "infoOfBadMapping", "info {T}short.mvsm", 1, nullptr, "short.mvsm: INCORRECT_VERSION" },
    { "validateMappings", "validate {M}biped_mapping_v0.mvsm.xml", 0, "SUCCESS (version 0)", nullptr },
    { "validateFutureMapping", "validate {T}future.mvsm", 1, nullptr, "INCORRECT_VERSION (version 9)" },
    { "validateEmptyMapping", "validate --json {T}empty.mvsm.xml", 1,
      R"("kind":"mapping","version":8,"result":"INCORRECT_VERSION")", nullptr },
    { "convertMappingToCharacter", "convert {M}biped_mapping_v8.mvsm {T}out.mvc", 1, nullptr,
      "a mapping alone" },
    { "convertMappingIntoNoFolder", "convert {M}biped_mapping_v8.mvsm {T}none/out.mvsm", 1, nullptr,
      "FILE_CREATION_FAILED" },

    { "convertMissing", "convert {T}missing.mvc {T}out.mvcf", 1, nullptr, "missing.mvc: FILE_NOT_FOUND" },
    { "convertToOtherExtension", "convert {S}hound.mvc {T}out.xml", 1, nullptr, "out.xml: the extension" },
    { "convertIntoNoFolder", "convert {S}hound.mvc {T}none/out.mvc", 1, nullptr, "FILE_CREATION_FAILED" },

    { "importMissing", "import {T}missing.csv {T}out.mvcf", 1, nullptr,
      "missing.csv: there is no such file" },
    { "importFolder", "import {T} {T}out.mvcf", 1, nullptr, ": this is no file" },
    { "importEmpty", "import {T}empty.csv {T}out.mvcf", 1, nullptr, "empty.csv: the file does not begin" },
    { "importHeadingOnly", "import {T}heading.csv {T}out.mvcf", 1, nullptr, "no joint" },
    { "importOtherTable", "import {T}otherTable.csv {T}out.mvcf", 1, nullptr, "does not begin" },
    { "importFatherLoop", "import {T}fatherLoop.csv {T}out.mvcf", 1, nullptr, "line 3: the parent does not" },
    { "importFatherAfterChild", "import {T}fatherAfterChild.csv {T}out.mvcf", 1, nullptr,
      "line 3: the parent does not come before" },
    { "importUnknownFather", "import {T}unknownFather.csv {T}out.mvcf", 1, nullptr, "line 2: the parent" },
    { "importSkippedIndex", "import {T}skippedIndex.csv {T}out.mvcf", 1, nullptr, "line 3: the index" },
    { "importShortRow", "import {T}shortRow.csv {T}out.mvcf", 1, nullptr, "line 2: a row has ten" },
    { "importNoNumber", "import {T}noNumber.csv {T}out.mvcf", 1, nullptr, "line 2: position" },
    { "importNotFinite", "import {T}notFinite.csv {T}out.mvcf", 1, nullptr, "line 2: position" },
    { "importNoRotation", "import {T}noRotation.csv {T}out.mvcf", 1, nullptr, "line 2: position" },
    { "importNoName", "import {T}noName.csv {T}out.mvcf", 1, nullptr, "line 2: the joint has no name" },
    { "importCutBvh", "import {T}garbage.bvh {T}out.mvcf", 1, nullptr, "garbage.bvh: " },
    { "importUnknownFormat", "import {T}garbage.mvc {T}out.mvcf", 1, nullptr, "garbage.mvc: " },
    { "importUnknownFront", "import --front=up {T}good.csv {T}out.mvcf", 2, nullptr, "--front" },
    { "importLineEndsOfOtherSystems", "import {T}good.csv {T}out.mvcf", 0, nullptr, nullptr },

    { "mapMissing", "map {T}missing.mvc {T}out.mvcf", 1, nullptr, "missing.mvc: FILE_NOT_FOUND" },
    { "mapToOtherExtension", "map {S}hound.mvc {T}out.xml", 1, nullptr, "out.xml: the extension" },
    { "mapWithoutNumber", "map {S}hound.mvc {T}out.mvc --refine=much", 2, nullptr, "--refine" },
    { "mapPrintsWhatItFinds", "map {S}courier.mvc {T}out.mvc --min-bend 0", 0, "RightArm", nullptr },

    { "ragdollMissing", "ragdoll {T}missing.mvc {T}out.mvc", 1, nullptr, "missing.mvc: FILE_NOT_FOUND" },
    { "ragdollListsBodies", "ragdoll {S}hound.mvc {T}out.mvcf", 0, "capsule", nullptr },
    { "ragdollToOtherExtension", "ragdoll {S}hound.mvc {T}out.xml", 1, nullptr, "out.xml: the extension" },

    { "drawPose", "draw {S}courier.mvc {T}out.png --ragdoll --pose {T}pose.csv", 0, nullptr, nullptr },
    { "drawUnknownBone", "draw {S}hound.mvc {T}out.png --pose {T}unknownBone.csv", 1, nullptr,
      "line 2: the skeleton has no such bone" },
    { "drawNoTurn", "draw {S}courier.mvc {T}out.png --pose {T}noTurn.csv", 1, nullptr, "line 2: the quat" },
    { "drawOtherTable", "draw {S}courier.mvc {T}out.png --pose {T}good.csv", 1, nullptr, "does not begin" },
    { "drawMissingPose", "draw {S}courier.mvc {T}out.png --pose {T}missing.csv", 1, nullptr, "missing.csv" },
    { "triangulate", "triangulate {T}points.csv {T}out.csv --png {T}out.png", 0, nullptr, nullptr },
    { "triangulateWithoutHeading", "triangulate {T}bare.csv {T}out.csv", 0, nullptr, nullptr },
    { "helpOfTriangulate", "triangulate --help", 0, "i,j,k", nullptr },
    { "triangulateMissing", "triangulate {T}missing.csv {T}out.csv", 1, nullptr, "cannot be read" },
    { "triangulateFolder", "triangulate {T} {T}out.csv", 1, nullptr, "cannot be read" },
    { "triangulateEmpty", "triangulate {T}empty.csv {T}out.csv", 1, nullptr, "no point" },
    { "triangulateHeadingOnly", "triangulate {T}heading.csv {T}out.csv", 1, nullptr, "no point" },
    { "triangulateOneValue", "triangulate {T}xOnly.csv {T}out.csv", 1, nullptr, "line 2: a row has two" },
    { "triangulateThreeValues", "triangulate {T}threeValues.csv {T}out.csv", 1, nullptr, "line 2: a row" },
    { "triangulateWords", "triangulate {T}words.csv {T}out.csv", 1, nullptr, "line 3: a coordinate" },
    { "triangulateInfinite", "triangulate {T}infinite.csv {T}out.csv", 1, nullptr, "line 2: a coordinate" },
    { "triangulateBeyondFloat", "triangulate {T}beyondFloat.csv {T}out.csv", 1, nullptr, "line 2: a coord" },
    { "triangulateGap", "triangulate {T}gap.csv {T}out.csv", 1, nullptr, "line 2: a row has two" },
    { "triangulateLine", "triangulate {T}line.csv {T}out.csv", 1, nullptr, "lie on one line" },
    { "triangulateOnePlace", "triangulate {T}onePlace.csv {T}out.csv", 1, nullptr, "all fall together" },
    { "triangulateIntoNoFolder", "triangulate {T}points.csv {T}none/out.csv", 1, nullptr, "be written" },
    { "triangulateDrawsIntoNoFolder", "triangulate {T}points.csv {T}out.csv --png {T}none/a.png", 1, nullptr,
      "a.png: " },

    { "pin", "pin {T}ground.obj {T}positions.csv {T}out.csv --png {T}out.png", 0, nullptr, nullptr },
    { "pinMissing", "pin {T}missing.obj {T}positions.csv {T}out.csv", 1, nullptr, "missing.obj: " },
    { "pinOnLines", "pin {T}lines.obj {T}positions.csv {T}out.csv", 1, nullptr, "no triangles in the scene" },
    { "pinOnNoNumber", "pin {T}noNumber.obj {T}positions.csv {T}out.csv", 1, nullptr, "is not finite" },
    { "pinNoMesh", "pin {T}positions.csv {T}positions.csv {T}out.csv", 1, nullptr, "positions.csv: " },
    { "pinFlatPositions", "pin {T}ground.obj {T}points.csv {T}out.csv", 1, nullptr,
      "line 2: a row has three" },
    { "pinIntoNoFolder", "pin {T}ground.obj {T}positions.csv {T}none/out.csv", 1, nullptr, "be written" },
    { "pinDrawsIntoNoFolder", "pin {T}ground.obj {T}positions.csv {T}out.csv --png {T}none/a.png", 1, nullptr,
      "a.png: " },

    { "drawMissing", "draw {T}missing.mvc {T}out.png", 1, nullptr, "missing.mvc: FILE_NOT_FOUND" },
    { "drawIntoNoFolder", "draw {S}hound.mvc {T}none/out.png", 1, nullptr, "none/out.png: " },

    { "infoOnOneThread", "info --threads 1 {T}none {S}courier.mvc", 1, "Courier", "none: FILE_NOT_FOUND" },
    { "infoOnTooManyThreads", "info --threads 1000 {S}courier.mvc", 0, "Courier", "--threads: " },
    { "infoOnNoThread", "info --threads 0 {S}courier.mvc", 2, nullptr, "--threads" },
    { "infoOfNamesThatListsCut", "info {T}a;b.mvc ; {S}hound.mvc", 1, "Hound", "a;b.mvc: FILE_NOT_FOUND" },
    { "validateManyInTheirOrder", "validate {S}hound.mvc {T}empty.mvc {T} {S}courier.mvc", 1,
      "courier.mvc: SUCCESS", "empty.mvc: INVALID_FILE" },
    { "convertManyIntoAFolder", "convert {S}hound.mvc {T}empty.mvc {S}courier.mvc {T}", 1, nullptr,
      "empty.mvc: INVALID_FILE" },
    { "convertManyIntoOneFile", "convert {S}hound.mvc {S}courier.mvc {T}out.mvc", 1, nullptr,
      "no such folder" },
    { "convertTwoIntoOneName", "convert {S}hound.mvc {S}hound.mvcf {T}", 1, nullptr, "becomes hound.mvcf" },
    { "drawManyIntoAFolder", "draw {S}hound.mvc {S}courier.mvc {T}", 0, nullptr, nullptr },
    { "eventsWithoutPort", "info --events 127.0.0.1 {S}hound.mvc", 2, nullptr, "--events" },
    { "eventsToPortZero", "info --events 127.0.0.1:0 {S}hound.mvc", 2, nullptr, "--events" },
    { "eventsToNobody", "info --events localhost:1 {S}hound.mvc", 0, "Hound", "no event server answers" },

    { "chooseOneEntity", "choose {S}courier.mvc --count 5 --seed 1 --ids 3", 0, "\n3,", "Share" },
    { "chooseNoIds", "choose {S}courier.mvc --count 5 --seed 1 --ids 1,x", 0, "\n1,", "--ids" },
    { "deepConf", "deepconf {T}deep.json {T}out.json --set epochs=7", 0, "epochs: 7", nullptr },
    { "deepConfMissing", "deepconf {T}missing.json", 1, nullptr, "missing.json: " },
    { "deepConfNoJson", "deepconf {T}garbage.mvc", 1, nullptr, "parse error" },
    { "deepConfOfOtherType", "deepconf {T}deep.json --set epochs=many", 1, nullptr, "parse error" },
    { "deepConfUnknownKey", "deepconf {T}deep.json --set eons=1", 1, nullptr, "sets no key" },
    { "chooseNothing", "choose {S}courier.mvc --count 0 --seed 1", 0, "entity,group", "Share" },
    { "chooseOfMissing", "choose {T}none --count 5 --seed 1", 1, nullptr, "none: FILE_NOT_FOUND" },
    { "chooseNegative", "choose {S}courier.mvc --count -5 --seed 1", 2, nullptr, "--count" },
    { "chooseTooMany", "choose {S}courier.mvc --count 1e12 --seed 1", 2, nullptr, "--count" },
    { "chooseOfUnknownType", "choose {S}courier.mvc --count 5 --seed 1 --rendering-type none", 1, nullptr,
      "no rendering type none" },

    { "diffOfTwoForms", "diff {S}courier.mvc {S}courier.mvcf", 0, nullptr, nullptr },
    { "diffOfDifferent", "diff {S}courier.mvc {S}hound.mvc", 1, R"(name: "Courier" -> "Hound")", nullptr },
    { "diffOfMissing", "diff {S}courier.mvc {T}missing.mvc", 2, nullptr, "missing.mvc: FILE_NOT_FOUND" },
};

std::vector<std::string> splitLine(const std::string& line, const TemporaryFolder& folder)
{
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
    {
        for (const auto& [mark, path] : { std::pair("{T}", std::string(folder.path("").c_str())),
                                          std::pair("{S}", samples), std::pair("{M}", mappings) })
            if (const size_t place = word.find(mark); place != std::string::npos)
                word.replace(place, 3, path);
        words.push_back(word);
    }
    return words;
}

void expectText(const std::string& text, const char* part)
{
    if (part != nullptr)
        EXPECT_NE(text.find(part), std::string::npos) << text;
    else
        EXPECT_EQ(text, "");
}

class HostCommand : public testing::TestWithParam<CommandCase>
{};

TEST_P(HostCommand, endsWithTheToldCodeAndTexts)
{
    const TemporaryFolder folder;
    writeFiles(folder);
    const CommandCase& row = GetParam();
    const HostRun run = runHost(splitLine(row.line, folder));
    EXPECT_EQ(run.exitCode, row.exitCode) << run.err;
    expectText(run.out, row.out);
    expectText(run.err, row.err);
}

INSTANTIATE_TEST_SUITE_P(Table, HostCommand, testing::ValuesIn(commandCases),
                         [](const auto& row) { return std::string(row.param.name); });

/// Runs a command that must go well.
HostRun runWell(const std::vector<std::string>& arguments)
{
    HostRun run = runHost(arguments);
    EXPECT_EQ(run.exitCode, 0) << arguments[0] << ": " << run.err;
    return run;
}

Json getInfo(const std::string& file)
{
    return Json::parse(runWell({ "info", "--json", file }).out, nullptr, false);
}

TEST(Host, infoTellsWhatTheCourierIsMadeOf)
{
    const Json info = getInfo(samples + "courier.mvcf");
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

// The same rig in several forms: a root at a height of 2 with a chain of two below, whose last has an end.
const char* const rigAsCsv = "index,name,parent,px,py,pz,qx,qy,qz,qw\n"
                             "0,hips,-1,0,0,2,0.70710678,0,0,0.70710678\n"
                             "1,leg,0,0.5,-1,0,0,0,0,1\n"
                             "2,foot,1,0,-1,0,0,0,0,1\n"
                             "3,foot_end,2,0,0,0.25,0,0,0,1\n";

const char* const rigAsBvh =
    "HIERARCHY\nROOT hips\n{\nOFFSET 0 2 0\nCHANNELS 3 Zrotation Xrotation Yrotation\n"
    "JOINT leg\n{\nOFFSET 0.5 -1 0\nCHANNELS 3 Zrotation Xrotation Yrotation\n"
    "JOINT foot\n{\nOFFSET 0 -1 0\nCHANNELS 3 Zrotation Xrotation Yrotation\n"
    "End Site\n{\nOFFSET 0 0 0.25\n}\n}\n}\n}\n"
    "MOTION\nFrames: 1\nFrame Time: 0.04\n0 0 0 0 0 0 0 0 0\n";

// Nothing is skinned, and the root has a scale that a bone cannot have.
const char* const rigAsGltf = R"({ "asset": { "version": "2.0" }, "scene": 0, "scenes": [{ "nodes": [0] }],
    "nodes": [ { "name": "hips", "translation": [0, 2, 0], "scale": [2, 2, 2], "children": [1] },
               { "name": "leg", "translation": [0.25, -0.5, 0], "children": [2] },
               { "name": "foot", "translation": [0, -0.5, 0], "children": [3] },
               { "name": "foot_end", "translation": [0, 0, 0.125] } ] })";

TEST(Host, oneRigInSeveralFormsIsOneCharacter)
{
    const TemporaryFolder folder;
    const std::string expected = folder.path("csv.mvcf").c_str();
    runWell({ "import", "--front=-y", folder.write("rig.csv", rigAsCsv).c_str(), expected });
    const Json info = getInfo(expected);
    EXPECT_EQ(info["bones"], 4);
    EXPECT_NEAR(info["height"].get<double>(), 2.0, 1e-6);
    for (const auto& [name, text] : { std::pair("rig.bvh", rigAsBvh), std::pair("rig.gltf", rigAsGltf) })
    {
        const std::string imported = folder.path("imported.mvc").c_str();
        runWell({ "import", folder.write(name, text).c_str(), imported });
        EXPECT_EQ(runHost({ "diff", expected, imported }).out, "") << name;
    }
}

/// Whether the picture is as large as told and shows a pelvis.
void expectDrawing(const std::string& file)
{
    unsigned char* pixels = nullptr;
    unsigned int width = 0;
    unsigned int height = 0;
    ASSERT_EQ(lodepng_decode24_file(&pixels, &width, &height, file.c_str()), 0u);
    bool showsPelvis = false;
    for (size_t i = 0; i < size_t(width) * height; ++i)
        showsPelvis =
            showsPelvis || (pixels[3 * i] == 213 && pixels[3 * i + 1] == 94 && pixels[3 * i + 2] == 0);
    EXPECT_TRUE(showsPelvis) << file;
    std::free(pixels);
}

TEST(Host, mappingFilesOfTwoFormsAndOfACharacterAreOne)
{
    const TemporaryFolder folder;
    const std::string xml = folder.path("m.mvsm.xml").c_str();
    const std::string binary = folder.path("m.mvsm").c_str();
    const std::string again = folder.path("n.mvsm.xml").c_str();
    runWell({ "convert", samples + "courier.mvc", xml });
    runWell({ "convert", xml, binary });
    runWell({ "convert", binary, again });
    EXPECT_EQ(readFile(xml), readFile(again));
    EXPECT_FALSE(readFile(xml).empty());
}

TEST(Host, drawShowsBodiesAndPoses)
{
    const TemporaryFolder folder;
    writeFiles(folder);
    const std::string ragdoll = folder.path("r.mvc").c_str();
    const std::string picture = folder.path("p.png").c_str();
    runWell({ "ragdoll", samples + "courier.mvc", ragdoll });
    std::set<std::string> pictures;
    const std::vector<std::vector<std::string>> options = { {},
                                                            { "--ragdoll" },
                                                            { "--pose", folder.path("pose.csv").c_str() } };
    for (std::vector<std::string> words : options)
    {
        words.insert(words.begin(), { "draw", ragdoll, picture });
        runWell(words);
        pictures.insert(readFile(picture));
    }
    EXPECT_EQ(pictures.size(), options.size()) << "an option that changes nothing";
}

TEST(Host, mapTwiceGivesWhatMapOnceGives)
{
    const TemporaryFolder folder;
    const std::string once = folder.path("once.mvcf").c_str();
    const std::string twice = folder.path("twice.mvcf").c_str();
    for (const std::string name : { "courier", "hound" })
    {
        const std::string table = runWell({ "map", samples + name + ".mvc", once }).out;
        EXPECT_EQ(runWell({ "map", once, twice }).out, table);
        EXPECT_EQ(readFile(once), readFile(twice)) << name;
    }
}

TEST(Host, mapLeavesAChainAlone)
{
    const TemporaryFolder folder;
    folder.write("chain.csv", heading + "0,root,-1,0,0,1,0,0,0,1\n1,a,0,0,0,1,0,0,0,1\n");
    const std::string chain = folder.path("chain.mvcf").c_str();
    const std::string mapped = folder.path("mapped.mvcf").c_str();
    runWell({ "import", folder.path("chain.csv").c_str(), chain });
    const HostRun run = runHost({ "map", chain, mapped });
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("chain.mvcf: no branch"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(mapped));
}

TEST(Host, drawShowsThePelvis)
{
    const TemporaryFolder folder;
    for (const std::string name : { "courier", "hound" })
    {
        const std::string picture = folder.path((name + ".png").c_str()).c_str();
        runWell({ "draw", samples + name + ".mvc", picture });
        expectDrawing(picture);
    }
}

/// Two texts such as "(1, 2, 3)" that mean nearly the same.
void expectNear(const std::string& a, const std::string& b, const std::string& what)
{
    std::istringstream streamA(a);
    std::istringstream streamB(b);
    char mark = 0;
    double numberA = 0.0;
    double numberB = 0.0;
    while (streamA >> mark >> numberA && streamB >> mark >> numberB)
        EXPECT_NEAR(numberA, numberB, 1e-5 * (1.0 + std::abs(numberA))) << what;
}

// The table and the rig that it was made of must have the same bones at the same places.
void compareWithOriginal(const std::string& table, const std::string& original, const TemporaryFolder& folder)
{
    const std::string imported = folder.path("original.mvcf").c_str();
    runWell({ "import", original, imported });
    const Json answer = Json::parse(runHost({ "diff", "--json", table, imported }).out, nullptr, false);
    for (const Json& difference : answer["differences"])
    {
        const std::string path = difference["path"];
        const std::string member = path.substr(path.rfind('.') + 1);
        if (member == "frontAxis")
            continue; // the table does not say where the character looks
        EXPECT_TRUE(member == "relativePos" || member == "localOri") << difference;
        if (difference["a"].is_string() && difference["b"].is_string())
            expectNear(difference["a"], difference["b"], original + ": " + path);
    }
}

TEST(Host, triangulateNamesPositionsInTheInput)
{
    const TemporaryFolder folder;
    const std::string out = folder.path("out.csv").c_str();
    const MrvString points = folder.write("points.csv", "x,y\n0,0\n0,0\n4,0\n0,4\n4,4.5\n");
    runWell({ "triangulate", points.c_str(), out, "--png", folder.path("out.png").c_str() });
    std::istringstream table(readFile(out));
    std::string line;
    std::getline(table, line);
    EXPECT_EQ(line, "i,j,k");
    std::vector<std::string> triangles;
    while (std::getline(table, line))
    {
        ASSERT_EQ(line.size(), 5u);
        while (line[0] > line[2] || line[0] > line[4]) // the least first; the turn stays
            line = line.substr(2) + ',' + line[0];
        triangles.push_back(line);
    }
    std::sort(triangles.begin(), triangles.end());
    EXPECT_EQ(triangles, (std::vector<std::string>{ "0,2,3", "2,4,3" }));
    EXPECT_EQ(folder.countEntries(), 3u); // no part of a file

    unsigned char* pixels = nullptr;
    unsigned int width = 0;
    unsigned int height = 0;
    ASSERT_EQ(lodepng_decode24_file(&pixels, &width, &height, folder.path("out.png").c_str()), 0u);
    EXPECT_GT(height, width); // the points are higher than wide, and there is a heading
    std::free(pixels);
}

TEST(Host, pinPutsPositionsOnTheGround)
{
    const TemporaryFolder folder;
    writeFiles(folder);
    const std::string out = folder.path("pinned.csv").c_str();
    runWell({ "pin", folder.path("ground.obj").c_str(), folder.path("positions.csv").c_str(), out });
    std::string table = readFile(out);
    // The square may be cut into triangles either way.
    for (size_t i = table.find(",1,1\n"); i != std::string::npos; i = table.find(",1,1\n"))
        table[i + 3] = '0';
    EXPECT_EQ(table, "x,y,z,nx,ny,nz,triangle\n2,1,1,0,0,1,0\n1,2,1,0,0,1,0\n9,9,4,0,0,0,-1\n");
}

TEST(Host, rigsOfOthersComeInWhole)
{
    if (!std::filesystem::is_directory(rigs))
        GTEST_SKIP() << "there is no folder " << rigs;
    int originals = 0;
    for (const auto& entry : std::filesystem::directory_iterator(rigs))
    {
        const TemporaryFolder folder;
        const std::string table = entry.path().string();
        if (entry.path().extension() != ".csv")
            continue;
        const std::string character = folder.path("rig.mvcf").c_str();
        runWell({ "import", table, character });
        runWell({ "validate", character });
        const std::string rows = readFile(table);
        EXPECT_EQ(getInfo(character)["bones"], std::count(rows.begin(), rows.end(), '\n') - 1) << table;
        const std::string picture = folder.path("rig.png").c_str();
        runWell({ "draw", character, picture });
        expectDrawing(picture);
        const std::string stem = table.substr(0, table.find(".skeleton"));
        for (const char* extension : { ".glb", ".bvh" })
            if (std::filesystem::exists(stem + extension))
            {
                compareWithOriginal(character, stem + extension, folder);
                ++originals;
            }
    }
    EXPECT_GT(originals, 0);
}

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(Host, chooseGivesTheSameSharesForEverySeed)
{
    const auto chooseWith = [](const char* seed, const char* count = "900") {
        return runWell({ "choose", samples + "courier.mvc", "--count", count, "--seed", seed });
    };
    const HostRun first = chooseWith("1"), again = chooseWith("1"), other = chooseWith("2");
    EXPECT_EQ(first.out, again.out);
    EXPECT_NE(first.out, other.out);
    EXPECT_EQ(first.err, other.err); // the counts follow from the weights alone
    EXPECT_EQ(splitLines(first.out).size() - 1, 3 * 900u);
}

/// Runs the event server while `send` has its port, and gives what it printed.
template <class Send>
HostRun listenWhile(Send send)
{
    // A port that was free just now.
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    EXPECT_EQ(bind(probe, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size), 0);
    close(probe);

    HostRun run;
    const std::string port = std::to_string(ntohs(address.sin_port));
    std::thread server([&] { run = runHost({ "listen", "--once", "--port", port }); });
    int connection = -1;
    for (int i = 0; i < 500 && connection < 0; ++i)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        connection = socket(AF_INET, SOCK_STREAM, 0);
        if (connect(connection, reinterpret_cast<sockaddr*>(&address), size) == 0)
            break;
        close(connection);
        connection = -1;
    }
    EXPECT_GE(connection, 0);
    send(connection, port); // the server ends with the connection
    close(connection);
    server.join();
    EXPECT_EQ(run.exitCode, 0);
    return run;
}

TEST(Host, listenPrintsWhatAnotherRunSends)
{
    const HostRun run = listenWhile([](int, const std::string& port) {
        runWell({ "info", "--events", "127.0.0.1:" + port, samples + "hound.mvc", samples + "courier.mvc" });
    });
    for (const char* span : { "\thound\n", "\tcourier\n", "\tloadCharacters\n" })
        EXPECT_NE(run.out.find(span), std::string::npos) << run.out;
}

TEST(Host, listenPassesOverWhatIsNoEvent)
{
    const auto event = [](const std::string& name, const char* date, const char* rest) {
        return "{\"type\":0,\"threadID\":7,\"date\":" + std::string(date) + ",\"name\":\"" + name +
               "\",\"timeID\":1.5e+06,\"integerID\":3," + rest + "}";
    };
    const char* const begin = "\"value\":0,\"unit\":8,\"flag\":0";
    const char* const end = "\"value\":0,\"unit\":8,\"flag\":1";
    const std::string stream = "{ }}x{ }" + event("a\"}{", "1000000", begin) + "{\"type\":0,\"flag\":0}{ }" +
                               event("b\n", "5", "\"value\":-2.5,\"unit\":4,\"flag\":-1") +
                               event("a\"}{", "3500000", end) + event("never begun", "9", end) +
                               std::string(200000, '{') +
                               event("c", "5", "\"value\":3,\"unit\":7,\"flag\":0") + "{\"type\":";
    const HostRun run = listenWhile([&](int connection, const std::string&) {
        for (size_t sent = 0; sent < stream.size(); sent += 7)
        {
            const size_t count = std::min<size_t>(7, stream.size() - sent);
            EXPECT_EQ(send(connection, stream.data() + sent, count, MSG_NOSIGNAL), ssize_t(count));
        }
    });
    EXPECT_EQ(run.out, "counter         -2.5 B\tb?\n"
                       "span           2.500 ms\ta\"}{\n"
                       "counter            3 \tc\n");
}

} // namespace

} // namespace mrv
