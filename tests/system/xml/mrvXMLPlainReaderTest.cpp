// tests/system/xml/mrvXMLPlainReaderTest.cpp
// The plain reader beside RapidXML: it gives the same tree, or it gives up.
#include "mrvCore/system/xml/mrvXMLPlainReader.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/support/mrvSameItems.h"

#include <gtest/gtest.h>

#include <string>

namespace mrv::test {
namespace {

constexpr size_t limit = XMLDataFileParser::maximumNesting;

/// False, with the item seen to be untouched, if the reader gave up.
bool readPlain(const std::string& text, DataItem& item)
{
    // A copy of just that size, so that a look beyond the text is found by the sanitizers.
    const PODArray<char> exact(text.size(), text.data());
    item.setName("former");
    const bool isRead = XMLPlainReader(exact.begin(), exact.size(), limit).read(item);
    EXPECT_TRUE(isRead || areSame(item, DataItem("former"))) << text;
    return isRead;
}

/// By RapidXML, since an instruction, which leaves no trace in the tree, is not plain.
bool readFully(const std::string& text, DataItem& item)
{
    const std::string followed = text.c_str() + std::string("<?x?>");
    MrvString message;
    return XMLDataFileParser().tryReadFromBuffer(followed.data(), followed.size(), item, message);
}

/// Whether the reader took the text; fails the test if its tree is another than RapidXML's.
bool takesRightly(const std::string& text)
{
    DataItem plain, full;
    if (!readPlain(text, plain))
        return false;
    EXPECT_TRUE(readFully(text, full) && areSame(plain, full)) << text;
    return true;
}

std::string repeat(const std::string& text, size_t count)
{
    std::string repeated;
    for (size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

const std::string nul(1, '\0');

TEST(XMLPlainReader, readsPlainTextsAsRapidXMLDoes)
{
    for (const std::string& text : {
             std::string("<a/>"),
             std::string("<a></a >"),
             std::string("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- <c> -->\r\n\t <a/>\n<!-- d --> \n"),
             std::string("<!----><!-->--><a/>"),
             std::string("<?xml ?><?xml ?><a/>"),
             std::string("<a x='1' y=\"2\"\n z = '3'\t/>"),
             std::string("<a x='1'y='2'x='3'></a\n>"),
             std::string("<a x='' y=''></a>"),
             std::string("<a x='12345678'/>"),
             std::string("<a x='1234567\"90'/>"),
             std::string("<a x=\" it's <b>\n\t tall ]]> &amp;\"/>"),
             std::string("<_:.-9a \xC3\xA4='\xC3\xA4'/>"),
             std::string("<a x='&lt;&gt;&amp;&quot;&apos;&#65;&#x20ac;&#x1F600;&#x7f;&#xe4;&#0010;'/>"),
             std::string("<a>&lt;&#65;&#x20AC;&amp;</a>"),
             std::string("<a> \n </a>"),
             std::string("<a>&#32;</a>"),
             std::string("<a> text > <b/> more <c/></a>"),
             std::string("<a> <b> x </b>\n y <b/> z</a>"),
             std::string("<a x='1'> one <!-- c --> two <![CDATA[ <three> & ]]> four</a>"),
             std::string("<a><![CDATA[]]><!----></a>"),
             std::string("<a><b><c><d/></c></b><b/><b><c/></b></a>"),
             "<a>" + repeat("\n\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t<b/>", 3) + "</a>",
             std::string(8, '\t') + "<a>\n" + std::string(8, '\t') + "<b" + std::string(24, '\t') + "/>" +
                 std::string(16, '\t') + "</a" + std::string(9, '\t') + ">",
             "<a x='" + std::string(300, 'v') + "' y='" + repeat("&gt;", 100) + "'>" + std::string(300, 't') +
                 "</a>",
             "<a x='" + std::string(254, 'v') + "' y='" + std::string(255, 'v') + "'/>",
             "<a>" + repeat("<b x='1'/>", 1000) + "</a>",
             repeat("<a>", limit) + repeat("</a>", limit),
             "<a/>" + nul + "what is > behind",
             "<a/> " + nul + "<",
         })
        EXPECT_TRUE(takesRightly(text)) << text;
}

TEST(XMLPlainReader, leavesWhatIsOddOrMalformed)
{
    for (const std::string& text : {
             std::string(),
             std::string(" "),
             std::string(">"),
             std::string("text"),
             std::string("\xEF\xBB\xBF"),
             std::string("\xEF\xBB\xBF>"),
             std::string("\xEF\xBB<a/>"),
             std::string("<?xml ?>"),
             std::string("<?xml <a/>"),
             std::string("<?pi?><a/>"),
             std::string("<a/><?pi?>"),
             std::string("<!DOCTYPE a><a/>"),
             std::string("<!-- <a/>"),
             std::string("<!--->"),
             std::string("<![CDATA[]]><a/>"),
             std::string("<!ELEMENT a><a/>"),
             std::string("<include file='x'/>"),
             std::string("<a><include/></a>"),
             std::string("<a/><b/>"),
             std::string("<a/>text"),
             std::string("<a/>  t"),
             std::string("<a/>      <"),
             std::string(16, '\t') + ">\n<!\t",
             std::string("<a></b>"),
             std::string("<a></aa>"),
             std::string("<aa></a>"),
             std::string("<a>"),
             std::string("<a><b></a>"),
             std::string("</a>"),
             std::string("<>"),
             std::string("< a/>"),
             std::string("<a"),
             std::string("<a/"),
             std::string("<a/ >"),
             std::string("<a x/>"),
             std::string("<a x=/>"),
             std::string("<a x=1/>"),
             std::string("<a x='1/>"),
             std::string("<a x='1\"/>"),
             std::string("<a ='1'/>"),
             std::string("<a=b/>"),
             std::string("<a<b/>"),
             std::string("<a b\"='1'/>"),
             std::string("<a!/>"),
             std::string("<a x='&'/>"),
             std::string("<a x='&;'/>"),
             std::string("<a x='&unknown;'/>"),
             std::string("<a x='&lt'/>"),
             std::string("<a x='&#0;'/>"),
             std::string("<a x='&#;'/>"),
             std::string("<a x='&#x;'/>"),
             std::string("<a x='&#X41;'/>"),
             std::string("<a x='&#1F;'/>"),
             std::string("<a x='&#xg;'/>"),
             std::string("<a x='&#x110000;'/>"),
             std::string("<a x='&#x100000041;'/>"),
             std::string("<a>&#0;</a>"),
             std::string("<a>&</a>"),
             std::string("<a>text"),
             std::string("<a>text>"),
             std::string("<a><!-- </a>"),
             std::string("<a><![CDATA[ </a>"),
             std::string("<a><!b></a>"),
             std::string("<a><?b?></a>"),
             repeat("<a>", limit) + "<b/>" + repeat("</a>", limit),
             nul + "<a/>",
             "<a" + nul + "/>",
             "<a x='" + nul + "'/>",
             "<a x='12345678" + nul + "12345678'/>",
             "<a>" + nul + "</a>",
             "<a>text" + nul + "</a>",
             "<!--" + nul + "--><a/>",
         })
        EXPECT_FALSE(takesRightly(text)) << text;
}

TEST(XMLPlainReader, neverReadsAnotherTreeOutOfADamagedText)
{
    const std::string text = "<?xml version='1.0'?><a x='1' yy=\"&lt;&#65;\">\n<!-- c --> t &#x41;<b/>\n"
                             "\t<c z=' 12345678 '>u</c><![CDATA[d]]></a>\n<!-- e -->";
    ASSERT_TRUE(takesRightly(text));
    const std::string inserted = "<>&;'\"=/!?-[]#x \n" + nul + "\x80";
    size_t taken = 0;
    for (size_t place = 0; place <= text.size(); ++place)
    {
        taken += takesRightly(text.substr(0, place)) ? 1 : 0;
        taken += takesRightly(text.substr(place)) ? 1 : 0;
        for (const char character : inserted)
        {
            taken += takesRightly(text.substr(0, place) + character + text.substr(place)) ? 1 : 0;
            if (place < text.size())
                taken += takesRightly(text.substr(0, place) + character + text.substr(place + 1)) ? 1 : 0;
        }
    }
    EXPECT_GT(taken, text.size()); // of all these there are nearly forty times as many
}

} // namespace
} // namespace mrv::test
