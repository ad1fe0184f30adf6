// mrvCore/system/xml/mrvXMLPrinter.cpp
// Turns a data item tree into XML text.
#include "mrvCore/system/xml/mrvXMLPrinter.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"

#include <cstdint>
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

/// The text up to its zero. Shorter than what two calls for its length and its copy would take.
char* putText(char* to, const char* text)
{
    for (; *text != '\0'; ++text)
        *to++ = *text;
    return to;
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
    const internal::ItemTexts& texts = item.getTexts();
    const internal::ItemText name = texts.getName();
    reserve(level + name.size() + 1);
    _end = putIndent(_end, level);
    *_end++ = '<';
    _end = putText(_end, name.c_str());

    for (const char* place = texts.attributesBegin(); place != texts.end();)
    {
        const internal::ItemAttribute attribute(place);
        printAttribute(attribute);
        place = attribute.behind();
    }

    const internal::ItemText content = texts.getContent();
    reserve(longestReference * content.size() + 3);
    if (item.getChildrenCount() != 0)
        _end = put(_end, ">\n", 2);
    else if (*content.c_str() == '\0')
        _end = put(_end, "/>\n", 3);
    else
    {
        *_end++ = '>';
        _end = putEscaped(_end, content.c_str(), '\0');
    }
}

void XMLPrinter::printAttribute(const internal::ItemAttribute& attribute)
{
    const char* const value = attribute.value.c_str();
    reserve(attribute.name.size() + longestReference * attribute.value.size() + 4);
    *_end++ = ' ';
    _end = putText(_end, attribute.name.c_str());
    *_end++ = '=';

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

void XMLPrinter::printEnd(const DataItem& item, size_t level)
{
    const bool hasChildren = item.getChildrenCount() != 0;
    if (!hasChildren && *item.getContent() == '\0')
        return;
    const internal::ItemText name = item.getTexts().getName();
    reserve(level + name.size() + 4);
    _end = putIndent(_end, hasChildren ? level : 0);
    _end = put(_end, "</", 2);
    _end = putText(_end, name.c_str());
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
