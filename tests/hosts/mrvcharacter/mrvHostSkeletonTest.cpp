// tests/hosts/mrvcharacter/mrvHostSkeletonTest.cpp
// Skeletons that the batch host takes from others, and what it finds in them by itself.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include "mrvCore/utils/mrvPNG.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace mrv {

namespace {

using Json = nlohmann::json;

const std::string rigs = MRV_EXTRA_DATA "/data/skeletons/";

Json getInfo(const std::string& file)
{
    return Json::parse(runWell({ "info", "--json", file }).out, nullptr, false);
}

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
    folder.write("chain.csv", "index,name,parent,px,py,pz,qx,qy,qz,qw\n"
                              "0,root,-1,0,0,1,0,0,0,1\n1,a,0,0,0,1,0,0,0,1\n");
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

} // namespace

} // namespace mrv
