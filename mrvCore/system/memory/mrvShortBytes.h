// mrvCore/system/memory/mrvShortBytes.h
// Copies and compares runs of bytes that are short as a rule.
#pragma once

#include <cstdint>
#include <cstring>

namespace mrv::internal {

/// The first or the last bytes of a run, at `from`, as a number.
template <class Word>
Word loadWord(const char* from)
{
    Word word{};
    std::memcpy(&word, from, sizeof(word));
    return word;
}

/// As std::memcpy: for up to 32 bytes a copy of the two ends, which may overlap, costs less than a call.
inline void copyShortBytes(char* to, const char* from, size_t count)
{
    struct TwoWords
    {
        uint64_t words[2];
    };
    const auto copyEnds = [&](auto first, auto last) {
        std::memcpy(to, &first, sizeof(first));
        std::memcpy(to + count - sizeof(last), &last, sizeof(last));
    };
    if (count > 32)
        std::memcpy(to, from, count);
    else if (count > 16)
        copyEnds(loadWord<TwoWords>(from), loadWord<TwoWords>(from + count - 16));
    else if (count >= 8)
        copyEnds(loadWord<uint64_t>(from), loadWord<uint64_t>(from + count - 8));
    else if (count >= 4)
        copyEnds(loadWord<uint32_t>(from), loadWord<uint32_t>(from + count - 4));
    else
        for (size_t i = 0; i < count; ++i)
            to[i] = from[i];
}

/// True for equal bytes, found in the same way.
inline bool areShortBytesEqual(const char* a, const char* b, size_t count)
{
    const auto differ = [&](auto word, size_t place) {
        return loadWord<decltype(word)>(a + place) ^ loadWord<decltype(word)>(b + place);
    };
    if (count > 16)
        return std::memcmp(a, b, count) == 0;
    if (count >= 8)
        return (differ(uint64_t(), 0) | differ(uint64_t(), count - 8)) == 0;
    if (count >= 4)
        return (differ(uint32_t(), 0) | differ(uint32_t(), count - 4)) == 0;
    for (size_t i = 0; i < count; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

} // namespace mrv::internal
