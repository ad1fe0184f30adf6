// tests/deep/mrvDeepIOConfTest.cpp
#include "mrvCore/deep/mrvDeepIOConf.h"

#include "mrvCore/external/json/mrvJson.h"
#include "tests/support/mrvCommaLocale.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <climits>
#include <filesystem>

using namespace mrv;

namespace {

const char* const defaultText = R"({
    "assetRootName": "body:arm",
    "rigJoints": [
        "hip",
        "knee"
    ],
    "rigMatrices": [],
    "rigFloats": [],
    "outputs": [],
    "baseOutputs": [],
    "outputRefs": [],
    "mainDirectory": "./results",
    "type": "DeepInOutConfiguration",
    "displacementTreshold": 0.0010000000474974513,
    "epochs": 2000,
    "epochsSubspace": 500,
    "batchDivider": 4,
    "anchorPointsRatio": 0.019999999552965164,
    "customAnchorIndices": [
        -1,
        1000000
    ],
    "validationPercent": 10,
    "trainingSeed": 0,
    "learningRate": 0.0010000000474974513,
    "learningRateDecayEpochs": 100,
    "learningRateDecayDivider": 2,
    "earlyExitCount": 1,
    "cpuThreads": 4,
    "cudaForDifferential": true,
    "cudaForSubspaces": false,
    "samplingDirectory": "extraction",
    "samplingModeIndex": 2,
    "startFrame": 0,
    "endFrame": 0,
    "discardIdentical": true,
    "useBinary": true,
    "apiVersion": 2
}
)";

TEST(DeepIOConf, writesTheTextOfTheFormatAndReadsItBack)
{
    const CommaLocale comma;
    const TemporaryFolder folder;
    DeepIOConf conf;
    conf._assetName = "body:arm";
    conf._rigJoints = { "hip", "knee" };
    conf._anchorPointsIndicesOverride = { -1, 1000000 };
    conf._samplingModeIndex = DeepIOConf::SamplingMode::TIME_RANGE;
    conf._outputDir = folder.path("results").c_str();
    conf._neuronCount = 7; // comes in only
    ASSERT_TRUE(conf.save(folder.path("a.json").c_str()));
    EXPECT_EQ(conf._outputDir, "./results");
    EXPECT_EQ(folder.read("a.json"), defaultText);

    DeepIOConf again;
    ASSERT_TRUE(again.load(folder.path("a.json").c_str()));
    EXPECT_EQ(MrvString(again._outputDir), folder.path("results"));
    EXPECT_EQ(again._neuronCount, 2048u);
    EXPECT_EQ(again.getModelRootPath("m"), again._outputDir + "/m/body_arm");
    ASSERT_TRUE(again.save(folder.path("a.json").c_str()));
    EXPECT_EQ(folder.read("a.json"), defaultText);
}

TEST(DeepIOConf, readsOptionalKeysAndNoOthers)
{
    const TemporaryFolder folder;
    struct Row
    {
        const char* text;
        unsigned int epochs, epochsSubspace, neuronCount;
    };
    const Row rows[] = {
        { "{}", 2000, 2000, 2048 },
        { "[1, 2]", 2000, 500, 2048 },
        { R"({"epochs": 7, "neuronCount": 3, "type": 5})", 7, 7, 2048 },
        { R"({"epochsSubspace": 9, "neuronCount ": 3})", 2000, 9, 3 },
    };
    for (const Row& row : rows)
    {
        DeepIOConf conf;
        EXPECT_TRUE(conf.load(folder.write("b.json", row.text).c_str()));
        EXPECT_EQ(conf._epochs, row.epochs) << row.text;
        EXPECT_EQ(conf._epochsSubspace, row.epochsSubspace) << row.text;
        EXPECT_EQ(conf._neuronCount, row.neuronCount) << row.text;
    }
}

TEST(DeepIOConf, placesTheOutputBesideTheFile)
{
    const TemporaryFolder folder;
    const std::string here = std::string(folder.path().c_str()) + '/';
    const std::string rows[][2] = { { "./r/s", here + "r/s" },
                                    { R"(.\\r\\s)", here + "r/s" },
                                    { "./.", here },
                                    { "./r.", here + "r" },
                                    { "./", here },
                                    { ".", "." },
                                    { R"(c:\\r)", "c:/r" },
                                    { "../r", "../r" } };
    for (const auto& row : rows)
    {
        DeepIOConf conf;
        conf.load(folder.write("c.json", R"({"mainDirectory": ")" + row[0] + "\"}").c_str());
        EXPECT_EQ(conf._outputDir, row[1]) << row[0];
    }
    DeepIOConf conf;
    conf._outputDir = "/elsewhere/r";
    EXPECT_TRUE(conf.save(folder.path("c.json").c_str()));
    EXPECT_EQ(conf._outputDir, "/elsewhere/r");
}

TEST(DeepIOConf, badFilesGiveFalseOrTheExceptionAndKeepWhatWasRead)
{
    const TemporaryFolder folder;
    DeepIOConf conf;
    EXPECT_FALSE(conf.load(folder.path("none.json").c_str()));
    EXPECT_EQ(MrvString(conf._filePath), folder.path("none.json"));
    EXPECT_FALSE(conf.load(folder.path().c_str()));
    EXPECT_FALSE(conf.save(folder.path("none/a.json").c_str()));

    const char* const noJson[] = { "", "{", "{\"epochs\": 1", "\xff" };
    for (const char* const text : noJson)
        EXPECT_THROW(conf.load(folder.write("d.json", text).c_str()), nlohmann::json::parse_error) << text;
    const MrvString wrong = folder.write("d.json", R"({"epochs": 5, "cpuThreads": "x", "rigJoints": ["a"]})");
    EXPECT_THROW(conf.load(wrong.c_str()), nlohmann::json::type_error);
    EXPECT_EQ(conf._epochs, 5u);
    EXPECT_EQ(conf._rigJoints.size(), 1u);

    const char* const beyondRange[] = { "{\"epochs\": 1e99}", "{\"endFrame\": -2147483649.0}",
                                        "{\"samplingModeIndex\": 4e9}",
                                        "{\"customAnchorIndices\": [1, -1e20]}",
                                        "{\"learningRate\": -3.5e38}" };
    for (const char* const text : beyondRange)
        EXPECT_THROW(conf.load(folder.write("e.json", text).c_str()), nlohmann::json::out_of_range) << text;
    EXPECT_TRUE(conf.load(folder.write("e.json", "{\"endFrame\": -2147483648.5, \"epochs\": 7.9}").c_str()));
    EXPECT_EQ(conf._endFrame, INT_MIN);
    EXPECT_EQ(conf._epochs, 7u);
    std::filesystem::remove(folder.path("e.json").c_str());

    const std::string former = folder.read("d.json");
    conf._assetName = "\xff";
    EXPECT_THROW(conf.save(wrong.c_str()), nlohmann::json::type_error);
    EXPECT_EQ(folder.read("d.json"), former);
    EXPECT_EQ(folder.countEntries(), 1u);
}

TEST(Json, holdsTheTextType)
{
    const nlohmann::json json = MrvString("a\0b", 3);
    EXPECT_EQ(json.get<MrvString>(), MrvString("a\0b", 3));
    MrvString text("kept");
    try
    {
        nlohmann::json(5).get_to(text);
        ADD_FAILURE();
    }
    catch (const nlohmann::json::type_error& error)
    {
        EXPECT_EQ(error.id, 302);
        EXPECT_NE(std::string(error.what()).find("type must be string, but is number"), std::string::npos);
    }
    EXPECT_EQ(text, "kept");
}

} // namespace
