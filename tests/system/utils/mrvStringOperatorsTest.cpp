// tests/system/utils/mrvStringOperatorsTest.cpp
#include "mrvCore/system/utils/mrvStringOperators.h"

#include "mrvCore/system/log/mrvILogger.h"
#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <utility>

namespace mrv {
namespace {

/// A list in one line, in which empty pieces show.
MrvString joined(const Array<MrvString>& pieces)
{
    MrvString text;
    for (const MrvString& piece : pieces)
        text += "<" + piece + ">";
    return text;
}

TEST(StringOperators, testsOfEndsStayInsideTheText)
{
    const std::pair<const char*, size_t> standing[] = {
        { "", 0 }, { "", 3 }, { "b", 1 }, { "bc", 1 }, { "abc", 0 }
    };
    for (const auto& [prefix, position] : standing)
        EXPECT_TRUE(startsWith("abc", prefix, position)) << prefix << " at " << position;
    const size_t npos = MrvString::npos;
    const std::pair<const char*, size_t> absent[] = {
        { "", 4 }, { "", npos }, { "a", npos }, { "b", 0 }, { "bcd", 1 }
    };
    for (const auto& [prefix, position] : absent)
        EXPECT_FALSE(startsWith("abc", prefix, position)) << prefix << " at " << position;

    for (const char* suffix : { "", "c", "bc", "abc" })
        EXPECT_TRUE(endsWith("abc", suffix)) << suffix;
    for (const char* suffix : { "b", "xabc", "ab" })
        EXPECT_FALSE(endsWith("abc", suffix)) << suffix;
}

TEST(StringOperators, replacedTextIsNotSearchedAgain)
{
    EXPECT_EQ(replaceString("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceString("aaaab", "aa", "a"), "aab");
    EXPECT_EQ(replaceString("abc", "", "x"), "abc");
    EXPECT_EQ(replaceString("a-b-", "-", ""), "ab");
    EXPECT_EQ(replaceChar("a/b/", '/', '\\'), "a\\b\\");
    EXPECT_EQ(toUpper("aZ1\xe4{`"), "AZ1\xe4{`");
    EXPECT_EQ(toLower("Az1\xc4[@"), "az1\xc4[@");
}

TEST(StringOperators, anyNameBecomesAnIdentifier)
{
    const char* const rows[][2] = {
        { "run cycle", "runCycle" },
        { "a  b", "a b" },
        { "a -b", "a-b" },
        { "a-b.c", "a_b_c" },
        { "abc", "abc" },
        { "a_b", "a_b" },
        { "", "" },
        { "a ", "a" },
        { "   ", " " },
        { "a\tb", "a_b" },
        { "\xe4", "_" },
        { " \xe4", "\xe4" },
    };
    alphaNumericCopiesBufferIndex = 0;
    for (const auto& [source, expected] : rows)
    {
        SCOPED_TRACE(source);
        const bool changed = std::strcmp(source, expected) != 0;

        MrvString inPlace(source);
        alphaNumerizeName(inPlace);
        EXPECT_EQ(inPlace, expected);

        char copy[16];
        EXPECT_EQ(alphaNumerizeNameWithCopy(source, copy), changed);
        EXPECT_STREQ(copy, expected);

        const size_t formerIndex = alphaNumericCopiesBufferIndex;
        const char* const text = alphaNumerizeNameStr(source);
        EXPECT_STREQ(text, expected);
        EXPECT_EQ(text != source, changed);
        EXPECT_EQ(alphaNumericCopiesBufferIndex - formerIndex, changed ? std::strlen(expected) + 1 : 0);
    }
}

TEST(StringOperatorsDeathTest, theArenaOfNamesMayBeFilledToTheLastByteButNotBeyond)
{
    alphaNumericCopiesBufferIndex = ALPHANUM_BUFFER_SIZE - 8;
    const char* const first = alphaNumerizeNameStr("a-b");
    const char* const second = alphaNumerizeNameStr("c-d");
    EXPECT_STREQ(first, "a_b");
    EXPECT_STREQ(second, "c_d");
    EXPECT_EQ(alphaNumerizeNameStr("clean"), std::string("clean")) << "needs no room";
    EXPECT_DEATH(alphaNumerizeNameStr("-"), "alphaNumericCopiesBufferIndex <= ALPHANUM_BUFFER_SIZE");
    alphaNumericCopiesBufferIndex = 0;
}

template <typename T>
std::string streamed(T value)
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value;
    return stream.str();
}

TEST(StringOperators, numbersAreWrittenAsTheClassicStreamWritesThem)
{
    const CommaLocale locale;
    const double special[] = { 0.0,  -0.0, 0.1,   1.5,    100000.0, 999999.5,  1e6,         1234567.0,
                               1e-4, 1e-5, 1e300, 5e-324, HUGE_VAL, -HUGE_VAL, std::nan("") };
    for (const double value : special)
    {
        EXPECT_EQ(MrvString() + value, streamed(value).c_str());
        EXPECT_EQ(MrvString() + float(value), streamed(float(value)).c_str());
    }
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i)
    {
        const unsigned int bits = static_cast<unsigned int>(random());
        float value;
        std::memcpy(&value, &bits, sizeof(value));
        ASSERT_EQ(MrvString() + value, streamed(value).c_str());
        ASSERT_EQ(MrvString() + bits, streamed(bits).c_str());
        ASSERT_EQ(MrvString() + int(bits), streamed(int(bits)).c_str());
    }
}

template <typename T>
std::string readBack(const char* text)
{
    T value = 0;
    return fromString<T>(text, value) ? streamed(value) : "none";
}

TEST(StringOperators, numbersAreReadAsTheClassicStreamReadsThem)
{
    const CommaLocale locale;
    const char* const rows[][4] = {
        // text, as float, as int, as long
        { "1.5", "1.5", "1", "1" },
        { " -2e3x", "-2000", "-2", "-2" },
        { "1,5", "1", "1", "1" },
        { "1.000.000", "1", "1", "1" },
        { "2147483648", "2.14748e+09", "none", "2147483648" },
        { "9223372036854775808", "9.22337e+18", "none", "none" },
        { "1e99", "none", "1", "1" },
        { "x", "none", "none", "none" },
        { "", "none", "none", "none" },
    };
    for (const auto& [text, asFloat, asInt, asLong] : rows)
    {
        EXPECT_EQ(readBack<float>(text), asFloat) << text;
        EXPECT_EQ(readBack<int>(text), asInt) << text;
        EXPECT_EQ(readBack<long>(text), asLong) << text;
    }
}

TEST(StringOperators, splitKeepsEmptyPiecesAndJoiningUndoesIt)
{
    const char* const rows[][3] = {
        { ",a,", ",", "<><a><>" }, { "", ",", "<>" },       { "a,,b", ",", "<a><><b>" },
        { "a,b", "", "<a,b>" },    { "abc", ",", "<abc>" }, { "a::b:c", "::", "<a><b:c>" },
        { "aaa", "aa", "<><a>" },  { ",", ",", "<><>" },
    };
    for (const auto& [text, separator, pieces] : rows)
    {
        const Array<MrvString> split = stringToStringArray(text, separator);
        EXPECT_EQ(joined(split), pieces);
        EXPECT_EQ(stringArrayToString(split, separator), text);
    }
    EXPECT_EQ(stringArrayToString(Array<MrvString>(), ","), "");
}

TEST(StringOperators, arraysOfNumbersAreJoinedWithoutTheLocale)
{
    const CommaLocale locale;
    const double doubles[] = { 0.5, -1e10, 1234567 };
    const int ints[] = { -1, 1000000 };
    const int64_t longs[] = { INT64_MIN, INT64_MAX };
    EXPECT_EQ(doubleArrayToString(PODArray<double>(3, doubles), "; "), "0.5; -1e+10; 1.23457e+06");
    EXPECT_EQ(intArrayToString(PODArray<int>(2, ints), ","), "-1,1000000");
    EXPECT_EQ(int64ArrayToString(PODArray<int64_t>(2, longs), ","),
              "-9223372036854775808,9223372036854775807");
    EXPECT_EQ(intArrayToString(PODArray<int>(), ","), "");
}

/// The plain definition: the longest, and of these the first in `a`.
std::string slowCommonSubstring(const std::string& a, const std::string& b)
{
    for (size_t length = a.size(); length > 0; --length)
        for (size_t start = 0; start + length <= a.size(); ++start)
            if (b.find(a.substr(start, length)) != std::string::npos)
                return a.substr(start, length);
    return std::string();
}

TEST(StringOperators, longestCommonSubstringIsTheFirstInTheFirstText)
{
    std::mt19937 random(7);
    const auto randomText = [&] {
        std::string text(random() % 12, ' ');
        for (char& c : text)
            c = static_cast<char>('a' + random() % 3);
        return text;
    };
    MrvString common("former");
    for (int i = 0; i < 5000; ++i)
    {
        const std::string a = randomText();
        const std::string b = randomText();
        const std::string expected = slowCommonSubstring(a, b);
        ASSERT_EQ(longuestCommonSubstring(common, a, b), int(expected.size())) << a << " and " << b;
        ASSERT_EQ(common, expected.c_str()) << a << " and " << b;
    }
    MrvString endless;
    endless.append(size_t(1) << 23, 'x'); // far more than a stack holds
    endless += "ab";
    EXPECT_EQ(longuestCommonSubstring(common, "ab", endless), 2);
    EXPECT_EQ(longuestCommonSubstring(endless, endless, "ab"), 2) << "the result may be one of the texts";
    EXPECT_EQ(endless, "ab");
}

TEST(StringOperators, dirmapChangesOnlyTheStart)
{
    const char* const rows[][4] = {
        { "/a/b", "/a", "/x", "/x/b" },    { "/b/a", "/a", "/x", "/b/a" }, { "/a/a", "/a", "/x", "/x/a" },
        { "./b/c", "^.", "/x", "/x/b/c" }, { "/b/.", "^.", "/x", "/b/." }, { "/a", "^", "/x", "/x/a" },
        { "/a", "/a/b", "/x", "/a" },      { "^a", "^^", "/x", "/xa" },    { "", "/a", "/x", "" },
    };
    for (const auto& [path, from, to, expected] : rows)
        EXPECT_EQ(dirmap(path, from, to), expected) << path << " from " << from;
}

class ReplaceEnvVars : public testing::Test
{
protected:
    ReplaceEnvVars()
    {
        setenv("MRV_A", "one", 1);
        setenv("MRV_NAME", "MRV_A", 1);
        setenv("MRV_MARKERS", "${MRV_A}%MRV_A%", 1);
        unsetenv("MRV_UNSET");
    }
    ~ReplaceEnvVars() override
    {
        for (const char* name : { "MRV_A", "MRV_NAME", "MRV_MARKERS" })
            unsetenv(name);
    }
};

TEST_F(ReplaceEnvVars, resolvesFromTheInsideAndOnce)
{
    const char* const rows[][4] = {
        { "", "${", "}", "" },
        { "a${MRV_A}b${MRV_A}", "${", "}", "aoneboneX" },
        { "${MRV_UNSET}/x", "${", "}", "/xX" },
        { "${${MRV_NAME}}", "${", "}", "oneX" },
        { "${MRV_${MRV_UNSET}A}", "${", "}", "oneX" },
        { "${MRV_MARKERS}", "${", "}", "${MRV_A}%MRV_A%X" },
        { "%MRV_MARKERS%%MRV_A%", "%", "%", "${MRV_A}%MRV_A%oneX" },
        { "100% of %MRV_A%", "%", "%", "100MRV_A%X" },
        { "%MRV_A", "%", "%", "%MRV_AX" },
        { "%MRV_A%%MRV_A", "%", "%", "one%MRV_AX" },
        { "${MRV_A}a${${MRV_A}b", "${", "}", "onea${${MRV_A}bX" },
        { "a}b${MRV_A}", "${", "}", "a}b${MRV_A}X" },
        { "<<MRV_A>", "<<", ">", "oneX" },
        { "a%MRV_A%", "", "%", "a%MRV_A%X" },
        { "a%MRV_A%", "%", "", "a%MRV_A%X" },
    };
    for (const auto& [text, open, close, expected] : rows)
        EXPECT_EQ(replaceEnvVars(text, open, close) + (*text != '\0' ? "X" : ""), expected) << text;
}

TEST_F(ReplaceEnvVars, longAndDeepTextsTakeNeitherStackNorTime)
{
    const int count = 300000;
    MrvString row;
    MrvString opened;
    MrvString ones;
    for (int i = 0; i < count; ++i)
    {
        row += "%MRV_A%";
        ones += "one";
        opened += "${";
    }
    MrvString nested = opened + MrvString("MRV_A");
    nested.resize(nested.size() + count, '}');
    EXPECT_EQ(replaceEnvVars(row, "%", "%"), ones);
    EXPECT_EQ(replaceEnvVars(opened, "${", "}"), opened);
    EXPECT_EQ(replaceEnvVars(nested, "${", "}"), "") << "the outer names are unset";
}

/// Counts the warnings of the library and keeps the last.
class WarningRecorder : public ILogger
{
public:
    void trace(Log::Module module, Log::Severity severity, const char* message, const char*, int,
               const char*) override
    {
        if (module == Log::ORVEL && severity == Log::LOG_WARNING)
        {
            ++_count;
            _last = message;
        }
    }
    int _count = 0;
    std::string _last;
};

class PrinterString : public testing::Test
{
protected:
    PrinterString() { allocateLog(); }
    ~PrinterString() override { deallocateLog(); }
};

TEST_F(PrinterString, readsNumbersAndRangesAndWarnsOfTheRest)
{
    struct
    {
        const char* text;
        const char* extra;
        const char* numbers;
        int warnings;
        const char* lastWarning;
    } const rows[] = {
        { "1,3,5-9", "", "1,3,5,6,7,8,9", 0, "" },
        { "", "", "", 0, "" },
        { " 7 - 8 , 7", "", "7,8,7", 0, "" },
        { "4294967294-4294967295", "", "4294967294,4294967295", 0, "" },
        { "3-1,4", "", "4", 1, "While parsing string token 3 to 1 ( 3-1 ), 3 is greater than 1" },
        { "1,,2", "", "1,2", 1, "Unable to parse string: " },
        { "1,2 3", "", "1", 1, "Unable to parse string: 2 3" },
        { "4294967290--3,-5,5-,1-2-3", "", "", 4, "Unable to parse string: 1-2-3" },
        { "4294967296", "", "", 1, "Unable to parse string: 4294967296" },
        { "0-4294967295,1", "", "1", 1,
          "Unable to parse string: 0-4294967295. It makes the list longer than 16777216" },
        { "1,x", "", "", 1, "Invalid string '1,x'. The valid characters for the list are: 0123456789-, " },
        { "1,2x", "x", "1", 1, "Unable to parse string: 2x" },
        { "1,y", "x", "", 1, "Invalid string '1,y'. The valid characters for the list are: 0123456789-, x" },
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.text);
        WarningRecorder log;
        PODArray<unsigned int> numbers(1, 99u);
        convertPrinterString(row.text, numbers, row.extra);
        Array<MrvString> texts;
        for (const unsigned int number : numbers)
            texts.push_back(MrvString() + number);
        EXPECT_EQ(stringArrayToString(texts, ","), row.numbers);
        EXPECT_EQ(log._count, row.warnings);
        EXPECT_EQ(log._last, row.lastWarning);
    }
}

TEST_F(PrinterString, manyRangesTogetherAreBoundedAsOneIs)
{
    WarningRecorder log;
    PODArray<unsigned int> numbers;
    convertPrinterString("1-16777215,1-2,7", numbers);
    EXPECT_EQ(numbers.size(), 16777216u);
    EXPECT_EQ(numbers.back(), 7u);
    EXPECT_EQ(log._count, 1);
}

} // namespace
} // namespace mrv
