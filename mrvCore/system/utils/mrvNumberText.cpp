// mrvCore/system/utils/mrvNumberText.cpp
// Numbers as the text of files.
#include "mrvCore/system/utils/mrvNumberText.h"

#include <charconv>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>

namespace mrv {

namespace {

bool isSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// The rule itself, for texts that are rare: a plus sign, something behind the number, out of range.
template <class T>
bool parseByStream(const MrvString& text, T& value)
{
    std::istringstream stream(std::string(text.data(), text.size()));
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

} // namespace

void NumberText::write(double value)
{
    // The digits of printf's %.32g, which is what a stream prints with.
    char* const last =
        std::to_chars(_text, _text + sizeof(_text) - 1, value, std::chars_format::general, 32).ptr;
    *last = '\0';
    _size = static_cast<size_t>(last - _text);
}

void NumberText::write(int64_t value)
{
    char* const last = std::to_chars(_text, _text + sizeof(_text) - 1, value).ptr;
    *last = '\0';
    _size = static_cast<size_t>(last - _text);
}

void NumberText::write(uint64_t value)
{
    char* const last = std::to_chars(_text, _text + sizeof(_text) - 1, value).ptr;
    *last = '\0';
    _size = static_cast<size_t>(last - _text);
}

template <class T>
bool parseNumber(const MrvString& text, T& value)
{
    const char* first = text.begin();
    const char* const last = text.end();
    while (first != last && isSpace(*first))
        ++first;

    // from_chars knows more words ("inf") and other limits than a stream; where the two could part, the
    // stream decides. The terminator may be read.
    const bool isNegative = std::is_signed_v<T> && *first == '-';
    T parsed = T();
    if (isDigit(first[isNegative ? 1 : 0]))
    {
        const std::from_chars_result result = std::from_chars(first, last, parsed);
        if (result.ec == std::errc() && (result.ptr == last || isSpace(*result.ptr)))
        {
            value = parsed;
            return true;
        }
    }
    return parseByStream(text, value);
}

template MRV_CORE_API bool parseNumber<short>(const MrvString&, short&);
template MRV_CORE_API bool parseNumber<unsigned short>(const MrvString&, unsigned short&);
template MRV_CORE_API bool parseNumber<int>(const MrvString&, int&);
template MRV_CORE_API bool parseNumber<unsigned int>(const MrvString&, unsigned int&);
template MRV_CORE_API bool parseNumber<long>(const MrvString&, long&);
template MRV_CORE_API bool parseNumber<unsigned long>(const MrvString&, unsigned long&);
template MRV_CORE_API bool parseNumber<float>(const MrvString&, float&);
template MRV_CORE_API bool parseNumber<double>(const MrvString&, double&);

} // namespace mrv
