// tests/system/xml/mrvXMLDataFileParserTest.cpp
// XML files to trees and back, includes, and every way a read can fail.
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>

namespace mrv {
namespace {

namespace fs = std::filesystem;

/// The tree in one line: name[content](name=value ...){children}.
std::string describe(const DataItem& item)
{
    std::string text = item.getName();
    if (*item.getContent() != '\0')
        text += std::string("[") + item.getContent() + ']';
    for (unsigned int i = 0; i < item.getAttributesCount(); ++i)
        text +=
            std::string(i == 0 ? "(" : " ") + item.getAttribute(i).first + '=' + item.getAttribute(i).second;
    text += item.getAttributesCount() != 0 ? ")" : "";
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        text += (i == 0 ? "{" : " ") + describe(item.getChild(i));
    return text + (item.getChildrenCount() != 0 ? "}" : "");
}

std::string print(DataItem& item)
{
    std::ostringstream stream;
    XMLDataFileParser().writeToBuffer(stream, item);
    EXPECT_TRUE(stream.good());
    return stream.str();
}

struct TextCase
{
    const char* xml;
    const char* tree;
};

const TextCase textCases[] = {
    { "<a/>", "a" },
    { "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- c --><!DOCTYPE a><a/>\n<!-- d -->", "a" },
    { "<a x='1' y=\"2\"\n z = '3'/>", "a(x=1 y=2 z=3)" },
    { "<a x='1' x='2'/>", "a(x=1 x=2)" },
    { "<a>\n\t<b/>\n\t<c><d/></c>\n</a>", "a{b c{d}}" },
    { "<a> text <b/>more</a>", "a[ text ]{b}" },
    { "<a>&lt;&#65;&#x20ac;&amp;</a>", "a[<A\xe2\x82\xac&]" },
    { "<a x='&quot;&apos;&gt; &unknown;'/>", "a(x=\"'> &unknown;)" },
    { "<a><![CDATA[left out]]><?pi left out?>kept<!-- left out --></a>", "a[kept]" },
    { "<a/><b/>", "a" },
    { "<a></b>", "a" },
    { "<a b\"='1'><a<b/></a>", "a(b\"=1){a<b}" },
};

TEST(XMLDataFileParser, readsWhatRapidXMLTakesForElements)
{
    for (const TextCase& row : textCases)
    {
        DataItem item;
        XMLDataFileParser().readFromBuffer(row.xml, item);
        EXPECT_EQ(describe(item), row.tree) << row.xml;

        std::istringstream stream(row.xml);
        DataItem streamed;
        XMLDataFileParser().readFromBuffer(stream, streamed);
        EXPECT_EQ(describe(streamed), row.tree) << row.xml;
    }
}

TEST(XMLDataFileParser, readingAppendsToTheItem)
{
    DataItem item("former");
    item.addAttribute("x", "1");
    item.addChild("first");
    XMLDataFileParser().readFromBuffer("<a y='2'><second/></a>", item);
    EXPECT_EQ(describe(item), "a(x=1 y=2){first second}");
}

TEST(XMLDataFileParser, writesOneElementToALine)
{
    DataItem root("root");
    root.addAttribute("x", "1");
    root.setContent("left out, since there are children");
    DataItem& child = root.addChild();
    child.setName("child");
    child.setContent("a<b>&\"'");
    child.addAttribute("both", "<\"'>");
    child.addAttribute("single", "'&");
    root.addChild("empty");
    EXPECT_EQ(print(root),
              "<root x=\"1\">\n"
              "\t<child both='&lt;\"&apos;&gt;' single=\"'&amp;\">a&lt;b&gt;&amp;&quot;&apos;</child>\n"
              "\t<empty/>\n"
              "</root>\n\n");
}

TEST(XMLDataFileParser, specialCharactersAndLongTextsComeBack)
{
    const std::string longText(300000,
                               '<'); // longer than any buffer in between, and six times that when printed
    DataItem item("root");
    for (const std::string& text : { std::string("<>&'\""), std::string(" \t\n x "), longText })
    {
        DataItem& child = item.addChild();
        child.setName("child");
        child.addAttribute<MrvString>("value", text);
        child.setContent(text.c_str());
    }
    const TemporaryFolder folder;
    const MrvString file = folder.path("file.xml");
    EXPECT_EQ(XMLDataFileParser().write(file.c_str(), item), SaveXMLDataFileErrorCode::SUCCESS);
    EXPECT_EQ(folder.read("file.xml"), print(item));

    DataItem read;
    XMLDataFileParser parser(file.c_str(), read);
    EXPECT_EQ(describe(read), describe(item));
    EXPECT_EQ(parser.getFileName().fullname(), file);
}

TEST(XMLDataFileParser, aFailedSaveLeavesTheOldFileWhole)
{
    const TemporaryFolder folder;
    const MrvString file = folder.write("file.xml", "old");
    DataItem item("root");
    item.addAttribute("x", "1");
    fs::create_directory(folder.path("directory").c_str());
    for (const char* target : { "none/file.xml", "directory" })
        EXPECT_EQ(XMLDataFileParser().write(folder.path(target).c_str(), item),
                  SaveXMLDataFileErrorCode::FILE_CREATION_FAILED);

    DataItem* deepest = &item;
    for (unsigned int level = 1; level < XMLDataFileParser::maximumNesting; ++level)
        deepest = &deepest->addChild();
    EXPECT_EQ(XMLDataFileParser().write(file.c_str(), item), SaveXMLDataFileErrorCode::SUCCESS);
    const std::string written = folder.read("file.xml");
    deepest->addChild();
    EXPECT_EQ(XMLDataFileParser().write(file.c_str(), item), SaveXMLDataFileErrorCode::FILE_CREATION_FAILED);
    EXPECT_EQ(folder.read("file.xml"), written);
    EXPECT_EQ(folder.countEntries(), 2u);
    std::ostringstream stream;
    XMLDataFileParser().writeToBuffer(stream, item);
    EXPECT_TRUE(stream.fail());
}

TEST(XMLDataFileParser, aBadStreamThrows)
{
    std::istringstream failed("<a/>");
    failed.setstate(std::ios_base::failbit);
    std::istream withoutBuffer(nullptr);
    for (std::istream* stream : { static_cast<std::istream*>(&failed), &withoutBuffer })
    {
        DataItem item;
        try
        {
            XMLDataFileParser().readFromBuffer(*stream, item);
            ADD_FAILURE() << "did not throw";
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_STREQ(error.what(), "error reading stream");
        }
    }
}

/// Trees of files that include each other.
class XMLInclude : public testing::Test
{
protected:
    XMLInclude() { fs::create_directory(_folder.path("sub").c_str()); }

    std::string read(const char* name, MrvString& message) const
    {
        DataItem item("former");
        return XMLDataFileParser().tryRead(_folder.path(name).c_str(), item, message) ? describe(item)
                                                                                      : "failed";
    }
    std::string read(const char* name) const
    {
        MrvString message;
        const std::string tree = read(name, message);
        EXPECT_EQ(message, "");
        return tree;
    }

    const TemporaryFolder _folder;
};

TEST_F(XMLInclude, theIncludedRootTakesThePlaceOfTheElement)
{
    _folder.write("root.xml", "<include file='sub/part.xml' more='x'><ignored/></include>");
    _folder.write("inside.xml", "<a><b/><include file='sub/part.xml'/><c><include file='leaf.xml'/></c></a>");
    _folder.write("leaf.xml", "<outer>text</outer>");
    _folder.write("sub/part.xml",
                  "<part x='1'><include file='leaf.xml'/><include file='../leaf.xml'/></part>");
    _folder.write("sub/leaf.xml", "<inner/>"); // beside the including file, not beside the first one
    EXPECT_EQ(read("root.xml"), "part(x=1){inner outer[text]}");
    EXPECT_EQ(read("inside.xml"), "a{b part(x=1){inner outer[text]} c{outer[text]}}");
    EXPECT_EQ(read("sub/../sub/part.xml"), "part(x=1){inner outer[text]}");
}

TEST_F(XMLInclude, aTextIncludesBesideTheFileThatTheParserStandsAt)
{
    _folder.write("part.xml", "<part/>");
    XMLDataFileParser parser;
    parser.setFileName(FileName(_folder.path("some.xml")));
    DataItem item;
    parser.readFromBuffer("<a><include file='part.xml'/></a>", item);
    EXPECT_EQ(describe(item), "a{part}");
    EXPECT_EQ(parser.getFileName().filename(), "some.xml");
}

TEST_F(XMLInclude, circlesAreRefused)
{
    _folder.write("self.xml", "<a>\n <include file='self.xml'/></a>");
    _folder.write("bare.xml", "<include file='bare.xml'/>");
    _folder.write("one.xml", "<a><include file='sub/two.xml'/></a>");
    _folder.write("sub/two.xml", "<b><include file='link.xml'/></b>");
    fs::create_symlink("../one.xml", _folder.path("sub/link.xml").c_str());
    MrvString message;
    EXPECT_EQ(read("self.xml", message), "failed");
    EXPECT_EQ(message,
              MrvString("File '") + _folder.path("self.xml") + "', line 2, column 3: file includes itself");
    EXPECT_EQ(read("bare.xml", message), "failed");
    EXPECT_EQ(read("one.xml", message), "failed");
    EXPECT_NE(message.find("sub/two.xml', line 1, column 5: file includes itself"), MrvString::npos)
        << message;
}

TEST_F(XMLInclude, fewFilesCannotBecomeManyElements)
{
    const auto includes = [](const char* name, int count) {
        std::string text = "<a>";
        for (int i = 0; i < count; ++i)
            text += std::string("<include file='") + name + "'/>";
        return text + "</a>";
    };
    MrvString message;
    _folder.write("e.xml", "<e/>");
    _folder.write("d.xml", includes("e.xml", 100));
    _folder.write("c.xml", includes("d.xml", 100));
    _folder.write("b.xml", includes("c.xml", 100));
    EXPECT_EQ(read("b.xml", message), "failed") << "a million elements";
    EXPECT_NE(message.find("too many included files"), MrvString::npos) << message;
    EXPECT_NE(read("d.xml"), "failed");

    _folder.write("large.xml", "<e>" + std::string(3 << 20, 'x') + "</e>");
    _folder.write("often.xml", includes("large.xml", 7));
    EXPECT_EQ(read("often.xml", message), "failed");
    EXPECT_NE(message.find("files included too often"), MrvString::npos) << message;
    _folder.write("some.xml", includes("large.xml", 6));
    EXPECT_NE(read("some.xml"), "failed");

    for (int i = 0; i < 60; ++i)
        _folder.write(("n" + std::to_string(i)).c_str(), "<include file='n" + std::to_string(i + 1) + "'/>");
    _folder.write("n60", "<e/>");
    EXPECT_EQ(read("n0", message), "failed");
    EXPECT_NE(message.find("includes nested too deep"), MrvString::npos) << message;
    EXPECT_EQ(read("n10"), "e");
}

/// What keeps a file from being read: reported by tryRead, fatal for read.
struct FailureCase
{
    const char* name;
    const char* content; // null for a file that is not there
    const char* message; // behind the name of the file
    const char* fatal;   // "%" stands for the name of the file
};

const FailureCase failureCases[] = {
    { "missing", nullptr, "' does not exist", "assert failed: FileDir::exist\\( fileName \\)\n" },
    { "empty", "", "' is empty", "assert failed: thisFile.size\\(\\) > 0\nUnable to load file %" },
    { "blank", " \n", "' has no root element",
      "assert failed: doc.first_node\\(\\) != NULL\nNo root element in file %" },
    { "onlyComments", "<!-- <a/> -->", "' has no root element",
      "assert failed: doc.first_node\\(\\) != NULL\nNo root element in file %" },
    { "plainText", "text", "', line 1, column 1: expected <",
      "exit:\nexpected <\nIn file %\nBefore\ntext\n" },
    { "notClosed", "<a>\n <b", "', line 2, column 4: expected >",
      "exit:\nexpected >\nIn file %\nBefore\n\n" },
    { "afterEntities", "<a x='&lt;&lt;\n&lt;'\n>\n<b y=>text\x1b</b></a>",
      "', line 4, column 6: expected ' or \"",
      "exit:\nexpected ' or \"\nIn file %\nBefore\n>text\\?</b></a>\n" },
    { "includeWithoutFile", "<a>\n<include/></a>",
      "', line 2, column 2: include without a file as its first attribute",
      "exit:\nInclude tag missing file attribute before\ninclude/></a>\n" },
    { "includeFileInSecondPlace", "<a><include x='1' file='y'/></a>",
      "', line 1, column 5: include without a file as its first attribute",
      "exit:\nInclude tag missing file attribute before\ninclude x='1' file='y'/></a>\n" },
    { "includeWithoutName", "<include file=''/>",
      "', line 1, column 2: include without a file as its first attribute",
      "exit:\nInclude tag missing file attribute before\ninclude file=''/>\n" },
    { "includesItself", "<a><include file='includesItself'/></a>",
      "', line 1, column 5: file includes itself",
      "exit:\nfile includes itself\nIn file %\nBefore\ninclude file" },
    { "includesMissing", "<a><include file='none'/></a>",
      "', line 1, column 5: included file '*none' does not exist",
      "assert failed: FileDir::exist\\( fileName \\)\n" },
    { "includesDirectory", "<a><include file='.'/></a>",
      "', line 1, column 5: included file '*.' is a directory",
      "assert failed: thisFile.size\\(\\) > 0\nUnable to load file .*/\\.\n" },
    { "includesDevice", "<a><include file='../../dev/zero'/></a>",
      "', line 1, column 5: included file '*../../dev/zero' is not a file",
      "Unable to load file .*/dev/zero\n" },
};

class XMLFailure : public testing::TestWithParam<FailureCase>
{
protected:
    XMLFailure() : _file(_folder.path(GetParam().name))
    {
        if (GetParam().content != nullptr)
            _folder.write(GetParam().name, GetParam().content);
    }
    /// The text with what stands for the path of the file, or for its folder, filled in.
    std::string fill(const char* text, char sign, const MrvString& path) const
    {
        std::string filled(text);
        const size_t place = filled.find(sign);
        return place == std::string::npos ? filled : filled.replace(place, 1, path.c_str());
    }

    const TemporaryFolder _folder;
    const MrvString _file;
};

TEST_P(XMLFailure, isReportedWithFilePlaceAndReason)
{
    DataItem item("former");
    item.addChild("former");
    MrvString message;
    EXPECT_FALSE(XMLDataFileParser().tryRead(_file.c_str(), item, message));
    EXPECT_EQ(message, MrvString("File '") + _file + fill(GetParam().message, '*', _folder.path("")));
    EXPECT_EQ(describe(item), "") << "left empty";
}

TEST_P(XMLFailure, isFatalForThePlainRead)
{
    DataItem item;
    EXPECT_EXIT(XMLDataFileParser().read(_file.c_str(), item), testing::KilledBySignal(SIGTRAP),
                fill(GetParam().fatal, '%', _file));
}

INSTANTIATE_TEST_SUITE_P(Table, XMLFailure, testing::ValuesIn(failureCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(XMLDataFileParser, reportsWhatNamesNoFile)
{
    XMLDataFileParser parser;
    DataItem item;
    MrvString message;
    for (const char* name : { static_cast<const char*>(nullptr), "" })
    {
        EXPECT_FALSE(parser.tryRead(name, item, message));
        EXPECT_EQ(message, "File '' does not exist");
        DataItem written("a");
        written.addAttribute("x", "1");
        EXPECT_EQ(parser.write(name, written), SaveXMLDataFileErrorCode::FILE_CREATION_FAILED);
    }
    EXPECT_FALSE(parser.tryRead("/", item, message));
    EXPECT_EQ(message, "File '/' is a directory");
    EXPECT_FALSE(parser.getFileName().hasName()) << "no file was read";

    EXPECT_FALSE(parser.tryReadFromBuffer("<a>\n<b>", 7, item, message));
    EXPECT_EQ(message, "Line 2, column 4: unexpected end of data");
    EXPECT_FALSE(parser.tryReadFromBuffer("", 0, item, message));
    EXPECT_EQ(message, "Text has no root element");
    EXPECT_TRUE(parser.tryReadFromBuffer("<a/> no end", 4, item, message)) << message;
}

TEST(XMLDataFileParserDeathTest, textsWithoutAFileAreFatalToo)
{
    const auto trapped = testing::KilledBySignal(SIGTRAP);
    DataItem item("bare");
    item.setContent("text");
    XMLDataFileParser parser;
    EXPECT_EXIT(parser.readFromBuffer("<a", item), trapped, "exit:\nexpected >\nBefore\n\n");
    EXPECT_EXIT(parser.readFromBuffer(" ", item), trapped, "doc.first_node\\(\\) != NULL\nNo root element\n");
    std::istringstream empty;
    EXPECT_EXIT(parser.readFromBuffer(empty, item), trapped,
                "thisFile.size\\(\\) > 0\nUnable to load buffer\n");
    EXPECT_EXIT(parser.write("/dev/null", item), trapped,
                "configurationItem.getChildrenCount\\(\\) \\|\\| configurationItem.getAttributesCount\\(\\)");
    std::ostringstream stream;
    EXPECT_EXIT(parser.writeToBuffer(stream, item), trapped, "configurationItem.getChildrenCount");
    EXPECT_EXIT(XMLDataFileParser("no such file", item), trapped, "FileDir::exist\\( fileName \\)");
}

} // namespace
} // namespace mrv
