// tests/system/serialization/mrvXMLStreamTest.cpp
#include "mrvCore/system/serialization/mrvXMLStream.h"

#include "mrvCore/system/inspection/mrvAbstractAttributeT.h"
#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/support/mrvCommaLocale.h"
#include "tests/support/mrvTemporaryFolder.h"
#include "tests/support/mrvTestGraph.h"

#include <csignal>
#include <sstream>
#include <string>

namespace mrv::test {
namespace {

/// The text of an object, whichever way it is written.
template <typename T>
std::string textOf(const T& object)
{
    XMLStream stream;
    std::ostringstream exported;
    XMLStream().exportObject(exported, stream.getRoot(), object);
    stream.pack(stream.getRoot(), object);
    std::ostringstream text;
    XMLDataFileParser().writeToBuffer(text, stream.getRoot());
    EXPECT_EQ(exported.str(), text.str());
    return text.str();
}

/// Reads from a text whose root element stands for the file's.
template <typename T>
bool readText(const std::string& text, T& object)
{
    DataItem root;
    XMLDataFileParser().readFromBuffer(text.c_str(), root);
    return XMLStream().unpack(root, object);
}

class CollectingLogger : public ILogger
{
public:
    void trace(Log::Module, Log::Severity, const char* message, const char*, int, const char*) override
    {
        _messages += std::string(message) + "\n";
    }
    std::string _messages;
};

class XMLStreamTest : public GraphTest
{
protected:
    XMLStreamTest() { getLog()->resetTraceCounts(); }
    CollectingLogger _logger;
};

TEST_F(XMLStreamTest, aGraphComesBackEqualWithItsCyclesAndSharedObjects)
{
    const int aliveBefore = Part::s_alive;
    {
        Scene scene, loaded;
        fillScene(scene);
        const std::string text = textOf(scene);
        ASSERT_TRUE(readText(text, loaded));
        expectEqualScenes(loaded, scene);
        EXPECT_EQ(textOf(loaded), text);
        deleteNodes();
        const CommaLocale locale;
        Scene loadedUnderCommas;
        ASSERT_TRUE(readText(text, loadedUnderCommas));
        EXPECT_EQ(textOf(loadedUnderCommas), text);
        EXPECT_EQ(_logger._messages, "");
        deleteNodes();
    }
    EXPECT_EQ(Part::s_alive, aliveBefore);
}

TEST_F(XMLStreamTest, elementsHaveTheirDocumentedForm)
{
    Node father("f");
    LitNode child;
    child._name = "c";
    child._father = &father;
    child._colour.push_back(0.1f);
    child._isLit = true;
    father._children.push_back(&child);
    father._children.push_back(&child);
    father._children.push_back(nullptr);
    EXPECT_EQ(textOf(father), R"(<XMLSerialization>
	<maravoObject pointerID="1" typeName="test::Node">
		<name value="f"/>
		<position x="0" y="0" z="0"/>
		<father pointerID="0"/>
		<children>
			<element index="0" pointerID="2" typeName="test::LitNode">
				<name value="c"/>
				<position x="0" y="0" z="0"/>
				<father pointerID="1"/>
				<children/>
				<colour>
					<element index="0" value="0.100000001490116119384765625"/>
				</colour>
				<isLit value="1"/>
			</element>
			<element index="1" pointerID="2"/>
			<element index="2" pointerID="0"/>
		</children>
	</maravoObject>
</XMLSerialization>

)");
}

/// An attribute class that fills its element itself.
class NoteAttribute : public AbstractAttributeT<int, Part>
{
public:
    NoteAttribute() : AbstractAttributeT<int, Part>("note", Part::getClassRTTI()) {}
    void pack(BinaryStream&, const void*) const override {}
    void unpack(BinaryStream&, void*) const override {}
    void pack(XMLStream& stream, DataItem& item, const void* object) const override
    {
        if (stream.isFirstPass())
            return;
        item.addAttribute("author", "me & \"you\"");
        DataItem& child = item.addChild();
        child.setName("count");
        stream.write(child, static_cast<const Part*>(object)->_count);
        item.addChild().setName("text");
        item.touchChild(1).setContent("1 < 2");
    }
    void unpack(XMLStream&, const DataItem&, void*) const override {}
};

TEST_F(XMLStreamTest, anAttributeMayFillItsElementItself)
{
    const RTTI& record = Part::getClassRTTI();
    record.addAttribute(NoteAttribute());
    EXPECT_EQ(textOf(Part("p", 7)), R"(<XMLSerialization>
	<maravoObject pointerID="1" typeName="test::Part">
		<label value="p"/>
		<count value="7"/>
		<note author='me &amp; "you"'>
			<count value="7"/>
			<text>1 &lt; 2</text>
		</note>
	</maravoObject>
</XMLSerialization>

)");
    record.isRemoving(true);
    record.addAttribute(NoteAttribute());
    record.isRemoving(false);
}

TEST_F(XMLStreamTest, anExportedObjectStandsBehindWhatTheRootHas)
{
    DataItem root("file");
    root.addAttribute("Version", 3);
    root.addChild().setName("author");
    std::ostringstream text;
    XMLStream().exportObject(text, root, Part("<", -1));
    EXPECT_EQ(text.str(), R"(<file Version="3">
	<author/>
	<maravoObject pointerID="1" typeName="test::Part">
		<label value="&lt;"/>
		<count value="-1"/>
	</maravoObject>
</file>

)");
}

TEST_F(XMLStreamTest, whatCouldNotBeReadAgainIsNotExported)
{
    Array<Node*> chain;
    for (unsigned int i = 0; i < XMLDataFileParser::maximumNesting / 2; ++i)
    {
        chain.push_back(new Node());
        if (i > 0)
            chain[i - 1]->_children.push_back(chain[i]);
    }
    const DataItem root("file");
    const TemporaryFolder folder;
    const MrvString file = folder.write("deep.xml", "former");
    EXPECT_EQ(XMLStream().exportObject(file.c_str(), root, *chain[0]),
              SaveXMLDataFileErrorCode::FILE_CREATION_FAILED);
    EXPECT_NE(_logger._messages.find("Item 'file' has more than 1000 levels"), std::string::npos);
    EXPECT_EQ(folder.read("deep.xml"), "former");
    EXPECT_EQ(XMLStream().exportObject(file.c_str(), root, *chain[2]), SaveXMLDataFileErrorCode::SUCCESS);
    DataItem read;
    MrvString message;
    EXPECT_TRUE(XMLDataFileParser().tryRead(file.c_str(), read, message)) << message.c_str();
    deleteNodes();
}

TEST_F(XMLStreamTest, mapsAndPairsHoldTheirTwoElements)
{
    Scene scene;
    scene._ages["a"] = 5;
    scene._pair = std::make_pair(1, MrvString("one"));
    const std::string text = textOf(scene);
    EXPECT_NE(text.find(R"(		<ages>
			<element>
				<element index="0" value="a"/>
				<element index="1" value="5"/>
			</element>
		</ages>
)"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find(R"(		<pair>
			<element index="0" value="1"/>
			<element index="1" value="one"/>
		</pair>
)"),
              std::string::npos);
}

struct ReadCase
{
    const char* name;
    const char* text; ///< of the children of a LitNode's element
    const char* expected;
    const char* message;
};

/// What a case tells of the node that it read.
std::string describe(const LitNode& node)
{
    std::ostringstream text;
    const Vector3& p = node.getPosition();
    text << node._name.c_str() << " (" << p.x << ' ' << p.y << ' ' << p.z << ") lit " << node._isLit << " [";
    for (const float value : node._colour)
        text << ' ' << value;
    text << " ] children " << node._children.size();
    for (const Node* child : node._children)
        text << ' ' << (child != nullptr ? child->_name.c_str() : "null");
    return text.str();
}

const ReadCase readCases[] = {
    { "missingElementsKeepTheDefaults", "", " (0 0 0) lit 0 [ ] children 0", "" },
    { "orderIsOfNoImportance", "<isLit value='TRUE'/><name value='n'/>", "n (0 0 0) lit 1 [ ] children 0",
      "" },
    { "unknownElementWarnsOncePerPass", "<size value='1'/>", " (0 0 0) lit 0 [ ] children 0",
      "Attribute named size unexpected on node maravoObject\n"
      "Attribute named size unexpected on node maravoObject\n" },
    { "vectorAsChildren", "<position><y value='2'/><w value='9'/><x value='1'/></position>",
      " (1 2 0) lit 0 [ ] children 0", "" },
    { "absentComponentsAreZero", "<position z='3'/>", " (0 0 3) lit 0 [ ] children 0", "" },
    { "elementsGoByTheirIndex",
      "<colour><element index='1' value='1'/><element index='0' value='2'/></colour>",
      " (0 0 0) lit 0 [ 2 1 ] children 0", "" },
    { "elementsWithoutIndexGoByPosition", "<colour><element value='1'/><element value='x'/></colour>",
      " (0 0 0) lit 0 [ 1 0 ] children 0", "" },
    { "indexBeyondTheArrayIsSkipped", "<colour><element index='7' value='1'/></colour>",
      " (0 0 0) lit 0 [ 0 ] children 0",
      "Element 7 lies outside an array of 1\nElement 7 lies outside an array of 1\n" },
    { "boolWithoutValueStays", "<isLit/>", " (0 0 0) lit 0 [ ] children 0",
      "Attribute value missing on node isLit, which holds a bool\n"
      "Attribute value missing on node isLit, which holds a bool\n" },
    { "pointersWithoutIdAreObjectsOfTheirOwn",
      "<children><element><name value='a'/></element><element><name value='b'/></element></children>",
      " (0 0 0) lit 0 [ ] children 2 a b", "" },
    { "classThatIsNotRegistered", "<children><element pointerID='2' typeName='Ghost'/></children>",
      " (0 0 0) lit 0 [ ] children 1 null", "Ghost is not a registered inspectable type\n" },
    { "classThatDoesNotFit", "<children><element pointerID='2' typeName='test::Part'/></children>",
      " (0 0 0) lit 0 [ ] children 1 null", "test::Part is not a registered inspectable type\n" },
    { "idOfAnotherClassesObject", "<children><element pointerID='3'/></children>",
      " (0 0 0) lit 0 [ ] children 1 ", "" },
};

class ReadXML : public XMLStreamTest, public testing::WithParamInterface<ReadCase>
{};

TEST_P(ReadXML, isTolerant)
{
    LitNode node;
    ASSERT_TRUE(readText(std::string("<file><maravoObject pointerID='1'>") + GetParam().text +
                             "</maravoObject></file>",
                         node));
    EXPECT_EQ(describe(node), GetParam().expected);
    EXPECT_EQ(_logger._messages, GetParam().message);
    for (Node* child : node._children)
        delete child;
}

INSTANTIATE_TEST_SUITE_P(Table, ReadXML, testing::ValuesIn(readCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(XMLStreamTest, theFirstChildOfAFittingClassIsTaken)
{
    Node node("before");
    EXPECT_FALSE(readText("<file><a typeName='test::Part'/><b typeName='Ghost'/></file>", node));
    EXPECT_STREQ(node._name.c_str(), "before");
    EXPECT_TRUE(readText("<file><a typeName='test::Part'/><b typeName='test::LitNode'><name value='x'/></b>"
                         "</file>",
                         node));
    EXPECT_STREQ(node._name.c_str(), "x");
}

TEST_F(XMLStreamTest, anInstanceMadeForAPointerIsReplacedByTheValueAndDeleted)
{
    const int aliveBefore = Part::s_alive;
    {
        Scene scene;
        // Such files come from writers that met the pointer before the value.
        ASSERT_TRUE(readText("<file><maravoObject pointerID='1'><favourite pointerID='2'><label value='a'/>"
                             "</favourite><parts><element pointerID='2'><label value='a'/></element></parts>"
                             "</maravoObject></file>",
                             scene));
        ASSERT_EQ(scene._parts.size(), 1u);
        EXPECT_EQ(scene._favourite, &scene._parts[0]);
        EXPECT_STREQ(scene._parts[0]._label.c_str(), "a");
    }
    EXPECT_EQ(Part::s_alive, aliveBefore);
}

// Its list would be emptied, and what it owns would have two owners.
TEST_F(XMLStreamTest, anAttributeThatIsStoredTwiceIsReadOnce)
{
    Scene scene;
    ASSERT_TRUE(
        readText("<file><maravoObject><parts><element pointerID='2'><label value='a'/></element></parts>"
                 "<parts><element pointerID='3'/></parts><favourite pointerID='2'/></maravoObject></file>",
                 scene));
    ASSERT_EQ(scene._parts.size(), 1u);
    EXPECT_STREQ(scene._parts[0]._label.c_str(), "a");
    EXPECT_EQ(scene._favourite, &scene._parts[0]);
    EXPECT_EQ(_logger._messages, "Attribute named parts stands twice on node maravoObject\n"
                                 "Attribute named parts stands twice on node maravoObject\n");
}

TEST_F(XMLStreamTest, aDamagedFileCannotMakeAPointerReachAnObjectOfAnotherClass)
{
    Scene scene;
    ASSERT_TRUE(readText("<file><maravoObject pointerID='1'><root pointerID='5'><name value='n'/></root>"
                         "<favourite pointerID='5'><label value='p'/></favourite></maravoObject></file>",
                         scene));
    ASSERT_NE(scene._root, nullptr);
    EXPECT_STREQ(scene._root->_name.c_str(), "n");
    EXPECT_EQ(scene._favourite, nullptr);
    deleteNodes();
}

TEST_F(XMLStreamTest, swappedMapEntriesAreReadAndEmptyOnesAreFatal)
{
    Scene scene;
    ASSERT_TRUE(readText("<file><maravoObject><ages><element><element index='1' value='5'/>"
                         "<element index='0' value='a'/></element></ages></maravoObject></file>",
                         scene));
    ASSERT_EQ(scene._ages.size(), 1u);
    EXPECT_EQ(scene._ages["a"], 5);
    EXPECT_EXIT(readText("<file><maravoObject><ages><element/></ages></maravoObject></file>", scene),
                testing::KilledBySignal(SIGTRAP), "firstChild != NULL");
    EXPECT_EXIT(readText("<file><maravoObject><texts><element/></texts></maravoObject></file>", scene),
                testing::KilledBySignal(SIGTRAP), "no attribute of name : value");
}

} // namespace
} // namespace mrv::test
