// tests/system/utils/mrvNumberTextTest.cpp
// Numbers as text against real streams, which are the rule.
#include "mrvCore/system/utils/mrvNumberText.h"

#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>

namespace mrv {
namespace {

/// What a stream writes: the rule that every stored file follows.
template <class T>
std::string streamed(T value)
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.precision(32);
    stream << value;
    return stream.str();
}

/// Reads a text by both: result and value must be the same, to the bit.
template <class T>
void expectReadAsByStream(const std::string& text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    T expected = T(77);
    const bool isRead = static_cast<bool>(stream >> expected);
    T value = T(77);
    EXPECT_EQ(parseNumber(MrvString(text), value), isRead) << '\'' << text << '\'';
    EXPECT_EQ(std::memcmp(&value, &expected, sizeof(T)), 0)
        << '\'' << text << "' read as " << value << ", not as " << expected;
}

template <class T>
class NumberTextOf : public testing::Test
{};
using NumberTypes =
    testing::Types<short, unsigned short, int, unsigned int, long, unsigned long, float, double>;
TYPED_TEST_SUITE(NumberTextOf, NumberTypes);

TYPED_TEST(NumberTextOf, isWrittenAndReadAsByAStream)
{
    const CommaLocale commas; // of the host, which files do not follow
    using Limits = std::numeric_limits<TypeParam>;
    std::mt19937_64 random(20);
    for (int i = 0; i < 20000; ++i)
    {
        const uint64_t word = random();
        TypeParam value = static_cast<TypeParam>(word % 1000);
        if (i % 3 == 0)
            std::memcpy(&value, &word,
                        sizeof(value)); // any bits: tiny ones, infinities and no numbers as well
        else if (i % 3 == 1)
            value = static_cast<TypeParam>(value / static_cast<TypeParam>(1 + (word >> 40) % 999));
        if (i < 4)
            value = i == 0   ? Limits::max()
                    : i == 1 ? Limits::lowest()
                    : i == 2 ? Limits::min()
                             : Limits::infinity();

        const NumberText text(value);
        ASSERT_EQ(std::string(text.c_str()), streamed(value));
        ASSERT_EQ(text.size(), std::strlen(text.c_str()));
        expectReadAsByStream<TypeParam>(text.c_str());
    }
}

TYPED_TEST(NumberTextOf, readsTheOddTextsThatAStreamReads)
{
    for (const char* text : { "",
                              " ",
                              "-",
                              "+",
                              ".",
                              "x",
                              "0",
                              "-0",
                              "+7",
                              "-7",
                              " 12",
                              "12 ",
                              "\t\n\v\f\r5",
                              "1x",
                              "1 2",
                              "1,5",
                              "0x10",
                              "010",
                              "1e",
                              "1e+",
                              "1e5",
                              "1e5x",
                              "1e5.5",
                              "1.5",
                              "1.",
                              ".5",
                              "-.5",
                              "1..5",
                              "1-",
                              "--1",
                              "+-1",
                              "- 1",
                              "inf",
                              "-inf",
                              "nan",
                              "infinity",
                              "1e999",
                              "-1e999",
                              "1e-999",
                              "1e-45",
                              "7e-46",
                              "3.4028235e38",
                              "3.5e38",
                              "1.8e308",
                              "2e308",
                              "32767",
                              "32768",
                              "-32768",
                              "-32769",
                              "65535",
                              "65536",
                              "2147483647",
                              "2147483648",
                              "-2147483649",
                              "4294967295",
                              "4294967296",
                              "-4294967295",
                              "-4294967297",
                              "9223372036854775807",
                              "9223372036854775808",
                              "18446744073709551615",
                              "18446744073709551616",
                              "-18446744073709551616",
                              "0.100000001490116119384765625000000000000000000000000000001",
                              "true",
                              "\xc2\xa0"
                              "5" })
        expectReadAsByStream<TypeParam>(text);
    expectReadAsByStream<TypeParam>(std::string("1\0"
                                                "2",
                                                3));
    expectReadAsByStream<TypeParam>(std::string(5000, '0') + "1");
    expectReadAsByStream<TypeParam>("0." + std::string(400, '0') + "1");

    // Cuts and joints of number-like characters.
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i)
    {
        std::string text;
        for (auto size = 1 + random() % 9; text.size() < size;)
            text += "0123456789+-.eE x,"[random() % 18];
        expectReadAsByStream<TypeParam>(text);
    }
}

// Texts around the middle between two neighbours, where a rounding done twice would go wrong.
TEST(NumberText, readsTheNearestFloatOfTextsThatHangOnTheLastDigit)
{
    std::mt19937 engine(11);
    for (int i = 0; i < 2000; ++i)
    {
        const uint32_t bits = 0x38000000u + engine() % 0x10000000u; // 3e-5 to 1.6e5
        float value = 0.0f;
        std::memcpy(&value, &bits, sizeof(value));
        const double middle = (static_cast<double>(value) + std::nextafter(value, 1e30f)) / 2;
        char text[64];
        for (const int digits : { 6, 9, 17, 19, 20, 60 })
        {
            std::snprintf(text, sizeof(text), "%.*f", digits, middle);
            expectReadAsByStream<float>(text);
        }
    }
}

TEST(NumberText, readsLongTextsUpToWhatIsNoDigit)
{
    const std::string good = "-10.234567890123456789012345678901";
    for (size_t size = 1; size <= good.size(); ++size)
        for (size_t i = 0; i < size; ++i)
            for (const char strange : std::string("x. -/:\xf0"))
            {
                std::string text = good.substr(0, size);
                text[i] = strange;
                expectReadAsByStream<float>(text);
                expectReadAsByStream<double>(text);
            }
}

TEST(NumberText, writesABoolAsADigit)
{
    EXPECT_STREQ(NumberText(true).c_str(), "1");
    EXPECT_STREQ(NumberText(false).c_str(), "0");
}

} // namespace
} // namespace mrv
