// tests/system/containers/mrvStringBlockTest.cpp
// The blocks of texts: the terminator that all empty ones share, own parts as arguments, ids.
#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace mrv;

namespace {

/// Something that leaves an empty text empty; `takesBlock` tells whether it then has a block of its own.
struct EmptyCase
{
    const char* name;
    void (*run)(MrvString& text);
    bool takesBlock = false;
};

// clang-format off
const EmptyCase emptyCases[] = {
    { "clear", [](MrvString& t) { t.clear(); } },
    { "resize", [](MrvString& t) { t.resize(0, 'x'); } },
    { "appendText", [](MrvString& t) { t.append("").append(MrvString()).append("abc", 0); } },
    { "appendCharacters", [](MrvString& t) { t.append(0, 'x'); } },
    { "appendItself", [](MrvString& t) { t += t; } },
    { "assign", [](MrvString& t) { t.assign("").assign(0, 'x').assign(MrvString("a"), 1, 9); } },
    { "assignItself", [](MrvString& t) { t.assign(t.c_str(), 0).assign(t); } },
    { "erase", [](MrvString& t) { t.erase().erase(3, 4); } },
    { "insert", [](MrvString& t) { t.insert(0, "").insert(2, 0, 'x').insert(0, t); } },
    { "replace", [](MrvString& t) { t.replace(0, 5, "").replace(1, 0, t); } },
    { "replaceAll", [](MrvString& t) { t.replaceAll('\0', 'x'); } },
    { "letterCase", [](MrvString& t) { t.toUpperSelf(); t.toLowerSelf(); } },
    { "trim", [](MrvString& t) { t.trim(" ").trim("").trim(t); } },
    { "copy", [](MrvString& t) { const MrvString other(t); t = other; } },
    { "standardString", [](MrvString& t) { t = std::string(); } },
    { "move", [](MrvString& t) { MrvString other(std::move(t)); t = std::move(other); } },
    { "swap", [](MrvString& t) { MrvString other; t.swap(other); } },
    { "sum", [](MrvString& t) { t = MrvString() + "" + MrvString(); } },
    { "part", [](MrvString& t) { t = MrvString("abc").substr(3); } },
    { "reserveNothing", [](MrvString& t) { t.reserve(0); } },
    { "trimBlock", [](MrvString& t) { t.getData().trim(); } },
    { "reserve", [](MrvString& t) { t.reserve(3); }, true },
    { "pushAndClear", [](MrvString& t) { t.push_back('x'); t.clear(); }, true },
    { "pushClearAndTrim", [](MrvString& t) { t.push_back('x'); t.clear(); t.getData().trim(); }, true },
    { "assignTextAndEmpty", [](MrvString& t) { t = "abc"; t = MrvString().c_str(); }, true },
    { "appendTerminator", [](MrvString& t) { t.append(t.c_str(), 1).clear(); }, true },
    { "assignTerminator", [](MrvString& t) { t.assign(MrvString().c_str(), 1).clear(); }, true },
};
// clang-format on

class EmptyString : public testing::TestWithParam<EmptyCase>
{};

} // namespace

TEST_P(EmptyString, neverWritesOrFreesTheTerminatorThatAllShare)
{
    const MrvString other;
    {
        MrvString text;
        GetParam().run(text);
        EXPECT_EQ(text.size(), 0u);
        EXPECT_STREQ(text.c_str(), "");
        EXPECT_EQ(text.c_str() != internal::sharedTerminator, GetParam().takesBlock);

        MrvString copy(text);
        text.push_back('y');
        copy = text;
        EXPECT_TRUE(text == "y" && copy == "y");
        text = other;
        EXPECT_STREQ(text.c_str(), "");
    }
    EXPECT_EQ(internal::sharedTerminator[0], '\0');
    EXPECT_TRUE(other.empty() && MrvString().empty());
}

INSTANTIATE_TEST_SUITE_P(Table, EmptyString, testing::ValuesIn(emptyCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MrvString, takesAnyPartOfItselfUpToItsOwnTerminator)
{
    std::mt19937 random(14);
    MrvString text;
    std::string model;
    for (int step = 0; step < 20000; ++step)
    {
        const size_t from = random() % (model.size() + 1);
        const size_t count =
            random() % (model.size() - from + 2); // the terminator is a zero like others then
        const size_t at = random() % (model.size() + 1), removed = random() % 4;
        const std::string part(model.c_str() + from, count);
        const char* const own = text.c_str() + from;
        switch (random() % 5)
        {
        case 0:
            text.append(own, count);
            model += part;
            break;
        case 1:
            text.insert(at, own, count);
            model.insert(at, part);
            break;
        case 2:
            text.replace(at, removed, own, count);
            model.replace(at, removed, part);
            break;
        case 3:
            text.assign(own, count);
            model = part;
            break;
        default:
            text.append(3, static_cast<char>('a' + step % 26));
            model.append(3, static_cast<char>('a' + step % 26));
            break;
        }
        if (model.size() > 60)
        {
            text.erase(5);
            text.getData().trim(); // no spare room: the next growth moves the block
            model.erase(5);
        }
        ASSERT_EQ(std::string(text.c_str(), text.size()), model) << "step " << step;
        ASSERT_EQ(text.c_str()[text.size()], '\0') << "step " << step;
    }
}

TEST(MrvString, copiesTakeTheIdOfTheirSourceAlsoOfAnEmptyOne)
{
    for (const char* characters : { "", "abc" })
    {
        MrvString source(characters);
        source.getData().setMemoryStatId(MemoryStatIds::Cache);
        const MrvString copy(source);
        EXPECT_EQ(copy.getData().getMemoryStatId(), MemoryStatIds::Cache);
        MrvString assigned("longer than both");
        assigned = copy;
        EXPECT_EQ(assigned.getData().getMemoryStatId(), MemoryStatIds::Cache);
        EXPECT_EQ(assigned.capacity(), 17u) << "assignment never shrinks";
    }
}
