// mrvCore/math/random/mrvRandomNumberGenerator.cpp
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include "mrvCore/math/types/mrvFloat4.h"

#include <cstring>

namespace mrv {

namespace {

/// A word, or four of them, anew: from the one behind it and one that is far ahead.
template <typename Words>
Words twist(Words word, Words next, Words distant)
{
    const Words mixed = (word & 0x80000000u) | (next & 0x7fffffffu);
    return distant ^ (mixed >> 1) ^ ((0u - (next & 1u)) & 0x9908b0dfu);
}

internal::Bits4 loadWords(const uint32_t* words)
{
    internal::Bits4 lanes;
    std::memcpy(&lanes, words, sizeof(lanes));
    return lanes;
}

void twistAll(uint32_t* words, const uint32_t* distant, int count)
{
    int i = 0;
    for (; i + 4 <= count; i += 4)
    {
        const internal::Bits4 twisted =
            twist(loadWords(words + i), loadWords(words + i + 1), loadWords(distant + i));
        std::memcpy(words + i, &twisted, sizeof(twisted));
    }
    for (; i < count; ++i)
        words[i] = twist(words[i], words[i + 1], distant[i]);
}

} // namespace

RandomNumberGenerator::RandomNumberGenerator(uint32_t seed) : _mtIndex(_mtBytes + 1)
{
    setSeed(seed);
}

void RandomNumberGenerator::setSeed(uint32_t seed)
{
    uint32_t value = seed;
    for (uint32_t& word : _mtBuffer)
    {
        value = value * 2147001325u + 715136305u;
        word = ((value << 16) | (value >> 16)) ^ 0x31415926u;
    }
    _seed = seed;
    _mtIndex = _mtBytes;
}

void RandomNumberGenerator::regenerate()
{
    constexpr int distance = 397;
    if (_mtIndex != _mtBytes)
        setSeed(0);
    twistAll(_mtBuffer, _mtBuffer + distance, _mtLength - distance);
    twistAll(_mtBuffer + _mtLength - distance, _mtBuffer, distance - 1);
    _mtBuffer[_mtLength - 1] = twist(_mtBuffer[_mtLength - 1], _mtBuffer[0], _mtBuffer[distance - 1]);
    _mtIndex = 0;
}

RandomNumberGenerator* getRNGSingleton()
{
    return Singleton<RandomNumberGenerator>::getInstance();
}

} // namespace mrv

MRV_DEFINE_SINGLETON(mrv::RandomNumberGenerator)
