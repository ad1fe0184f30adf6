// tests/system/xml/mrvXMLPrinterTest.cpp
// What is written must stay what RapidXML prints, whose text other programs and older versions know.
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include <rapidxml/rapidxml.hpp>
#include <rapidxml/rapidxml_print.hpp>

namespace mrv {
namespace {

using Document = rapidxml::xml_document<char>;

/// The element of an item, as nodes that refer to its texts.
rapidxml::xml_node<char>* makeNode(Document& document, const DataItem& item)
{
    const char* const content = item.getContent();
    rapidxml::xml_node<char>* const node =
        document.allocate_node(rapidxml::node_element, item.getName(), *content == '\0' ? nullptr : content);
    for (unsigned int i = 0; i < item.getAttributesCount(); ++i)
        node->append_attribute(
            document.allocate_attribute(item.getAttribute(i).first, item.getAttribute(i).second));
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        node->append_node(makeNode(document, item.getChild(i)));
    return node;
}

MrvString drawText(std::mt19937& random, const char* characters)
{
    MrvString text;
    const size_t count = std::strlen(characters);
    for (size_t size = random() % 12; text.size() < size;)
        text += characters[random() % count];
    return text;
}

void fillItem(DataItem& item, std::mt19937& random, int levels)
{
    const char* const anything = "ab <>&'\"\t\n\x01\x7f\xc3\xa9";
    item.setName(drawText(random, "abc:-_").c_str());
    item.setContent(random() % 2 == 0 ? "" : drawText(random, anything).c_str());
    for (size_t count = random() % 4; item.getAttributesCount() < count;)
        item.addAttribute<MrvString>(drawText(random, "xyz\"").c_str(), drawText(random, anything));
    for (size_t count = levels == 0 ? 0 : random() % 4; item.getChildrenCount() < count;)
        fillItem(item.addChild(), random, levels - 1);
}

TEST(XMLPrinter, writesWhatRapidXMLPrints)
{
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round)
    {
        DataItem item("root");
        item.addAttribute("x", "1");
        fillItem(item.addChild(), random, 7);
        // Texts around the size of the printer's buffer, so that each kind of part falls on its end.
        item.addChild().addAttribute<MrvString>("long", MrvString(std::string(10900 + random() % 100, '<')));

        Document document;
        document.append_node(makeNode(document, item));
        std::string expected;
        rapidxml::print(std::back_inserter(expected), document, 0);

        std::ostringstream stream;
        XMLDataFileParser().writeToBuffer(stream, item);
        ASSERT_EQ(stream.str(), expected);
    }
}

} // namespace
} // namespace mrv
