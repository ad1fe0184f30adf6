// mrvCore/system/xml/mrvXMLPrinter.cpp
// Prints XML text.
#include "mrvCore/system/xml/mrvXMLPrinter.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/memory/mrvShortBytes.h"

#include <cstring>

namespace mrv {

namespace {

constexpr size_t longestReference = 6;

/// True for what does not stand for itself in a value, and for the zero at the end.
bool isSpecial(char character)
{
    constexpr uint64_t special = uint64_t(1) << '\0' | uint64_t(1) << '"' | uint64_t(1) << '&' |
                                 uint64_t(1) << '\'' | uint64_t(1) << '<' | uint64_t(1) << '>';
    const unsigned char index = static_cast<unsigned char>(character);
    return index < 64 && (special >> index & 1) != 0;
}

/// An item whose element is open, and its child that comes next.
struct OpenItem
{
    const DataItem* item;
    unsigned int nextChild;
};

// Each of these writes at `to` and returns the place behind.

char* put(char* to, const char* text, size_t size)
{
    internal::copyShortBytes(to, text, size);
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
        if (!isSpecial(character) || character == plain)
            *to++ = character;
        else if (character == '<')
            to = put(to, "&lt;", 4);
        else if (character == '>')
            to = put(to, "&gt;", 4);
        else if (character == '&')
            to = put(to, "&amp;", 5);
        else if (character == '"')
            to = put(to, "&quot;", 6);
        else
            to = put(to, "&apos;", 6);
    }
    return to;
}

} // namespace

void XMLPrinter::print(const DataItem& item)
{
    open(item.getName(), std::strlen(item.getName()));
    printInside(item);
    close();
}

void XMLPrinter::printInside(const DataItem& item)
{
    printAttributes(item);
    PODArray<OpenItem> items;
    items.push_back({ &item, 0 });
    while (!_isTooDeep)
    {
        OpenItem& last = items.back();
        if (last.nextChild < last.item->getChildrenCount())
        {
            const DataItem& child = last.item->getChild(last.nextChild++);
            open(child.getName(), std::strlen(child.getName()));
            printAttributes(child);
            items.push_back({ &child, 0 });
            continue;
        }
        if (last.nextChild == 0)
            printContent(*last.item);
        items.pop_back();
        if (items.empty())
            return;
        close();
    }
}

void XMLPrinter::open(const char* name, size_t nameSize)
{
    const size_t level = _open.size();
    _isTooDeep = _isTooDeep || level == _maximumLevels;
    if (_isTooDeep)
        return;
    reserve(level + nameSize + 3);
    if (level != 0 && _open.back().inside == Inside::NOTHING)
    {
        _end = put(_end, ">\n", 2);
        _open.back().inside = Inside::CHILDREN;
    }
    _end = putIndent(_end, level);
    *_end++ = '<';
    _end = put(_end, name, nameSize);
    _open.push_back({ name, static_cast<uint32_t>(nameSize), Inside::NOTHING });
}

void XMLPrinter::close()
{
    if (_isTooDeep)
        return;
    const Element element = _open.back();
    _open.pop_back();
    reserve(_open.size() + element.nameSize + 4);
    if (element.inside == Inside::NOTHING)
    {
        _end = put(_end, "/>\n", 3);
        return;
    }
    if (element.inside == Inside::CHILDREN)
        _end = putIndent(_end, _open.size());
    _end = put(_end, "</", 2);
    _end = put(_end, element.name, element.nameSize);
    _end = put(_end, ">\n", 2);
}

void XMLPrinter::addAttribute(const char* name, size_t nameSize, const char* value, size_t valueSize)
{
    if (!beginAttribute(name, nameSize, longestReference * valueSize))
        return;
    // Most values have no special character, and it costs little to begin anew at one.
    char* to = _end + 1;
    const char* from = value;
    while (!isSpecial(*from))
        *to++ = *from++;
    // A value that holds quotes of one kind stands between those of the other.
    const bool hasQuote = *from != '\0' && std::strchr(from, '"') != nullptr;
    const char quote = hasQuote ? '\'' : '"';
    if (*from != '\0')
        to = putEscaped(_end + 1, value, hasQuote ? '"' : '\'');
    *_end = quote;
    *to = quote;
    _end = to + 1;
}

bool XMLPrinter::beginAttribute(const char* name, size_t nameSize, size_t valueRoom)
{
    if (_isTooDeep || _open.back().inside != Inside::NOTHING)
        return false;
    reserve(nameSize + valueRoom + 4);
    *_end++ = ' ';
    _end = put(_end, name, nameSize);
    *_end++ = '=';
    return true;
}

void XMLPrinter::printAttributes(const DataItem& item)
{
    const internal::ItemTexts& texts = item.getTexts();
    for (const char* place = texts.attributesBegin(); place != texts.end();)
    {
        const internal::ItemAttribute attribute(place);
        const char* const name = attribute.name.c_str();
        addAttribute(name, std::strlen(name), attribute.value.c_str(), attribute.value.size());
        place = attribute.behind();
    }
}

void XMLPrinter::printContent(const DataItem& item)
{
    const internal::ItemText content = item.getTexts().getContent();
    Element& element = _open.back();
    if (*content.c_str() == '\0' || element.inside != Inside::NOTHING)
        return;
    element.inside = Inside::CONTENT;
    reserve(longestReference * content.size() + 1);
    *_end++ = '>';
    _end = putEscaped(_end, content.c_str(), '\0');
}

bool XMLPrinter::finish()
{
    reserve(1);
    *_end++ = '\n';
    flush();
    return !_isTooDeep;
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
