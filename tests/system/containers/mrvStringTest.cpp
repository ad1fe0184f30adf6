// tests/system/containers/mrvStringTest.cpp
// MrvString against std::string where both agree, and its own rules where they do not.
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/containers/mrvStaticString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <limits>
#include <random>
#include <sstream>
#include <string>

using namespace mrv;

namespace {

/// Short texts of few letters, so that searches meet partial matches; zeros and signed bytes included.
std::string randomText(std::mt19937& random, size_t maximum)
{
    static const char letters[] = { 'a', 'a', 'a', 'b', 'b', '\0', '\xff' };
    std::string text;
    for (size_t length = random() % (maximum + 1); text.size() < length;)
        text += letters[random() % sizeof letters];
    return text;
}

std::string toStandard(const MrvString& text)
{
    EXPECT_EQ(text.getData().back(), '\0');
    EXPECT_EQ(text.getData().size(), text.size() + 1);
    return std::string(text.c_str(), text.size());
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

TEST(MrvString, capacitiesCountTheTerminatorAndGrowByTheRule)
{
    MrvString text;
    EXPECT_EQ(text.size(), 0u);
    EXPECT_EQ(text.capacity(), 1u);
    EXPECT_STREQ(text.c_str(), "");
    text += 'a';
    EXPECT_EQ(text.capacity(), 10u);
    EXPECT_EQ(MrvString("abc").capacity(), 4u);
    EXPECT_EQ(MrvString("abcdef", 1, 3).capacity(), 4u);

    MrvString appended;
    appended += "0123456789";
    EXPECT_EQ(appended.capacity(), 11u);
    appended += "0";
    EXPECT_EQ(appended.capacity(), 30u);
    const char* const block = appended.c_str();
    appended.clear();
    appended = "0123456789012345678901234567";
    EXPECT_EQ(appended.c_str(), block);
}

TEST(MrvString, searchesMatchTheModel)
{
    std::mt19937 random(11);
    for (int round = 0; round < 20000; ++round)
    {
        const std::string model = randomText(random, 14), part = randomText(random, 4);
        const MrvString text(model), wanted(part);
        const char c = part.empty() ? 'a' : part[0];
        const size_t start = random() % 8 == 0 ? MrvString::npos : random() % 18;
        ASSERT_EQ(text.find(wanted, start), model.find(part, start));
        ASSERT_EQ(text.rfind(wanted, start), model.rfind(part, start));
        ASSERT_EQ(text.find(c, start), model.find(c, start));
        ASSERT_EQ(text.rfind(c, start), model.rfind(c, start));
        ASSERT_EQ(text.find_first_of(wanted, start), model.find_first_of(part, start));
        ASSERT_EQ(text.find_last_of(wanted, start), model.find_last_of(part, start));
        ASSERT_EQ(text.find_first_not_of(wanted, start), model.find_first_not_of(part, start));
        ASSERT_EQ(text.find_last_not_of(wanted, start), model.find_last_not_of(part, start));
        ASSERT_EQ(text.find_first_not_of(c, start), model.find_first_not_of(c, start));
        ASSERT_EQ(text.find_last_not_of(c, start), model.find_last_not_of(c, start));
    }
}

TEST(MrvString, changesMatchTheModelAlsoWithTheTextItself)
{
    std::mt19937 random(12);
    MrvString text;
    std::string model;
    for (int step = 0; step < 20000; ++step)
    {
        if (model.size() > 60)
        {
            text.resize(7);
            model.resize(7);
        }
        const std::string other = randomText(random, 6);
        const size_t at = random() % (model.size() + 1), count = random() % 9;
        const bool own = random() % 3 == 0;
        const MrvString& argument = own ? text : MrvString(other);
        const std::string part = own ? model : other;
        switch (random() % 12)
        {
        case 0:
            text += argument;
            model += part;
            break;
        case 1:
            text.insert(at, argument);
            model.insert(at, part);
            break;
        case 2:
            text.replace(at, count, argument);
            model.replace(at, count, part);
            break;
        case 3:
            text.erase(at, count);
            model.erase(at, count);
            break;
        case 4:
            text.assign(text.c_str() + at, std::min(count, text.size() - at));
            model = model.substr(at, count);
            break;
        case 5:
            text.append(text.c_str() + at);
            model += std::string(model.c_str() + at);
            break;
        case 6:
            text.append(argument, at, count);
            model += at > part.size() ? "" : part.substr(at, count);
            break;
        case 7:
            text.insert(at, count, 'x');
            model.insert(at, count, 'x');
            break;
        case 8:
            text.resize(at + count, 'y');
            model.resize(at + count, 'y');
            break;
        case 9:
            text.push_back('z');
            model.push_back('z');
            break;
        case 10:
            text.replaceAll('a', 'b');
            std::replace(model.begin(), model.end(), 'a', 'b');
            break;
        default:
            text = text.substr(at, count) + argument;
            model = model.substr(at, count) + part;
            break;
        }
        ASSERT_EQ(toStandard(text), model) << "step " << step;
    }
}

TEST(MrvString, positionsBeyondTheTextCountAsItsEnd)
{
    MrvString text("abc");
    EXPECT_EQ(text.substr(9, 1), "");
    EXPECT_EQ(text.erase(9), "abc");
    EXPECT_EQ(text.insert(9, "d"), "abcd");
    EXPECT_EQ(text.replace(2, MrvString::npos, "xyz", 1, 9), "abyz");
}

TEST(MrvString, comparesSignedBytesAndPutsTheShorterFirst)
{
    std::mt19937 random(13);
    for (int round = 0; round < 5000; ++round)
    {
        const std::string a = randomText(random, 5), b = randomText(random, 5);
        const bool isLess = std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                                         [](signed char x, signed char y) { return x < y; });
        ASSERT_EQ(MrvString(a) < MrvString(b), isLess);
        ASSERT_EQ(sign(MrvString(a).compare(b)), isLess ? -1 : a != b);
        ASSERT_EQ(MrvString(a) == MrvString(b), a == b);
        ASSERT_EQ(MrvString(a) != b.c_str(), a != b.c_str());
    }
    EXPECT_EQ(MrvString("a\xff").compare("ab"), -1 - 'b');
    EXPECT_EQ(MrvString("abc").compare("abcdefg"), -4);
    EXPECT_TRUE(MrvStaticString("a") < MrvStaticString("b"));
    EXPECT_TRUE(MrvStaticString("a\xff") < MrvStaticString("a\xff"
                                                           "b"));
}

struct CutCase
{
    const char* text;
    char character;
    const char* before;
    const char* after;
};

TEST(MrvString, cutsAtACharacterUnlessItComesFirst)
{
    const CutCase cases[] = {
        { "abc", 'b', "a", "c" },   { "abc", 'a', "abc", "abc" }, { "abc", 'x', "abc", "abc" },
        { "a/b/c", '/', "a", "c" }, { "/a", '/', "/a", "/a" },    { "/a/b", '/', "/a/b", "b" },
        { "abc", 'c', "ab", "" },   { "", 'a', "", "" },
    };
    for (const CutCase& row : cases)
    {
        EXPECT_EQ(MrvString(row.text).getStringBeforeFirst(row.character), row.before) << row.text;
        EXPECT_EQ(MrvString(row.text).getStringAfterlast(row.character), row.after) << row.text;
    }
}

struct TrimCase
{
    const char* text;
    const char* left;
    const char* right;
    const char* both;
};

TEST(MrvString, trimsTheSet)
{
    const TrimCase cases[] = {
        { " \tab c ", "ab c ", " \tab c", "ab c" },
        { " \t ", "", "", "" },
        { "", "", "", "" },
        { "a", "a", "a", "a" },
    };
    for (const TrimCase& row : cases)
    {
        EXPECT_EQ(MrvString(row.text).ltrim(" \t"), row.left);
        EXPECT_EQ(MrvString(row.text).rtrim(" \t"), row.right);
        EXPECT_EQ(MrvString(row.text).trim(" \t"), row.both);
    }
}

TEST(MrvString, appendsNumbersInDecimal)
{
    MrvString text("n");
    text += 0;
    text += -7;
    text += INT_MIN;
    text += std::numeric_limits<int64_t>::min();
    text += std::numeric_limits<int64_t>::max();
    EXPECT_EQ(text, "n0-7-2147483648-92233720368547758089223372036854775807");
}

TEST(MrvString, convertsWithTheStandardLibrary)
{
    const std::string standard("a\0b", 3);
    MrvString text = standard;
    EXPECT_EQ(toStandard(text), standard);
    text = std::string("xyz");
    text = 'q';
    EXPECT_EQ(text, "q");
    EXPECT_EQ("q", text);
    text = "Mixed 1\xe9";
    text.toUpperSelf();
    EXPECT_EQ(text, "MIXED 1\xe9");
    text.toLowerSelf();
    EXPECT_EQ(text, "mixed 1\xe9");
    MrvString taken(std::move(text));
    EXPECT_EQ(toStandard(text), ""); // NOLINT: a moved-from text is documented to be empty

    std::istringstream in("  one\ttwo ");
    in >> taken >> text;
    EXPECT_TRUE(in.good());
    EXPECT_EQ(taken + "," + text, "one,two");
    in >> text;
    EXPECT_TRUE(in.eof() && in.fail());
    EXPECT_EQ(text, "two");
    std::ostringstream out;
    out << MrvString(standard);
    EXPECT_EQ(out.str(), standard);
}
