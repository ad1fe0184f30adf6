// tests/assetManagement/mrvBlindDataTest.cpp
#include "mrvCore/assetManagement/mrvBlindData.h"

#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "tests/support/mrvCoreFixture.h"

#include <cmath>
#include <string>
#include <vector>

namespace mrv {
namespace {

using Record = std::vector<float>;

// Two floats in front, so that a wrong index shows.
constexpr size_t place = 2;

PODArray<float> arrayOf(const Record& record)
{
    PODArray<float> values(place, 77.0f);
    for (const float value : record)
        values.push_back(value);
    return values;
}

Record recordOf(const PODArray<float>& values)
{
    EXPECT_EQ(values[0], 77.0f);
    EXPECT_EQ(values[1], 77.0f);
    return Record(values.begin() + place, values.end());
}

void expectNear(const Record& actual, const Record& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-6f) << i;
}

const float halfRoot = std::sqrt(0.5f);
const float quarterSine = std::sin(0.39269908f), quarterCosine = std::cos(0.39269908f);
const Record neutral = { 0, 0, 0, 0, 0, 0, 0, 1 };
const Record zero(8, 0.0f);
const Record quarterTurn = { 1, 2, 4, 6, 0, 0, halfRoot, halfRoot };
const Record mirroredTurn = { 1, 2, 4, 6, 0, 0, -halfRoot, -halfRoot };
const Record halfWay = { 0.5f, 1, 2, 3, 0, 0, quarterSine, quarterCosine };

using Operation = void (*)(PODArray<float>&, size_t, const PODArray<float>&, size_t, float);

struct CombineCase
{
    const char* name;
    Operation operation;
    Record own, other;
    float factor;
    Record result;
};

constexpr Operation add = &BlindDataV1::specificAnimationBlindDataAdd;
constexpr Operation blend = &BlindDataV1::specificAnimationBlindDataBlend;

const CombineCase combineCases[] = {
    { "addHalf", add, neutral, quarterTurn, 0.5f, halfWay },
    { "addHalfToNothing", add, zero, quarterTurn, 0.5f, halfWay },
    { "addNothing", add, quarterTurn, zero, 0.5f, quarterTurn },
    { "addWholeReplacesTheRotation",
      add,
      quarterTurn,
      quarterTurn,
      1.0f,
      { 2, 4, 8, 12, 0, 0, halfRoot, halfRoot } },
    { "blendNone", blend, zero, quarterTurn, 0.0f, zero },
    { "blendHalf", blend, zero, quarterTurn, 0.5f, halfWay },
    { "blendTheShortWay", blend, neutral, mirroredTurn, 0.5f, halfWay },
    { "blendWhole", blend, neutral, mirroredTurn, 1.0f, mirroredTurn },
    { "blendDoesNotExtrapolate", blend, neutral, quarterTurn, 1.5f, quarterTurn },
    { "blendGoesBackwards",
      blend,
      quarterTurn,
      { 1, 2, 4, 8, 0, 0, halfRoot, halfRoot },
      -0.5f,
      { 1, 2, 4, 5, 0, 0, halfRoot, halfRoot } },
};

class BlindDataRecords : public testing::TestWithParam<CombineCase>
{};

TEST_P(BlindDataRecords, combine)
{
    const CombineCase& row = GetParam();
    PODArray<float> values = arrayOf(row.own);
    row.operation(values, place, arrayOf(row.other), place, row.factor);
    expectNear(recordOf(values), row.result);
}

INSTANTIATE_TEST_SUITE_P(Table, BlindDataRecords, testing::ValuesIn(combineCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct ReadCase
{
    const char* name;
    Record record;
    Record result; ///< weight, translation, rotation
};

const ReadCase readCases[] = {
    { "normalises", { 3, 1, 2, 3, 0, 0, 5, 0 }, { 3, 1, 2, 3, 0, 0, 1, 0 } },
    { "allZero", zero, neutral },
    { "tooShortForARotation", { 1, 0, 0, 0, 0.03f, 0, 0, 0 }, { 1, 0, 0, 0, 0, 0, 0, 1 } },
    { "longEnoughForARotation", { 1, 0, 0, 0, 0.04f, 0, 0, 0 }, { 1, 0, 0, 0, 1, 0, 0, 0 } },
    { "cutArray", { 9, 9, 9, 9, 9, 9, 9 }, neutral },
};

class BlindDataReading : public CoreTest, public testing::WithParamInterface<ReadCase>
{};

TEST_P(BlindDataReading, givesARotation)
{
    Vector3 translation(5.0f);
    Quaternion rotation;
    float weight = 5.0f;
    BlindDataV1::blindDataToTransformValues(translation, rotation, weight, arrayOf(GetParam().record), place);
    expectNear({ weight, translation.x, translation.y, translation.z, rotation.x, rotation.y, rotation.z,
                 rotation.w },
               GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Table, BlindDataReading, testing::ValuesIn(readCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BlindData, recordsAreWrittenAtTheirPlace)
{
    PODArray<float> values = arrayOf(zero);
    BlindDataV1::transformValuesToBlindData(values, place, Vector3(1.0f, 2.0f, 3.0f),
                                            Quaternion(4.0f, 5.0f, 6.0f, 7.0f), 8.0f);
    EXPECT_EQ(recordOf(values), (Record{ 8, 1, 2, 3, 4, 5, 6, 7 }));
    BlindDataV1::specificAnimationBlindDataClear(values, place);
    EXPECT_EQ(recordOf(values), neutral);
}

TEST(BlindData, aSpecificAnimationHasEightChannels)
{
    Array<BlindDataV1> channels(1);
    BlindDataV1::addSpecificAnimationBlindDataInfo(channels, "dance");
    const char* suffixes[] = { "totalAnimWeight", "tX", "tY", "tZ", "qX", "qY", "qZ", "qW" };
    ASSERT_EQ(channels.size(), 9u);
    for (size_t i = 0; i < 8; ++i)
    {
        BlindDataV1 expected;
        expected._groupName = "specificAnimation";
        expected._name = MrvString("dance.") + suffixes[i];
        expected._type = BlindDataV1::Type::SPECIFIC_ANIMATION;
        expected._floatCount = 1;
        expected._firstValueIndex = 5;
        EXPECT_TRUE(channels[i + 1] == expected) << suffixes[i];
    }
}

/// A channel as "group/name" and a type.
BlindDataV1 channel(const std::string& text, BlindDataV1::Type::Value type = BlindDataV1::Type::BLIND)
{
    BlindDataV1 result;
    result._groupName = text.substr(0, text.find('/'));
    result._name = text.substr(text.find('/') + 1);
    result._type = type;
    return result;
}

struct AutomapCase
{
    const char* name;
    int mode;
    std::vector<BlindDataV1> source, target;
    std::vector<BlindDataV1::Type::Value> types;
    std::vector<int> result;
};

constexpr BlindDataV1::Type::Value shape = BlindDataV1::Type::BLENDSHAPE;
const BlindDataV1 a = channel("g/a"), b = channel("g/b"), shapeA = channel("g/a", shape);

const AutomapCase automapCases[] = {
    { "byPosition", 0, { a, b, a }, { b, b }, {}, { 0, 1, -1 } },
    { "byPositionWithoutTarget", 0, { a }, {}, {}, { -1 } },
    { "byPositionWithoutSource", 0, {}, { a }, {}, {} },
    { "byNameTakesTheFirst", 1, { a, b, a }, { b, a, a }, {}, { 1, 0, 1 } },
    { "typesMustAgree", 1, { a, shapeA }, { shapeA, a }, {}, { 1, 0 } },
    { "typesAreLimited", 1, { a, shapeA }, { shapeA, a }, { shape }, { -1, 0 } },
    { "groupsMustAgree", 1, { a }, { channel("h/a") }, {}, { -1 } },
    { "noGroupMatchesAny", 1, { a, channel("/b") }, { channel("/a"), b }, {}, { 0, 1 } },
    { "unknownMode", 2, { a }, { a }, {}, { -1 } },
};

template <typename T>
Array<T> toArray(const std::vector<T>& elements)
{
    Array<T> array;
    array.insert(array.end(), elements.data(), elements.data() + elements.size());
    return array;
}

class AutomapBlindData : public testing::TestWithParam<AutomapCase>
{};

TEST_P(AutomapBlindData, pairsChannels)
{
    const AutomapCase& row = GetParam();
    PODArray<int> mapping(3, 5);
    automapBlindData(mapping, toArray(row.source), toArray(row.target), row.mode, toArray(row.types));
    EXPECT_EQ(std::vector<int>(mapping.begin(), mapping.end()), row.result);
}

INSTANTIATE_TEST_SUITE_P(Table, AutomapBlindData, testing::ValuesIn(automapCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace mrv
