// mrvCore/system/xml/mrvXMLPrinter.cpp
// Turns a data item tree into XML text.
#include "mrvCore/system/xml/mrvXMLPrinter.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"

#include <cstring>

namespace mrv {

namespace {

constexpr size_t longestReference = 6;

/// An element that is open, and the child that comes next in it.
struct OpenElement
{
    const DataItem* item;
    unsigned int nextChild;
};

// Each of these writes at `to` and returns the place behind.

char* put(char* to, const char* text, size_t size)
{
    std::memcpy(to, text, size);
    return to + size;
}

char* putIndent(char* to, size_t level)
{
    std::memset(to, '\t', level);
    return to + level;
}

/// The text with references in place of its special characters, all but `plain`.
char* putEscaped(char* to, const char* text, char plain)
{
    for (; *text != '\0'; ++text)
    {
        const char character = *text;
        if (character > '>' || character == plain)
            *to++ = character;
        else if (character == '<')
            to = put(to, "&lt;", 4);
        else if (character == '>')
            to = put(to, "&gt;", 4);
        else if (character == '&')
            to = put(to, "&amp;", 5);
        else if (character == '"')
            to = put(to, "&quot;", 6);
        else if (character == '\'')
            to = put(to, "&apos;", 6);
        else
            *to++ = character;
    }
    return to;
}

} // namespace

bool XMLPrinter::print(const DataItem& root, size_t maximumLevels)
{
    PODArray<OpenElement> open;
    printStart(root, 0);
    open.push_back({ &root, 0 });
    while (open.any())
    {
        OpenElement& last = open.back();
        if (last.nextChild == last.item->getChildrenCount())
        {
            printEnd(*last.item, open.size() - 1);
            open.pop_back();
            continue;
        }
        if (open.size() == maximumLevels)
            return false;
        const DataItem& child = last.item->getChild(last.nextChild++);
        printStart(child, open.size());
        open.push_back({ &child, 0 });
    }
    reserve(1);
    *_end++ = '\n';
    flush();
    return true;
}

void XMLPrinter::printStart(const DataItem& item, size_t level)
{
    const char* const name = item.getName();
    const size_t nameSize = std::strlen(name);
    reserve(level + nameSize + 1);
    _end = putIndent(_end, level);
    *_end++ = '<';
    _end = put(_end, name, nameSize);

    const unsigned int count = item.getAttributesCount();
    for (unsigned int i = 0; i < count; ++i)
    {
        const auto [attributeName, value] = item.getAttribute(i);
        printAttribute(attributeName, value);
    }

    const char* const content = item.getContent();
    reserve(longestReference * std::strlen(content) + 3);
    if (item.getChildrenCount() != 0)
        _end = put(_end, ">\n", 2);
    else if (*content == '\0')
        _end = put(_end, "/>\n", 3);
    else
    {
        *_end++ = '>';
        _end = putEscaped(_end, content, '\0');
    }
}

void XMLPrinter::printAttribute(const char* name, const char* value)
{
    const size_t nameSize = std::strlen(name);
    const size_t valueSize = std::strlen(value);
    reserve(nameSize + longestReference * valueSize + 4);
    // A value that holds quotes of one kind stands between those of the other.
    const bool hasQuote = std::memchr(value, '"', valueSize) != nullptr;
    const char quote = hasQuote ? '\'' : '"';
    *_end++ = ' ';
    _end = put(_end, name, nameSize);
    *_end++ = '=';
    *_end++ = quote;
    _end = putEscaped(_end, value, hasQuote ? '"' : '\'');
    *_end++ = quote;
}

void XMLPrinter::printEnd(const DataItem& item, size_t level)
{
    const bool hasChildren = item.getChildrenCount() != 0;
    if (!hasChildren && *item.getContent() == '\0')
        return;
    const char* const name = item.getName();
    const size_t nameSize = std::strlen(name);
    reserve(level + nameSize + 4);
    _end = putIndent(_end, hasChildren ? level : 0);
    _end = put(_end, "</", 2);
    _end = put(_end, name, nameSize);
    _end = put(_end, ">\n", 2);
}

void XMLPrinter::makeRoom(size_t size)
{
    flush();
    if (size > _buffer.capacity())
        _buffer.set_capacity(size);
    _end = _buffer.begin();
    _limit = _end + _buffer.capacity();
}

void XMLPrinter::flush()
{
    if (_end != _buffer.begin())
        _sink.put(_buffer.begin(), static_cast<size_t>(_end - _buffer.begin()));
    _end = _buffer.begin();
}

} // namespace mrv
