// mrvCore/system/xml/mrvXMLTreeReader.cpp
// Reads XML text into a data item tree, by the plain reader or else by RapidXML, which only this place knows.
#include "mrvCore/system/xml/mrvXMLTreeReader.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/utils/mrvFileName.h"
#include "mrvCore/system/xml/mrvXMLInputFile.h"
#include "mrvCore/system/xml/mrvXMLNesting.h"
#include "mrvCore/system/xml/mrvXMLPlainReader.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>

#include <rapidxml/rapidxml.hpp>

namespace mrv {

namespace {

using Document = rapidxml::xml_document<char>;
using Node = rapidxml::xml_node<char>;
using Attribute = rapidxml::xml_attribute<char>;

/// A text that is being read.
struct Source
{
    /// The buffer as it was before RapidXML parsed it in place, for messages.
    PODArray<char> getOriginal() const
    {
        PODArray<char> original;
        if (file == nullptr)
            original.assign(size, text);
        else
            file->readAll(original);
        return original;
    }

    const char* fileName = nullptr; // null for a text of the caller
    XMLInputFile* file = nullptr;   // null likewise
    const char* text = nullptr;     // the caller's
    size_t size = 0;
    FileName* current = nullptr;
    const Source* includer = nullptr;
    const char* includedAt = nullptr; // in the includer's buffer
    size_t levelsAbove = 0;           // of elements around the root

    PODArray<char> buffer;
};

/// Up to 99 bytes of text from an offset on, what a terminal might take for a command replaced.
MrvString getCharsAfter(const PODArray<char>& original, size_t offset)
{
    const size_t size = std::min(original.size(), offset + 99);
    MrvString chars;
    for (; offset < size && original[offset] != '\0'; ++offset)
    {
        const char character = original[offset];
        const bool isControl = (character >= 0 && character < ' ') || character == '\x7f';
        chars += isControl && character != '\n' && character != '\t' ? '?' : character;
    }
    return chars;
}

/// "File 'x', line 3, column 7: "
MrvString describePlace(const Source& source, const PODArray<char>& original, size_t offset)
{
    int64_t line = 1;
    int64_t column = 1;
    for (size_t i = 0; i < std::min(original.size(), offset); ++i)
    {
        const bool isEnd = original[i] == '\n';
        line += isEnd ? 1 : 0;
        column = isEnd ? 1 : column + 1;
    }
    MrvString place =
        source.fileName == nullptr ? "Line " : MrvString("File '") + source.fileName + "', line ";
    place += line;
    place += ", column ";
    place += column;
    return place + ": ";
}

/// The elements inside one, from the next one on, and the items that they are read into.
struct Pending
{
    const Node* node;
    DataItem* item;
};

bool isNew(const DataItem& item)
{
    return item.getChildrenCount() == 0 && item.getAttributesCount() == 0 &&
           item.getTexts().getContent().empty();
}

bool isInclude(const Node& node)
{
    constexpr char name[] = "include";
    return node.name_size() == sizeof(name) - 1 && std::memcmp(node.name(), name, sizeof(name) - 1) == 0;
}

size_t countChildren(const Node& node)
{
    size_t count = 0;
    for (const Node* it = node.first_node(); it != nullptr; it = it->next_sibling())
        ++count;
    return count;
}

void takeTexts(internal::ItemTexts& texts, const Node& node)
{
    texts.setName(node.name(), node.name_size());
    if (node.value_size() != 0)
        texts.setContent(node.value(), node.value_size());

    size_t added = 0;
    for (const Attribute* it = node.first_attribute(); it != nullptr; it = it->next_attribute())
        added += internal::ItemText::footprintOf(it->name_size()) +
                 internal::ItemText::footprintOf(it->value_size());
    texts.reserve(added);
    for (const Attribute* it = node.first_attribute(); it != nullptr; it = it->next_attribute())
        texts.addAttribute(it->name(), it->name_size(), it->value(), it->value_size());
}

/// One read with all that it includes.
class TreeReader
{
public:
    explicit TreeReader(XMLReadFailure& failure) : _failure(failure) {}

    bool readFile(Source& source, DataItem& item);
    bool readText(Source& source, DataItem& item);

private:
    bool readPlain(const Source& source, const char* text, size_t size, DataItem& item) const;
    bool readBuffer(Source& source, DataItem& item);
    bool fromRapidXmlElementToDataItem(DataItem& root, const Node& rootNode, const Source& source);
    bool include(DataItem& item, const Node& node, const Source& source, size_t level);

    // Each notes a failure and returns false. A place is in the source's buffer.
    bool failAtFile(const Source& source, const char* expression, const MrvString& fatalText,
                    const char* reason);
    bool failAtSyntax(const Source& source, const char* place, const char* reason);
    bool failAt(const Source& source, const char* place, const MrvString& fatalHead, const char* reason);

    XMLReadFailure& _failure;
    PODArray<XMLInputFile::Id> _included;
    size_t _repeatedBytes = 0;
};

bool TreeReader::readFile(Source& source, DataItem& item)
{
    XMLInputFile& file = *source.file;
    if (!file.isThere())
        return failAtFile(source, "FileDir::exist( fileName )", "", file.getFailure().c_str());
    if (!file.readAll(source.buffer) || source.buffer.size() == 1)
    {
        const char* const reason = file.getFailure().empty() ? "is empty" : file.getFailure().c_str();
        return failAtFile(source, "thisFile.size() > 0", MrvString("Unable to load file ") + source.fileName,
                          reason);
    }
    return readPlain(source, source.buffer.begin(), source.buffer.size() - 1, item) ||
           readBuffer(source, item);
}

bool TreeReader::readText(Source& source, DataItem& item)
{
    if (readPlain(source, source.text, source.size, item))
        return true;
    source.buffer.set_capacity(source.size + 1);
    source.buffer.assign(source.size, source.text);
    source.buffer.push_back('\0');
    return readBuffer(source, item);
}

/// False, with nothing done, for a text that takes the whole parser.
bool TreeReader::readPlain(const Source& source, const char* text, size_t size, DataItem& item) const
{
    if (size >= UINT_MAX || !isNew(item) ||
        !XMLPlainReader(text, size, XMLReadLimits::levels - source.levelsAbove).read(item))
        return false;
    if (source.fileName != nullptr)
        source.current->set(source.fileName);
    return true;
}

bool TreeReader::readBuffer(Source& source, DataItem& item)
{
    char* const text = source.buffer.begin();
    if (source.buffer.size() > UINT_MAX)
        return failAtSyntax(source, text, "text of 4 GiB or more");
    const char* const tooDeep = findElementNestedDeeper(text, XMLReadLimits::levels - source.levelsAbove);
    if (tooDeep != nullptr)
        return failAtSyntax(source, tooDeep, "elements nested too deep");

    std::unique_ptr<Document> document; // too large for the stack
    try
    {
        document = std::make_unique<Document>();
        document->parse<rapidxml::parse_no_data_nodes>(text);
    }
    catch (const rapidxml::parse_error& error)
    {
        return failAtSyntax(source, error.where<char>(), error.what());
    }
    catch (const std::bad_alloc&)
    {
        return failAtSyntax(source, text, "out of memory");
    }

    if (source.fileName != nullptr)
        source.current->set(source.fileName); // before the tree is read, since includes lie beside it
    const Node* const root = document->first_node();
    if (root == nullptr)
        return failAtFile(source, "doc.first_node() != NULL",
                          source.fileName == nullptr
                              ? MrvString("No root element")
                              : MrvString("No root element in file ") + source.fileName,
                          "has no root element");
    return fromRapidXmlElementToDataItem(item, *root, source);
}

/// Walks without recursion, in document order, so that only the parse before it takes stack by levels.
bool TreeReader::fromRapidXmlElementToDataItem(DataItem& root, const Node& rootNode, const Source& source)
{
    PODArray<Pending> levels;
    levels.push_back({ &rootNode, &root });
    while (levels.any())
    {
        const Node* const node = levels.back().node;
        if (node == nullptr)
        {
            levels.pop_back();
            continue;
        }
        DataItem& item = *levels.back().item++;
        levels.back().node =
            levels.size() == 1 ? nullptr : node->next_sibling(); // a second root counts for nothing
        if (isInclude(*node))
        {
            if (!include(item, *node, source, source.levelsAbove + levels.size()))
                return false;
            continue;
        }
        takeTexts(item.touchTexts(), *node);
        const Node* const firstChild = node->first_node();
        if (firstChild == nullptr)
            continue;
        const unsigned int index = item.getChildrenCount();
        item.addChildren(countChildren(*node));
        levels.push_back({ firstChild, &item.touchChild(index) });
    }
    return true;
}

/// The root of the included file takes the place of the element, in the same item.
bool TreeReader::include(DataItem& item, const Node& node, const Source& source, size_t level)
{
    const Attribute* const file = node.first_attribute();
    if (file == nullptr || std::strcmp(file->name(), "file") != 0 || file->value_size() == 0)
        return failAt(source, node.name(), "Include tag missing file attribute before\n",
                      "include without a file as its first attribute");

    const MrvString path = source.current->pathname(true) + file->value();
    XMLInputFile opened(path.c_str());
    size_t nesting = 0;
    for (const Source* outer = &source; outer != nullptr; outer = outer->includer, ++nesting)
        if (outer->file != nullptr && outer->file->getId() == opened.getId())
            return failAtSyntax(source, node.name(), "file includes itself");
    if (nesting > XMLReadLimits::includeNesting)
        return failAtSyntax(source, node.name(), "includes nested too deep");
    if (_included.size() == XMLReadLimits::includes)
        return failAtSyntax(source, node.name(), "too many included files");
    if (_included.find(opened.getId()) != _included.end())
        _repeatedBytes += opened.getSize();
    if (_repeatedBytes > XMLReadLimits::repeatedBytes)
        return failAtSyntax(source, node.name(), "files included too often");
    _included.push_back(opened.getId());

    FileName current;
    Source included;
    included.fileName = path.c_str();
    included.file = &opened;
    included.current = &current;
    included.includer = &source;
    included.includedAt = node.name();
    included.levelsAbove = level - 1;
    return readFile(included, item);
}

bool TreeReader::failAtFile(const Source& source, const char* expression, const MrvString& fatalText,
                            const char* reason)
{
    _failure.expression = expression;
    _failure.fatalText = fatalText;
    if (source.includer != nullptr)
    {
        const Source& includer = *source.includer;
        const size_t offset = static_cast<size_t>(source.includedAt - includer.buffer.begin());
        _failure.report = describePlace(includer, includer.getOriginal(), offset) + "included file '";
        if (!source.file->isOpen())
            _failure.unopenedInclude = source.fileName;
    }
    else
        _failure.report = source.fileName == nullptr ? "Text" : "File '";
    if (source.fileName != nullptr)
        _failure.report += MrvString(source.fileName) + "'";
    _failure.report += MrvString(" ") + reason;
    return false;
}

bool TreeReader::failAtSyntax(const Source& source, const char* place, const char* reason)
{
    MrvString head(reason);
    if (source.fileName != nullptr)
        head += MrvString("\nIn file ") + source.fileName;
    return failAt(source, place, head + "\nBefore\n", reason);
}

bool TreeReader::failAt(const Source& source, const char* place, const MrvString& fatalHead,
                        const char* reason)
{
    const PODArray<char> original = source.getOriginal();
    const size_t offset = static_cast<size_t>(place - source.buffer.begin());
    _failure.fatalText = fatalHead + getCharsAfter(original, offset);
    _failure.report = describePlace(source, original, offset) + reason;
    return false;
}

} // namespace

bool readXMLFile(const char* fileName, FileName& current, DataItem& item, XMLReadFailure& failure)
{
    XMLInputFile file(fileName);
    Source source;
    source.fileName = fileName == nullptr ? "" : fileName;
    source.file = &file;
    source.current = &current;
    return TreeReader(failure).readFile(source, item);
}

bool readXMLText(const char* text, size_t size, FileName& current, DataItem& item, XMLReadFailure& failure)
{
    Source source;
    source.text = text;
    source.size = size;
    source.current = &current;
    return TreeReader(failure).readText(source, item);
}

} // namespace mrv
