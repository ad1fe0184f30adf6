// mrvCore/math/random/mrvRandomNumberGenerator.h
// Reproducible random numbers.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/genericPatterns/mrvReferenceCounter.h"
#include "mrvCore/system/genericPatterns/mrvSingleton.h"
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"

#include <cstdint>

namespace mrv {

/// The 32-bit Mersenne Twister (Matsumoto and Nishimura, 1998) with a seeding of its own: sequences are the
/// same for a seed everywhere in the product, and differ from those of other implementations.
/// Threads: one at a time per generator.
class MRV_CORE_API RandomNumberGenerator : public ReferenceCounter
{
public:
    using SP = SmartPointer<RandomNumberGenerator>;

    static constexpr int _mtLength = 624;

    explicit RandomNumberGenerator(uint32_t seed = 0);

    /// Starts the sequence of a seed anew.
    void setSeed(uint32_t seed);
    uint32_t getSeed() const { return _seed; }

    /// The next word of the sequence.
    uint32_t rand()
    {
        if (_mtIndex >= _mtBytes)
            regenerate();
        uint32_t word = _mtBuffer[static_cast<uint32_t>(_mtIndex) / sizeof(uint32_t)];
        _mtIndex += static_cast<int32_t>(sizeof(uint32_t));
        word ^= word >> 11;
        word ^= (word << 7) & 0x9d2c5680u;
        word ^= (word << 15) & 0xefc60000u;
        return word ^ (word >> 18);
    }

    /// Uniform from `low` to below `high`; `low` if the two are equal. `low` may not be above `high`.
    uint32_t rand(uint32_t low, uint32_t high)
    {
        return low + static_cast<uint32_t>(rand() * static_cast<double>(_wordToUnit) * (high - low));
    }

    /// The uniform value of the whole library, in [0, 1]: the greatest words round up to 1.
    float frand() { return static_cast<float>(rand()) * _wordToUnit; }
    /// Uniform from `low` to `high`.
    float frand(float low, float high) { return low + frand() * (high - low); }

private:
    static constexpr int32_t _mtBytes = _mtLength * 4;
    static constexpr float _wordToUnit = 2.3283064e-10f;

    void regenerate();

    uint32_t _seed;
    int32_t _mtIndex; ///< position in the buffer, in bytes; at its end all is used up, behind it nothing is
                      ///< seeded
    uint32_t _mtBuffer[_mtLength];
};

/// The generator of the process, between start and stop of the library, else null. It has no lock.
MRV_CORE_API RandomNumberGenerator* getRNGSingleton();

} // namespace mrv

MRV_DECLARE_SINGLETON(mrv::RandomNumberGenerator)
