// mrvCore/math/random/mrvRandomNumberGenerator.cpp
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

namespace mrv {

namespace {

uint32_t twist(uint32_t word, uint32_t next, uint32_t distant)
{
    const uint32_t mixed = (word & 0x80000000u) | (next & 0x7fffffffu);
    return distant ^ (mixed >> 1) ^ ((next & 1u) * 0x9908b0dfu);
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
    for (int i = 0; i < _mtLength - distance; ++i)
        _mtBuffer[i] = twist(_mtBuffer[i], _mtBuffer[i + 1], _mtBuffer[i + distance]);
    for (int i = _mtLength - distance; i < _mtLength - 1; ++i)
        _mtBuffer[i] = twist(_mtBuffer[i], _mtBuffer[i + 1], _mtBuffer[i + distance - _mtLength]);
    _mtBuffer[_mtLength - 1] = twist(_mtBuffer[_mtLength - 1], _mtBuffer[0], _mtBuffer[distance - 1]);
    _mtIndex = 0;
}

RandomNumberGenerator* getRNGSingleton()
{
    return Singleton<RandomNumberGenerator>::getInstance();
}

} // namespace mrv

MRV_DEFINE_SINGLETON(mrv::RandomNumberGenerator)
