// tests/utils/mrvEncodingsTest.cpp
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/utils/mrvBase64.h"
#include "mrvCore/utils/mrvColors.h"
#include "mrvCore/utils/mrvHash.h"
#include "mrvCore/utils/mrvHostFacts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using namespace mrv;

namespace {

const unsigned char* bytesOf(const char* text)
{
    return reinterpret_cast<const unsigned char*>(text);
}

MrvString decode(const MrvString& text)
{
    return base64_decode(bytesOf(text.c_str()), static_cast<unsigned int>(text.size()));
}

TEST(Base64, agreesWithThePublishedVectors)
{
    const char* const rows[][2] = { { "", "" },
                                    { "f", "Zg==" },
                                    { "fo", "Zm8=" },
                                    { "foo", "Zm9v" },
                                    { "foob", "Zm9vYg==" },
                                    { "fooba", "Zm9vYmE=" },
                                    { "foobar", "Zm9vYmFy" } };
    for (const auto& row : rows)
    {
        EXPECT_EQ(base64_encode(bytesOf(row[0]), static_cast<unsigned int>(std::strlen(row[0]))), row[1]);
        EXPECT_EQ(decode(row[1]), row[0]);
    }
}

TEST(Base64, decodingEndsAtThePaddingAndAtForeignCharacters)
{
    const char* const rows[][2] = { { "Zm9v=YmFy", "foo" },  { "Zm9vYm\nFy", "foob" },
                                    { "Zm9vYmF-", "fooba" }, { "Z", "" },
                                    { "\xff", "" },          { "=", "" } };
    for (const auto& row : rows)
        EXPECT_EQ(decode(row[0]), row[1]) << row[0];
}

TEST(Base64, bringsEveryByteBackAtEveryPlace)
{
    unsigned char bytes[258];
    for (unsigned int i = 0; i < 258; ++i)
        bytes[i] = static_cast<unsigned char>(i * 7);
    for (unsigned int count = 250; count <= 258; ++count)
        EXPECT_EQ(decode(base64_encode(bytes, count)), MrvString(reinterpret_cast<char*>(bytes), count));
}

TEST(Hash, agreesWithThePublishedFunctions)
{
    struct Row
    {
        const char* text;
        uint32_t ofText, ofBytes;
    };
    const Row rows[] = {
        { "", 0, 0 },
        { "a", 0x00000061, 0x115ea782 },
        { "ab", 0, 0x516b8b44 },
        { "abc", 0x0018717b, 0xd2be198a },
        { "joint_12", 0xef6e876d, 0x406805a2 },
        { "\xc3\xa9", 0x0000e1a7, 0xc4fba554 },
        { "\xff\x80"
          "cdefg",
          0, 0xa2d4bf20 },
    };
    for (const Row& row : rows)
    {
        const bool isTold = row.ofText != 0 || *row.text == '\0';
        EXPECT_EQ(isTold ? getHashCode(row.text) : 0, row.ofText) << row.text;
        EXPECT_EQ(getHashCode(row.text, static_cast<int>(std::strlen(row.text))), row.ofBytes) << row.text;
    }
    EXPECT_EQ(stb_hash_fast(nullptr, 5), 0u);
    EXPECT_EQ(stb_hash_fast("abc", -1), 0u);
    EXPECT_EQ(stb_hash_number(1), 0x32c8009bu);
    EXPECT_EQ(stb_hash_number(0xffffffffu), 0xf1b80078u);
}

TEST(Colors, goThroughHueSaturationAndLightness)
{
    const float rows[][6] = {
        { 0.3f, 0.3f, 0.3f, 0.0f, 0.0f, 0.3f },       { 1.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.5f },
        { 1.0f, 0.0f, 0.5f, 11 / 12.0f, 1.0f, 0.5f }, { 0.0f, 0.5f, 0.0f, 1 / 3.0f, 1.0f, 0.25f },
        { 0.6f, 0.6f, 1.0f, 2 / 3.0f, 1.0f, 0.8f },   { 0.25f, 0.75f, 0.75f, 0.5f, 0.5f, 0.5f },
    };
    for (const auto& row : rows)
    {
        float out[6];
        rbgToHsl(row[0], row[1], row[2], out[3], out[4], out[5]);
        hslToRgb(row[3], row[4], row[5], out[0], out[1], out[2]);
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(out[i], row[i], 1e-5f) << row[0] << ' ' << row[1] << ' ' << row[2] << ": " << i;
    }
}

TEST(Colors, changesAreClampedAndGoTowardsTheEnds)
{
    // Changes of a colour, and what becomes of (1, 0, 0).
    const float rows[][6] = {
        { 2.0f, 0.0f, 0.0f, 0.0f, 1.0f, 1.0f },  { -1.0f, 0.0f, 0.0f, 0.0f, 1.0f, 1.0f },
        { 0.0f, -1.0f, 0.0f, 0.5f, 0.5f, 0.5f }, { 0.0f, 0.0f, 0.5f, 1.0f, 0.5f, 0.5f },
        { 0.0f, 0.0f, -9.0f, 0.0f, 0.0f, 0.0f }, { -1e-9f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f },
    };
    for (const auto& row : rows)
    {
        float out[3];
        changeColorHSL(1.0f, 0.0f, 0.0f, row[0], row[1], row[2], out[0], out[1], out[2]);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(out[i], row[3 + i], 1e-5f) << row[0] << ' ' << row[1] << ' ' << row[2] << ": " << i;
    }
}

TEST(Colors, compareByChannelOrByLightness)
{
    const uint32_t dark = getColor(10, 20, 30, 255);
    const uint32_t light = getColor(10, 20, 34, 0); // lighter by 2
    EXPECT_EQ(dark, 0xff1e140au);
    using Op = ComparisonOperator;
    struct Row
    {
        uint32_t a, b;
        float tolerance;
        const char* results; // in the order of the operators
    };
    const Row rows[] = {
        { dark, dark ^ 0xff000000u, 0.0f, "1010011" },
        { dark, light, 0.0f, "0111000" },
        { dark, light, 2.0f, "0111010" },
        { light, dark, 3.0f, "0111110" },
        { dark, light, 4.0f, "1011111" },
    };
    for (const Row& row : rows)
        for (int op = Op::EQUAL; op <= Op::END; ++op)
            EXPECT_EQ(compareColors(row.a, static_cast<Op::Value>(op), row.b, row.tolerance),
                      row.results[op] == '1')
                << op << ' ' << row.tolerance << ' ' << row.a;
}

TEST(HostFacts, areTold)
{
    MrvString name;
    getHostName(name);
    EXPECT_FALSE(name.empty());
    EXPECT_GE(getNumCores(), 1);
}

} // namespace
