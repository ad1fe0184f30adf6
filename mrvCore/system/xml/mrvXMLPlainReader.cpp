// mrvCore/system/xml/mrvXMLPlainReader.cpp
// Reads plain XML in one pass.
#include "mrvCore/system/xml/mrvXMLPlainReader.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"

#include <array>
#include <climits>
#include <cstring>
#include <string_view>
#include <utility>

namespace mrv {

namespace {

using internal::ItemText;
using internal::loadWord;

constexpr bool isSpace(char character)
{
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
}

/// Names are cut alike by every parser as long as they consist of these.
constexpr bool isOfName(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_' || character == '-' ||
           character == '.' || character == ':' || static_cast<unsigned char>(character) >= 0x80;
}

constexpr std::array<bool, UCHAR_MAX + 1> makeNameTable()
{
    std::array<bool, UCHAR_MAX + 1> table{};
    for (size_t i = 0; i < table.size(); ++i)
        table[i] = isOfName(static_cast<char>(i));
    return table;
}

constexpr std::array<bool, UCHAR_MAX + 1> nameTable = makeNameTable();

// Bytes are looked at eight at a time, as a number whose lowest byte is the first.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the first byte of a word is its lowest");
constexpr uint64_t everyByte = 0x0101010101010101;

/// Marks the first byte below `limit` in its highest bit; 0 if there is none. Higher marks may be wrong.
uint64_t markBelow(uint64_t bytes, unsigned char limit)
{
    return (bytes - limit * everyByte) & ~bytes & 0x80 * everyByte;
}

bool startsWith(const char* text, const char* end, std::string_view prefix)
{
    return std::string_view(text, static_cast<size_t>(end - text)).substr(0, prefix.size()) == prefix;
}

struct Entity
{
    std::string_view name;
    char character;
};

constexpr Entity entities[] = {
    { "lt", '<' }, { "gt", '>' }, { "amp", '&' }, { "quot", '"' }, { "apos", '\'' },
};

/// The number of a reference such as #65 or #x41; 0 for one that is malformed or beyond all characters.
uint32_t parseReference(std::string_view text)
{
    text.remove_prefix(1);
    const bool isHexadecimal = !text.empty() && text[0] == 'x';
    if (isHexadecimal)
        text.remove_prefix(1);
    uint32_t code = 0;
    for (const char character : text)
    {
        const char lower = static_cast<char>(character | 0x20);
        const bool isLetter = isHexadecimal && lower >= 'a' && lower <= 'f';
        if (!isLetter && !(character >= '0' && character <= '9'))
            return 0;
        const int digit = isLetter ? lower - 'a' + 10 : character - '0';
        code = code * (isHexadecimal ? 16 : 10) + static_cast<uint32_t>(digit);
        if (code > 0x10ffff)
            return 0;
    }
    return code;
}

void appendUtf8(uint32_t code, PODArray<char>& to)
{
    const auto add = [&](uint32_t byte) { to.push_back(static_cast<char>(byte)); };
    const auto addRest = [&](int shift) { add(0x80 | (code >> shift & 0x3f)); };
    if (code < 0x80)
        return add(code);
    if (code < 0x800)
        add(0xc0 | code >> 6);
    else
    {
        if (code < 0x10000)
            add(0xe0 | code >> 12);
        else
        {
            add(0xf0 | code >> 18);
            addRest(12);
        }
        addRest(6);
    }
    addRest(0);
}

} // namespace

XMLPlainReader::XMLPlainReader(const char* text, size_t size, size_t maximumLevels)
    : _place(text)
    , _textEnd(text + size)
    , _end(_textEnd)
    , _maximumLevels(maximumLevels)
{
    while (_end != text && _end[-1] != '>')
        --_end;
}

bool XMLPlainReader::read(DataItem& item)
{
    if (!skipProlog() || !readStartTag())
        return false;
    while (_open.any())
        if (!readContent())
            return false;
    if (!skipEpilog())
        return false;
    item = std::move(*_items.begin());
    return true;
}

bool XMLPlainReader::skipProlog()
{
    if (startsWith(_place, _end, "\xef\xbb\xbf"))
        _place += 3;
    for (;;)
    {
        if (_place == _end)
            return false;
        skipSpaces();
        if (startsWith(_place, _end, "<?xml ") ? !skipMark("<?xml ", "?>") : !skipComment())
            return *_place == '<';
    }
}

bool XMLPlainReader::skipEpilog()
{
    for (;;)
    {
        while (_place != _textEnd && isSpace(*_place))
            ++_place;
        if (_place == _textEnd || *_place == '\0')
            return true;
        if (_place >= _end || !skipComment())
            return false;
    }
}

bool XMLPlainReader::skipMark(const char* begin, const char* end)
{
    if (!startsWith(_place, _end, begin))
        return false;
    const std::string_view rest(_place, static_cast<size_t>(_end - _place));
    const size_t found = rest.find(end, std::strlen(begin));
    if (found == std::string_view::npos || std::memchr(_place, '\0', found) != nullptr)
        return false;
    _place += found + std::strlen(end);
    return true;
}

bool XMLPlainReader::readContent()
{
    if (_place == _end)
        return false;
    const char* const begin = _place;
    skipSpaces();
    if (*_place != '<')
        return readText(begin);
    if (_place[1] == '/')
        return readEndTag();
    if (_place[1] == '!')
        return skipComment() || skipMark("<![CDATA[", "]]>");
    return readStartTag();
}

bool XMLPlainReader::readStartTag()
{
    if (_open.size() == _maximumLevels)
        return false;
    const char* const name = ++_place;
    _place = skipName();
    const size_t nameSize = static_cast<size_t>(_place - name);
    if (nameSize == 0 || std::string_view(name, nameSize) == "include")
        return false;

    _attributes.clear();
    size_t attributesSize = 0;
    for (skipSpaces(); nameTable[static_cast<unsigned char>(*_place)]; skipSpaces())
    {
        Attribute attribute;
        if (!readAttribute(attribute))
            return false;
        _attributes.push_back(attribute);
        attributesSize +=
            ItemText::footprintOf(attribute.nameSize) + ItemText::footprintOf(attribute.valueSize);
    }
    const bool isEmpty = *_place == '/';
    _place += isEmpty ? 1 : 0;
    if (*_place != '>' || !addItem(name, nameSize, attributesSize))
        return false;
    ++_place;
    if (!isEmpty)
        _open.push_back(_items.size() - 1);
    return true;
}

bool XMLPlainReader::readAttribute(Attribute& attribute)
{
    attribute.name = _place;
    _place = skipName();
    attribute.nameSize = static_cast<uint32_t>(_place - attribute.name);
    skipSpaces();
    if (*_place != '=')
        return false;
    ++_place;
    skipSpaces();
    if (*_place != '"' && *_place != '\'')
        return false;
    attribute.value = _place + 1;
    attribute.hasReferences = false;
    const char* const last = findQuote(attribute.value, *_place, attribute.hasReferences);
    if (last == nullptr)
        return false;
    attribute.valueSize = static_cast<uint32_t>(last - attribute.value);
    _place = last + 1;
    return true;
}

bool XMLPlainReader::addItem(const char* name, size_t nameSize, size_t attributesSize)
{
    internal::ItemTexts& texts = _items.add().touchTexts();
    texts.start(name, nameSize, attributesSize);
    for (const Attribute& it : _attributes)
    {
        if (it.hasReferences && !decode(it.value, it.valueSize))
            return false;
        texts.addAttribute(it.name, it.nameSize, it.hasReferences ? _decoded.begin() : it.value,
                           it.hasReferences ? _decoded.size() : it.valueSize);
    }
    return true;
}

bool XMLPlainReader::readEndTag()
{
    const uint32_t index = _open.back();
    DataItem& item = _items.begin()[index];
    const ItemText itemName = item.getTexts().getName();
    const char* const name = _place += 2;
    _place = skipName();
    if (!itemName.equals(name, static_cast<size_t>(_place - name)))
        return false;
    skipSpaces();
    if (*_place != '>')
        return false;
    ++_place;
    item.touchChildren().takeFrom(_items, index + 1);
    _open.pop_back();
    return true;
}

// Of several texts in one element the first one is its content.
bool XMLPlainReader::readText(const char* begin)
{
    const auto find = [&](char character, const char* end) {
        return static_cast<const char*>(std::memchr(begin, character, static_cast<size_t>(end - begin)));
    };
    const char* const last = find('<', _end);
    if (last == nullptr || find('\0', last) != nullptr)
        return false;
    const size_t size = static_cast<size_t>(last - begin);
    const bool hasReferences = find('&', last) != nullptr;
    if (hasReferences && !decode(begin, size))
        return false;
    internal::ItemTexts& texts = _items.begin()[_open.back()].touchTexts();
    if (texts.getContent().empty())
        texts.setContent(hasReferences ? _decoded.begin() : begin, hasReferences ? _decoded.size() : size);
    _place = last;
    return true;
}

bool XMLPlainReader::decode(const char* text, size_t size)
{
    _decoded.clear();
    std::string_view rest(text, size);
    for (;;)
    {
        const size_t plain = rest.find('&');
        const size_t copied = plain == std::string_view::npos ? rest.size() : plain;
        _decoded.insert(_decoded.end(), rest.data(), rest.data() + copied);
        if (plain == std::string_view::npos)
            return true;
        const size_t end = rest.find(';', plain);
        if (end == std::string_view::npos || end == plain + 1)
            return false;
        const std::string_view name = rest.substr(plain + 1, end - plain - 1);
        uint32_t code = name[0] == '#' ? parseReference(name) : 0;
        for (const Entity& entity : entities)
            if (entity.name == name)
                code = static_cast<unsigned char>(entity.character);
        if (code == 0)
            return false;
        appendUtf8(code, _decoded);
        rest.remove_prefix(end + 1);
    }
}

void XMLPlainReader::skipSpaces()
{
    while (isSpace(*_place))
    {
        ++_place;
        // The lines of deep levels begin with hundreds of tabs.
        while (_end - _place >= 8 && loadWord<uint64_t>(_place) == '\t' * everyByte)
            _place += 8;
    }
}

const char* XMLPlainReader::skipName() const
{
    const char* place = _place;
    while (nameTable[static_cast<unsigned char>(*place)])
        ++place;
    return place;
}

/// The end of an attribute's value; null if there is none before a zero or the end.
const char* XMLPlainReader::findQuote(const char* place, char quote, bool& hasReferences) const
{
    constexpr unsigned char limit = '\'' + 1; // all that ends a value or stands out in it is below
    static_assert('"' < limit && '&' < limit, "of all these one comparison tells");
    for (; place != _end; ++place)
    {
        while (_end - place >= 8)
        {
            const uint64_t marks = markBelow(loadWord<uint64_t>(place), limit);
            if (marks != 0)
            {
                place += __builtin_ctzll(marks) / 8;
                break;
            }
            place += 8;
        }
        if (place == _end || *place == '\0')
            return nullptr;
        if (*place == quote)
            return place;
        hasReferences = hasReferences || *place == '&';
    }
    return nullptr;
}

} // namespace mrv
