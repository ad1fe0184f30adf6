// tests/hosts/mrvcharacter/mrvHostCommandTest.cpp
// What each sub-command prints and how it ends, for one command line a row.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include <sstream>

namespace mrv {

namespace {

const std::string mappings = MRV_TEST_DATA "/mappings/";

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

} // namespace

} // namespace mrv
