// mrvCore/system/xml/mrvXMLNesting.cpp
// Guards a recursive parser against texts that would exhaust its stack.
#include "mrvCore/system/xml/mrvXMLNesting.h"

#include <array>
#include <climits>
#include <cstring>

namespace mrv {

namespace {

enum CharacterClass : unsigned char { SPACE = 1, ELEMENT_NAME = 2, ATTRIBUTE_NAME = 4 };

constexpr bool isOneOf(char character, const char* set)
{
    for (; *set != '\0'; ++set)
        if (*set == character)
            return true;
    return false;
}

constexpr std::array<unsigned char, UCHAR_MAX + 1> makeClasses()
{
    std::array<unsigned char, UCHAR_MAX + 1> classes{};
    for (int i = 1; i <= UCHAR_MAX; ++i)
    {
        const char character = static_cast<char>(i);
        const bool isSpace = isOneOf(character, " \n\r\t");
        const int flags = (isSpace ? SPACE : 0) | (isSpace || isOneOf(character, "/>?") ? 0 : ELEMENT_NAME) |
                          (isSpace || isOneOf(character, "/<>=?!") ? 0 : ATTRIBUTE_NAME);
        classes[static_cast<size_t>(i)] = static_cast<unsigned char>(flags);
    }
    return classes;
}

constexpr std::array<unsigned char, UCHAR_MAX + 1> classes = makeClasses();

bool is(char character, CharacterClass wanted)
{
    return (classes[static_cast<unsigned char>(character)] & wanted) != 0;
}

const char* skip(const char* text, CharacterClass skipped)
{
    while (is(*text, skipped))
        ++text;
    return text;
}

bool startsWith(const char* text, const char* prefix)
{
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// Each of the following gives the place behind a mark, null where the text ends or breaks the syntax.

const char* skipPast(const char* text, const char* end)
{
    const char* const found = std::strstr(text, end);
    return found == nullptr ? nullptr : found + std::strlen(end);
}

/// What follows "<!DOCTYPE ": square brackets hide a '>'.
const char* skipDoctype(const char* text)
{
    int depth = 0;
    for (; *text != '\0'; ++text)
    {
        if (*text == '[')
            ++depth;
        else if (*text == ']' && depth > 0)
            --depth;
        else if (*text == '>' && depth == 0)
            return text + 1;
    }
    return nullptr;
}

/// From the '<' of what is no element: a comment, CDATA, a declaration or a processing instruction.
const char* skipSpecial(const char* text)
{
    if (text[1] == '?')
        return skipPast(text + 2, "?>");
    if (startsWith(text, "<!--"))
        return skipPast(text + 4, "-->");
    if (startsWith(text, "<![CDATA["))
        return skipPast(text + 9, "]]>");
    if (startsWith(text, "<!DOCTYPE") && is(text[9], SPACE))
        return skipDoctype(text + 10);
    return skipPast(text + 2, ">");
}

/// From the '<' of a start tag.
const char* skipStartTag(const char* text, bool& isEmpty)
{
    const char* place = skip(text + 1, ELEMENT_NAME);
    if (place == text + 1)
        return nullptr;
    place = skip(place, SPACE);
    while (is(*place, ATTRIBUTE_NAME))
    {
        place = skip(skip(place, ATTRIBUTE_NAME), SPACE);
        if (*place != '=')
            return nullptr;
        place = skip(place + 1, SPACE);
        if (*place != '"' && *place != '\'')
            return nullptr;
        place = std::strchr(place + 1, *place);
        if (place == nullptr)
            return nullptr;
        place = skip(place + 1, SPACE);
    }
    isEmpty = *place == '/';
    if (isEmpty)
        ++place;
    return *place == '>' ? place + 1 : nullptr;
}

} // namespace

const char* findElementNestedDeeper(const char* text, size_t limit)
{
    size_t level = 0;
    while (text != nullptr && (text = std::strchr(text, '<')) != nullptr)
    {
        if (text[1] == '/')
        {
            if (level == 0)
                return nullptr;
            --level;
            text = skipPast(text + 2, ">");
        }
        else if (text[1] == '?' || text[1] == '!')
            text = skipSpecial(text);
        else
        {
            if (level == limit)
                return text;
            bool isEmpty = false;
            text = skipStartTag(text, isEmpty);
            level += isEmpty ? 0 : 1;
        }
    }
    return nullptr;
}

} // namespace mrv
