// mrvCore/system/utils/mrvNumberText.cpp
// Numbers as the text of files.
#include "mrvCore/system/utils/mrvNumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
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

// Eight digits at a time: the bytes of a number of 64 bits, the first digit in the lowest.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "digits are taken apart and put together in numbers");

/// Writes the eight digits of a number below 10^8, with zeros in front. Halves, pairs and digits are taken
/// apart side by side (P. Khuong, "How to print integers really fast", 2017).
char* putEightDigits(char* to, uint64_t number)
{
    const uint64_t halves = number / 10000 | number % 10000 << 32;
    const uint64_t hundreds = halves * 10486 >> 20 & 0x7f0000007f;
    const uint64_t pairs = hundreds | (halves - 100 * hundreds) << 16;
    const uint64_t tens = pairs * 103 >> 10 & 0xf000f000f000f;
    const uint64_t digits = tens | (pairs - 10 * tens) << 8;
    const uint64_t text = digits + 0x3030303030303030;
    std::memcpy(to, &text, sizeof(text));
    return to + sizeof(text);
}

/// Reads eight digits in the opposite way. False if there are others among the eight characters.
bool takeEightDigits(const char* text, uint64_t& number)
{
    uint64_t digits = 0;
    std::memcpy(&digits, text, sizeof(digits));
    const uint64_t highHalves = 0xf0f0f0f0f0f0f0f0;
    if (((digits & highHalves) | ((digits + 0x606060606060606) & highHalves) >> 4) != 0x3333333333333333)
        return false;
    const uint64_t pairs = (digits & 0xf0f0f0f0f0f0f0f) * (10 * 256 + 1) >> 8;
    const uint64_t halves = (pairs & 0xff00ff00ff00ff) * (100 * 65536 + 1) >> 16;
    number = (halves & 0xffff0000ffff) * (10000 * (uint64_t(1) << 32) + 1) >> 32;
    return true;
}

/// Writes a number whose decimal form is exact with at most 32 digits and needs no exponent: almost every
/// `float` of a scene, and several times faster than the general way. Null for another number.
char* putExactly(char* to, double value)
{
    uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    const int biasedExponent = static_cast<int>(bits >> 52 & 0x7ff);
    const double magnitude = std::fabs(value);
    if (!(magnitude >= 1e-4 && magnitude < 9007199254740992.0)) // 2^53; from 1e-4 on there is no exponent
        return nullptr;
    // magnitude = mantissa / 2^places with an odd mantissa or no places; the decimal places are as many.
    uint64_t mantissa = (bits & 0xfffffffffffff) | 0x10000000000000;
    const int shift = std::min(__builtin_ctzll(mantissa), 1075 - biasedExponent);
    mantissa >>= shift;
    const int places = 1075 - biasedExponent - shift;
    if (places > (mantissa < 1 << 24 ? 35 : 22)) // mantissa * 5^places, all the digits, is below 10^32
        return nullptr;

    if (value < 0)
        *to++ = '-';
    to = std::to_chars(to, to + 20, mantissa >> places).ptr;
    if (places == 0)
        return to;
    *to++ = '.';
    const uint64_t mask = (uint64_t(1) << places) - 1;
    char* const last = to + places;
    for (uint64_t fraction = mantissa & mask; to < last; fraction &= mask)
    {
        fraction *= 100000000; // at most 35 + 27 bits
        to = putEightDigits(to, fraction >> places);
    }
    return last; // what is behind are zeros
}

/// Reads digits with at most one point among them, all that a scene's numbers are, several times faster than
/// the general way. False for another text, and where the nearest `float` is not certain.
bool parseExactly(const char* text, const char* last, float& value)
{
    static const double powersOfTen[] = { 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };
    const bool isNegative = *text == '-';
    if (isNegative)
        ++text;
    uint64_t mantissa = 0;
    int digits = 0; // of the mantissa, which takes 17 at most and drops the others
    int places = 0;
    bool isBehindPoint = false;
    while (text != last)
    {
        uint64_t eight = 0;
        if (isBehindPoint && digits == 17)
        {
            // What is dropped must be digits. The last eight characters may be looked at once more.
            const char* const next = last - text < 8 ? last - 8 : text;
            if (!takeEightDigits(next, eight))
                return false;
            text = next + 8;
        }
        else if (isBehindPoint && digits > 0 && digits <= 9 && last - text >= 8 &&
                 takeEightDigits(text, eight))
        {
            mantissa = mantissa * 100000000 + eight;
            digits += 8;
            places += 8;
            text += 8;
        }
        else if (isDigit(*text) && digits < 17)
        {
            mantissa = mantissa * 10 + static_cast<uint64_t>(*text - '0');
            digits += mantissa != 0 ? 1 : 0;
            places += isBehindPoint ? 1 : 0;
            ++text;
        }
        else if (*text == '.' && !isBehindPoint)
        {
            isBehindPoint = true;
            ++text;
        }
        else
            return false;
    }
    if (places >= static_cast<int>(std::size(powersOfTen)) || mantissa == 0)
        return false;
    const double nearby = static_cast<double>(mantissa) / powersOfTen[places];
    // What was dropped and rounded so far is less than 16 of the last bits: the rounding to a `float` must
    // not hang on these.
    uint64_t bits = 0;
    std::memcpy(&bits, &nearby, sizeof(bits));
    const uint64_t dropped = bits & 0x1fffffff;
    if (nearby < 1e-37 || nearby > 1e38 || (dropped > 0x10000000 - 16 && dropped < 0x10000000 + 16))
        return false;
    value = static_cast<float>(isNegative ? -nearby : nearby);
    return true;
}

/// The rule itself, for texts that are rare: a plus sign, something behind the number, out of range.
template <class T>
bool parseByStream(const char* text, size_t size, T& value)
{
    std::istringstream stream(std::string(text, size));
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

} // namespace

char* NumberText::putNumber(char* to, double value)
{
    // The digits of printf's %.32g, which is what a stream prints with.
    char* const last = putExactly(to, value);
    return last != nullptr ? last : std::to_chars(to, to + room, value, std::chars_format::general, 32).ptr;
}

char* NumberText::putNumber(char* to, int64_t value)
{
    return std::to_chars(to, to + room, value).ptr;
}

char* NumberText::putNumber(char* to, uint64_t value)
{
    return std::to_chars(to, to + room, value).ptr;
}

template <class T>
bool parseNumber(const char* text, size_t size, T& value)
{
    const char* first = text;
    const char* const last = text + size;
    while (first != last && isSpace(*first))
        ++first;

    // from_chars knows more words ("inf") and other limits than a stream; where the two could part, the
    // stream decides.
    const char* const digits = std::is_signed_v<T> && first != last && *first == '-' ? first + 1 : first;
    if (digits != last && isDigit(*digits))
    {
        if constexpr (std::is_same_v<T, float>)
            if (parseExactly(first, last, value))
                return true;
        T parsed = T();
        const std::from_chars_result result = std::from_chars(first, last, parsed);
        if (result.ec == std::errc() && (result.ptr == last || isSpace(*result.ptr)))
        {
            value = parsed;
            return true;
        }
    }
    return parseByStream(text, size, value);
}

template MRV_CORE_API bool parseNumber<short>(const char*, size_t, short&);
template MRV_CORE_API bool parseNumber<unsigned short>(const char*, size_t, unsigned short&);
template MRV_CORE_API bool parseNumber<int>(const char*, size_t, int&);
template MRV_CORE_API bool parseNumber<unsigned int>(const char*, size_t, unsigned int&);
template MRV_CORE_API bool parseNumber<long>(const char*, size_t, long&);
template MRV_CORE_API bool parseNumber<unsigned long>(const char*, size_t, unsigned long&);
template MRV_CORE_API bool parseNumber<float>(const char*, size_t, float&);
template MRV_CORE_API bool parseNumber<double>(const char*, size_t, double&);

} // namespace mrv
