// tests/system/dataItem/mrvDataItemTest.cpp
// The document tree: lookup, growth, typed values.
#include "mrvCore/system/dataItem/mrvDataItem.h"

#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace mrv {
namespace {

/// A tree with names that occur at several levels: a(b(a, c(a)), a, b).
DataItem makeTree()
{
    DataItem root("root");
    DataItem& b = root.addChild();
    b.setName("b");
    b.addChild(DataItem("a"));
    DataItem& c = b.addChild();
    c.setName("c");
    c.addChild("a");
    root.addChild("a");
    root.addChild("b");
    return root;
}

std::string trace(const DataItem& item)
{
    MrvString indent("> ");
    const MrvString text = item.traceDataItems(indent);
    EXPECT_EQ(indent, "> ");
    return text.c_str();
}

TEST(DataItem, findsTheFirstChildOfAName)
{
    DataItem root = makeTree();
    EXPECT_EQ(root.getChild("b"), &root.getChild(0u));
    EXPECT_EQ(root.touchChild("b"), &root.touchChild(0u));
    EXPECT_EQ(root.getChild("a"), &root.getChild(1u));
    EXPECT_EQ(root.getChild("c"), nullptr) << "not a child, but a grandchild";
    EXPECT_EQ(root.touchChild("bb"), nullptr);
    EXPECT_EQ(root.getChild(""), nullptr);
}

TEST(DataItem, collectsChildrenDepthFirst)
{
    DataItem root = makeTree();
    DataItem& b = root.touchChild(0u);
    EXPECT_EQ(root.getChildren("a", false).size(), 1u);
    const Array<DataItem*> found = root.touchChildren("a", true);
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0], &b.touchChild(0u));
    EXPECT_EQ(found[1], &b.touchChild(1u).touchChild(0u));
    EXPECT_EQ(found[2], &root.touchChild(1u));
    b.setName("a");
    EXPECT_EQ(root.getChildren("a", true)[0], &b) << "a parent stands before what is in it";
    EXPECT_EQ(root.getChildren("a", true).size(), 4u);
}

TEST(DataItem, growingAndCopyingKeepWholeSubtrees)
{
    DataItem root = makeTree();
    const DataItem copy = root;
    for (int i = 0; i < 50; ++i)
        root.addChild(root.getChild(0u)); // which lies in the array that grows
    root.touchChild(52u).touchChild(1u).setName("changed");
    EXPECT_EQ(trace(root.getChild(0u)), trace(root.getChild(51u)));
    EXPECT_EQ(trace(copy.getChild(0u)), trace(root.getChild(0u)));
    EXPECT_EQ(root.getChildrenCount(), 53u);
    EXPECT_EQ(copy.getChildrenCount(), 3u);

    root.addChild(root);
    EXPECT_EQ(root.getChild(53u).getChildrenCount(), 53u);
}

TEST(DataItem, whatIsReservedIsNotMoved)
{
    DataItem root;
    root.reserveChildrenSpace(20);
    const DataItem* const first = &root.addChild();
    for (int i = 1; i < 20; ++i)
        root.addChild();
    EXPECT_EQ(&root.getChild(0u), first);
}

TEST(DataItem, attributesKeepTheirOrderAndTheFirstOfANameCounts)
{
    DataItem item;
    item.addAttribute("x", "1");
    item.addAttribute("y", "2");
    item.addAttribute("x", "3");
    item.addAttribute("name and more", 4, "value and more", 5);
    EXPECT_EQ(item.getAttributesCount(), 4u);
    EXPECT_STREQ(item.getAttribute("x"), "1");
    EXPECT_STREQ(item.getAttribute(2u).first, "x");
    EXPECT_STREQ(item.getAttribute(2u).second, "3");
    EXPECT_STREQ(item.getAttribute("name"), "value");
    EXPECT_EQ(item.getAttribute("z"), nullptr);
    EXPECT_EQ(item.getAttribute(4u).first, nullptr);

    item.setAttribute("x", "changed");
    item.setAttribute("z", item.getAttribute("y"));
    EXPECT_STREQ(item.getAttribute("x"), "changed");
    EXPECT_STREQ(item.getAttribute(2u).second, "3");
    EXPECT_STREQ(item.getAttribute("z"), "2");

    for (int i = 0; i < 20; ++i)
        item.addAttribute(item.getAttribute(0u).first,
                          item.getAttribute(0u).second); // texts of the growing list
    EXPECT_STREQ(item.getAttribute(24u).second, "changed");
}

// A text's length and what an item holds in all decide how it is kept.
TEST(DataItem, keepsTextsOfEveryLength)
{
    const size_t lengths[] = { 0, 1, 3, 4, 7, 8, 16, 17, 40, 254, 255, 256, 70000 };
    for (const size_t length : lengths)
        for (const size_t otherLength : lengths)
        {
            const std::string text(length, 'a');
            const std::string other(otherLength, 'b');
            DataItem item("name");
            item.addAttribute("first", text.c_str());
            item.addAttribute("second", other.c_str());
            item.setContent(other.c_str());
            item.setName(text.c_str());
            item.setAttribute("first", other.c_str());
            item.setAttribute("second", item.getName());
            item.setContent(item.getAttribute("second"));

            const DataItem copy = item;
            const DataItem moved = std::move(item);
            for (const DataItem* kept : { &copy, &moved })
            {
                ASSERT_EQ(kept->getName(), text);
                ASSERT_EQ(kept->getContent(), text);
                ASSERT_EQ(kept->getAttribute("first"), other);
                ASSERT_EQ(kept->getAttribute(1u).second, text);
            }
        }
}

TEST(DataItem, numbersComeBackFromTheirText)
{
    const CommaLocale commas;
    DataItem item;
    item.addAttribute<float>("float", 0.1f);
    item.addAttribute<short>("short", -32768);
    item.addAttribute<unsigned int>("unsigned", 4000000000u);
    item.addAttribute<unsigned long>("long", ~0ul);
    item.addAttribute<bool>("bool", true);
    item.addAttribute<MrvString>("text", "a text");
    EXPECT_STREQ(item.getAttribute("float"), "0.100000001490116119384765625");
    EXPECT_EQ(item.getAttribute<float>("float"), 0.1f);
    EXPECT_EQ(item.getAttribute<short>("short"), -32768);
    EXPECT_EQ(item.getAttribute<unsigned int>(2u), 4000000000u);
    EXPECT_STREQ(item.getAttribute("long"), "18446744073709551615");
    EXPECT_STREQ(item.getAttribute("bool"), "1");
    EXPECT_TRUE(item.getAttribute<bool>("bool"));
    EXPECT_TRUE(item.getAttribute<bool>(4u));
    EXPECT_EQ(item.getAttribute<MrvString>("text"), "a text");
}

TEST(DataItem, whatIsNoNumberIsZeroOrTheDefault)
{
    DataItem item;
    item.addAttribute("word", "abc");
    item.addAttribute("empty", "");
    item.addAttribute("large", "99999999999");
    item.addAttribute("tail", " 12kg");
    for (const char* name : { "word", "empty", "absent" })
    {
        EXPECT_EQ(item.getAttribute<int>(name), 0) << name;
        EXPECT_EQ(item.getAttribute<float>(name), 0.0f) << name;
        EXPECT_EQ(item.getAttribute<unsigned int>(name, 7u), 7u) << name;
    }
    EXPECT_EQ(item.getAttribute<int>("large"), 2147483647) << "what a stream leaves";
    EXPECT_EQ(item.getAttribute<int>("large", 7), 7);
    EXPECT_EQ(item.getAttribute<int>("tail", 7), 12);
    EXPECT_EQ(item.getAttribute<int>(9u), 0);
    EXPECT_EQ(item.getAttribute<MrvString>("empty", "default"), "");
    EXPECT_EQ(item.getAttribute<MrvString>("absent", "default"), "default");
}

TEST(DataItem, readsBoolsByTheirWords)
{
    struct Case
    {
        const char* text;
        bool withFalse;
        bool withTrue;
    };
    for (const Case& row : { Case{ "0", false, false },
                             { "false", false, false },
                             { "FaLsE", false, false },
                             { "1", true, true },
                             { "TRUE", true, true },
                             { "", false, true },
                             { "yes", false, true },
                             { " 1", false, true },
                             { "00", false, true },
                             { "true ", false, true } })
    {
        EXPECT_EQ(stringToBool(row.text, false), row.withFalse) << row.text;
        EXPECT_EQ(stringToBool(row.text, true), row.withTrue) << row.text;
        DataItem item;
        item.addAttribute("a", row.text);
        EXPECT_EQ(item.getAttribute<bool>("a", true), row.withTrue) << row.text;
        EXPECT_EQ(item.getAttribute<bool>("a"), row.withFalse) << row.text;
        item.setContent(row.text);
        EXPECT_EQ(item.getContent<bool>(true), row.withTrue) << row.text;
    }
}

TEST(DataItem, anEmptyContentGivesTheDefault)
{
    DataItem item;
    EXPECT_STREQ(item.getContent(), "");
    EXPECT_STREQ(item.getContent("default"), "default");
    EXPECT_EQ(item.getContent<MrvString>("default"), "default");
    EXPECT_EQ(item.getContent<MrvString>(), "");
    EXPECT_FALSE(item.getContent<bool>(false));
    item.setContent("content and more", 7);
    EXPECT_STREQ(item.getContent("default"), "content");
    EXPECT_EQ(item.getContent<MrvString>("default"), "content");
}

TEST(DataItem, tracesOneLineAnItem)
{
    DataItem root = makeTree();
    root.touchChild(0u).setContent("text");
    root.touchChild(0u).addAttribute("x", "1");
    root.touchChild(0u).addAttribute("y", "2");
    EXPECT_EQ(trace(root),
              "> root\n>    b[text] x=1 y=2\n>       a\n>       c\n>          a\n>    a\n>    b\n");
    root.clear();
    EXPECT_EQ(trace(root), "> \n");
}

TEST(DataItemDeathTest, aMissingTextOrBoolIsFatal)
{
    const DataItem item("item");
    const auto trapped = testing::KilledBySignal(SIGTRAP);
    EXPECT_EXIT(item.getAttribute<MrvString>("size"), trapped,
                "assert failed: attribute != NULL\nno attribute of name : size");
    EXPECT_EXIT(item.getAttribute<bool>("on"), trapped, "assert failed");
    EXPECT_EXIT(item.getAttribute<bool>("on", true), trapped, "assert failed");
    EXPECT_EXIT(item.getContent<bool>(), trapped, "assert failed");
}

} // namespace
} // namespace mrv
