// mrvCore/utils/mrvHash.cpp
#include "mrvCore/utils/mrvHash.h"

namespace mrv {

namespace {

/// Two bytes, low one first, whatever the machine's order is.
uint32_t read16(const unsigned char* bytes)
{
    return bytes[0] | uint32_t(bytes[1]) << 8;
}

} // namespace

uint32_t stb_hash(const char* text)
{
    if (text == nullptr)
        return 0;
    uint32_t hash = 0;
    // Bytes above 127 count as negative, as the published function has it where it comes from.
    for (; *text != '\0'; ++text)
        hash = (hash << 7 | hash >> 25) + static_cast<uint32_t>(static_cast<signed char>(*text));
    return hash + (hash >> 16);
}

uint32_t stb_hash_fast(const void* bytes, int count)
{
    if (bytes == nullptr || count < 1)
        return 0;
    const unsigned char* next = static_cast<const unsigned char*>(bytes);
    uint32_t hash = static_cast<uint32_t>(count);
    for (; count > 3; count -= 4, next += 4)
    {
        hash += read16(next);
        hash = hash << 16 ^ hash ^ read16(next + 2) << 11;
        hash += hash >> 11;
    }
    switch (count)
    {
    case 3:
        hash += read16(next);
        hash ^= hash << 16;
        hash ^= uint32_t(next[2]) << 18;
        hash += hash >> 11;
        break;
    case 2:
        hash += read16(next);
        hash ^= hash << 11;
        hash += hash >> 17;
        break;
    case 1:
        hash += *next;
        hash ^= hash << 10;
        hash += hash >> 1;
        break;
    default:
        break;
    }
    return stb_hash_number(hash);
}

uint32_t stb_hash_number(unsigned int number)
{
    uint32_t hash = number;
    hash ^= hash << 3;
    hash += hash >> 5;
    hash ^= hash << 4;
    hash += hash >> 17;
    hash ^= hash << 25;
    hash += hash >> 6;
    return hash;
}

uint32_t getHashCode(const char* text)
{
    return stb_hash(text);
}

uint32_t getHashCode(const void* bytes, int count)
{
    return stb_hash_fast(bytes, count);
}

} // namespace mrv
