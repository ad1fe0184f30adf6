// tests/system/inspection/mrvUuidTest.cpp
#include "mrvCore/system/inspection/mrvUuid.h"

#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace mrv {
namespace {

std::string textOf(const Uuid& uuid)
{
    return uuid.getString().c_str();
}

TEST(Uuid, textFormsOfEitherCaseGiveTheBytesOfTheLittleEndianFields)
{
    const unsigned char expected[16] = { 0x6A, 0xB1, 0xC7, 0x05, 0xCF, 0xE5, 0xEB, 0x45,
                                         0xAB, 0xF1, 0x2C, 0x5B, 0x1A, 0x9A, 0xB1, 0xD3 };
    for (const char* text :
         { "05C7B16A-E5CF-45EB-ABF1-2C5B1A9AB1D3", "05c7b16a-e5cf-45eb-abf1-2c5b1a9ab1d3" })
    {
        const Uuid uuid(text);
        EXPECT_EQ(std::memcmp(&uuid, expected, sizeof(expected)), 0);
        EXPECT_EQ(textOf(uuid), "05c7b16a-e5cf-45eb-abf1-2c5b1a9ab1d3");
    }
}

TEST(Uuid, damagedTextLeavesZerosForWhatCannotBeRead)
{
    EXPECT_TRUE(Uuid("").isNull());
    EXPECT_TRUE(Uuid("ERROR").getString() == "0000000e-0000-0000-0000-000000000000");
    EXPECT_EQ(textOf(Uuid("b59741ec-4b1e")), "b59741ec-4b1e-0000-0000-000000000000");
    EXPECT_EQ(textOf(Uuid("b59741ec-4b1e-4e6c-a758-86c4")), "b59741ec-4b1e-4e6c-a758-86c400000000");
}

struct SumCase
{
    const char* left;
    const char* right;
    const char* sum;
};

// Worked out apart from the library: 32- and 16-bit groups left + 2 right, bytes right + 2 left.
const SumCase sumCases[] = {
    { "f7ef84a0-6994-497f-9b90-4d37d2ef7670", "e7aba3a3-34e5-414f-95ad-f1b0a3163240",
      "c746cbe6-d35e-cc1d-cbcd-8b1e47f41e20" },
    { "e7aba3a3-34e5-414f-95ad-f1b0a3163240", "f7ef84a0-6994-497f-9b90-4d37d2ef7670",
      "d78aace3-080d-d44d-c5ea-2f97181bdaf0" },
    { "ffffffff-ffff-ffff-ffff-ffffffffffff", "80000001-8001-8001-0101-010101010101",
      "00000001-0001-0001-ffff-ffffffffffff" },
};

TEST(Uuid, sumsDoubleTheRightIntegersAndTheLeftBytes)
{
    for (const SumCase& row : sumCases)
        EXPECT_EQ(textOf(Uuid(row.left) + Uuid(row.right)), row.sum) << row.left << " + " << row.right;
    EXPECT_EQ(textOf(Uuid("ffffffff-0000-0000-0000-000000000000") + 3u),
              "00000002-0000-0000-0000-000000000000");
}

TEST(Uuid, orderIsThatOfTheBytesSoTheLowByteOfTheFirstGroupLeads)
{
    const Uuid low("ff000001-0000-0000-0000-000000000000");
    const Uuid high("00000002-0000-0000-0000-000000000000");
    const Uuid unsignedHigh("00000080-0000-0000-0000-000000000000");
    EXPECT_TRUE(low < high && high > low && !(high < low));
    EXPECT_TRUE(high < unsignedHigh);
    EXPECT_TRUE(low != high && low == Uuid(low));
}

TEST(Uuid, freshIdentifiersAreRandomOnesAndDiffer)
{
    Uuid first, second;
    first.createUuid();
    second.createUuid();
    EXPECT_NE(textOf(first), textOf(second));
    const std::string text = textOf(first);
    EXPECT_EQ(text[14], '4');
    EXPECT_NE(std::string("89ab").find(text[19]), std::string::npos) << text;
}

} // namespace
} // namespace mrv
