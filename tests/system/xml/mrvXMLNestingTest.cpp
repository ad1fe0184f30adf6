// tests/system/xml/mrvXMLNestingTest.cpp
// Texts that nest deep, or pretend to: RapidXML parses by recursion, so a level that the guard does not see
// is stack that a file can take.
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <pthread.h>

namespace mrv {
namespace {

constexpr size_t limit = XMLDataFileParser::maximumNesting;

std::string repeat(const std::string& text, size_t count)
{
    std::string repeated;
    for (size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

size_t countLevels(const DataItem& item)
{
    size_t levels = 0;
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        levels = std::max(levels, countLevels(item.getChild(i)));
    return levels + 1;
}

/// The levels of a text, or why it could not be read.
std::string read(const std::string& text)
{
    DataItem item;
    MrvString message;
    if (XMLDataFileParser().tryReadFromBuffer(text.data(), text.size(), item, message))
        return std::to_string(countLevels(item));
    const size_t reason = message.find(": ");
    return message.substr(reason == MrvString::npos ? 0 : reason + 2).c_str();
}

TEST(XMLNesting, noDisguiseHidesALevel)
{
    for (const char* opening : { "<a>",
                                 "text<a>",
                                 "<a x='1'>",
                                 "<a x=\"</a>\">",
                                 "<a x='</a>\"'>",
                                 "<a\nx\t=\r' />' >",
                                 "<a b\"=''>",
                                 "<a\"b='c\"\nd='>'>",
                                 "<a=\"b>",
                                 "<a='>",
                                 "<a<b>",
                                 "<a x='1'y='2'>",
                                 "<!-- </a> --><a>",
                                 "<!--></a>--><a>",
                                 "<!-- -> </a> --><a>",
                                 "<![CDATA[</a>]]><a>",
                                 "<![CDATA[]>]]]><a>",
                                 "<?xml </a>?><a>",
                                 "<?></a>?><a>",
                                 "<!DOCTYPE x [ <!ELEMENT > [ ] </a> ] ><a>",
                                 "<!DOCTYPE x ]><a>",
                                 "<!DOCTYPEx [><a>",
                                 "<!x </a><a>",
                                 "<!><a>",
                                 "<![CDATA x</a><a>" })
    {
        EXPECT_EQ(read("<r>" + std::string(opening) + "</a></r>"), "2") << opening;
        EXPECT_EQ(read("<r>" + repeat(opening, limit - 1) + repeat("</a>", limit - 1) + "</r>"),
                  std::to_string(limit))
            << opening;
        EXPECT_EQ(read("<r>" + repeat(opening, limit) + repeat("</a>", limit) + "</r>"),
                  "elements nested too deep")
            << opening;
    }
    EXPECT_EQ(read(repeat("<a x='1'>", 500000)), "elements nested too deep");
}

TEST(XMLNesting, flatTextsAreNotTakenForDeepOnes)
{
    for (const char* flat :
         { "<a/>", "<a></a>", "<a x='<a>'/>", "<a x='/'></a>", "<!-- <a> --><a/>", "<![CDATA[<a>]]><a/>",
           "<?pi <a>?><a/>", "text><a/>", "<a x='1' />", "<a></a\n>" })
        EXPECT_EQ(read("<r>" + repeat(flat, limit + 500) + "</r>"), "2") << flat;
}

TEST(XMLNesting, includedLevelsCountOnTop)
{
    const TemporaryFolder folder;
    const auto nest = [](size_t levels, const std::string& inside) {
        return repeat("<a>", levels) + inside + repeat("</a>", levels);
    };
    folder.write("inner.xml", nest(limit - 300, ""));
    for (const size_t outerLevels : { size_t(300), size_t(301) })
    {
        const MrvString file = folder.write("outer.xml", nest(outerLevels, "<include file='inner.xml'/>"));
        DataItem item;
        MrvString message;
        EXPECT_EQ(XMLDataFileParser().tryRead(file.c_str(), item, message), outerLevels == 300) << message;
        if (outerLevels == 300)
            EXPECT_EQ(countLevels(item), limit);
        else
            EXPECT_NE(message.find("inner.xml', line 1, column 2098: elements nested too deep"),
                      MrvString::npos)
                << message;
    }
}

/// All that is done with a tree of the greatest depth, on the smallest stack that hosts give to a thread.
void* handleDeepTree(void*)
{
    const std::string text = repeat("<a x='1'>", limit) + "text" + repeat("</a>", limit);
    DataItem item;
    MrvString message;
    XMLDataFileParser parser;
    EXPECT_TRUE(parser.tryReadFromBuffer(text.data(), text.size(), item, message)) << message;
    std::ostringstream stream;
    parser.writeToBuffer(stream, item);
    const DataItem copy = item;
    MrvString indent;
    EXPECT_GT(copy.traceDataItems(indent).size(), limit);
    EXPECT_EQ(item.getChildren("a", true).size(), limit - 1);
    DataItem again;
    EXPECT_TRUE(parser.tryReadFromBuffer(stream.str().data(), stream.str().size(), again, message))
        << message;
    EXPECT_EQ(countLevels(again), limit);
    return nullptr;
}

TEST(XMLNesting, theGreatestDepthFitsASmallStack)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr size_t stackSize = 2048 * 1024; // the sanitizer's frames are several times larger
#else
    constexpr size_t stackSize = 512 * 1024;
#endif
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, handleDeepTree, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

} // namespace
} // namespace mrv
