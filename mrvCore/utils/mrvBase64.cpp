// mrvCore/utils/mrvBase64.cpp
#include "mrvCore/utils/mrvBase64.h"

#include <array>
#include <cstdint>

namespace mrv {

namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint32_t invalid = 0x80000000; // above all bits of a group

/// Value of each character, or `invalid`.
constexpr std::array<uint32_t, 256> makeValues()
{
    std::array<uint32_t, 256> values = {};
    for (uint32_t& value : values)
        value = invalid;
    for (uint32_t i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(alphabet[i])] = i;
    return values;
}

constexpr std::array<uint32_t, 256> valueOf = makeValues();

char digit(uint32_t group, int shift)
{
    return alphabet[group >> shift & 63];
}

} // namespace

MrvString base64_encode(const unsigned char* bytes, unsigned int count)
{
    MrvString text;
    text.resize((size_t(count) + 2) / 3 * 4, '=');
    char* out = text.data();
    const unsigned char* const wholeGroupsEnd = bytes + count / 3 * 3;
    for (; bytes != wholeGroupsEnd; bytes += 3, out += 4)
    {
        const uint32_t group = uint32_t(bytes[0]) << 16 | uint32_t(bytes[1]) << 8 | bytes[2];
        out[0] = digit(group, 18);
        out[1] = digit(group, 12);
        out[2] = digit(group, 6);
        out[3] = digit(group, 0);
    }
    const unsigned int left = count % 3;
    if (left == 0)
        return text;

    const uint32_t group = uint32_t(bytes[0]) << 16 | (left == 2 ? uint32_t(bytes[1]) << 8 : 0);
    out[0] = digit(group, 18);
    out[1] = digit(group, 12);
    if (left == 2)
        out[2] = digit(group, 6);
    return text;
}

MrvString base64_decode(const unsigned char* text, unsigned int count)
{
    MrvString bytes;
    bytes.resize((size_t(count) + 3) / 4 * 3);
    char* out = bytes.data();
    const unsigned char* const end = text + count;
    for (; end - text >= 4; text += 4, out += 3)
    {
        const uint32_t group =
            valueOf[text[0]] << 18 | valueOf[text[1]] << 12 | valueOf[text[2]] << 6 | valueOf[text[3]];
        const uint32_t marks = valueOf[text[0]] | valueOf[text[1]] | valueOf[text[2]] | valueOf[text[3]];
        if (marks >= invalid)
            break;
        out[0] = static_cast<char>(group >> 16);
        out[1] = static_cast<char>(group >> 8);
        out[2] = static_cast<char>(group);
    }
    // The last group: at most three characters, whether the text or the alphabet ends there.
    uint32_t group = 0;
    int digits = 0;
    for (; text != end && valueOf[*text] != invalid; ++text, ++digits)
        group |= valueOf[*text] << (18 - 6 * digits);
    for (int i = 1; i < digits; ++i)
        *out++ = static_cast<char>(group >> (24 - 8 * i));
    bytes.resize(static_cast<size_t>(out - bytes.data()));
    return bytes;
}

} // namespace mrv
