// tests/math/random/mrvRandomNumberGeneratorTest.cpp
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"

#include <gtest/gtest.h>
#include <vector>

namespace mrv {

TEST(RandomNumberGeneratorTest, sequencesAreThoseOfTheirSeed)
{
    // Worked out apart from this code, as one endless recurrence without a buffer.
    struct Case
    {
        uint32_t seed;
        uint32_t first[4];
        uint32_t word623, word624, word1248;
    };
    const Case cases[] = {
        { 0u, { 0x52d55aa5u, 0x0b5afd35u, 0x2f389094u, 0xff44e3eau }, 0xee08c3dau, 0x651d3016u, 0x8856e86eu },
        { 1u, { 0x353ff5fbu, 0x6f7537aau, 0x0d16c1aau, 0x858f75b3u }, 0xf08769f0u, 0xc5f218b0u, 0x7929a124u },
        { 0xffffffffu,
          { 0x3a01ac39u, 0xde851586u, 0x98c88e08u, 0x1174c7d7u },
          0xa300f401u,
          0x24a1c03cu,
          0x2e650857u },
    };
    for (const Case& c : cases)
    {
        RandomNumberGenerator rng(5);
        rng.rand();
        rng.setSeed(c.seed);
        EXPECT_EQ(rng.getSeed(), c.seed);
        std::vector<uint32_t> words;
        for (int i = 0; i < 1249; ++i)
            words.push_back(rng.rand());
        for (size_t i = 0; i < 4; ++i)
            EXPECT_EQ(words[i], c.first[i]) << c.seed;
        EXPECT_EQ(words[623], c.word623) << c.seed;
        EXPECT_EQ(words[624], c.word624) << c.seed;
        EXPECT_EQ(words[1248], c.word1248) << c.seed;
    }
    RandomNumberGenerator byDefault;
    EXPECT_EQ(byDefault.rand(), cases[0].first[0]);
}

TEST(RandomNumberGeneratorTest, rangesTakeTheShareOfTheWord)
{
    RandomNumberGenerator rng(11), words(11);
    for (int i = 0; i < 1000; ++i)
    {
        const double share = words.rand() / 4294967296.0;
        EXPECT_EQ(rng.frand(), static_cast<float>(share));
        EXPECT_FLOAT_EQ(rng.frand(-2.0f, 6.0f),
                        -2.0f + 8.0f * static_cast<float>(words.rand() / 4294967296.0));
        EXPECT_EQ(rng.rand(10u, 20u), 10u + static_cast<uint32_t>(words.rand() / 4294967296.0 * 10.0));
        EXPECT_LT(rng.rand(0u, 0xffffffffu), 0xffffffffu);
        EXPECT_EQ(rng.rand(5u, 5u), 5u);
        words.rand();
        words.rand();
    }
}

TEST(RandomNumberGeneratorTest, theProcessHasOneWhileTheSingletonLives)
{
    using Holder = Singleton<RandomNumberGenerator>;
    const bool isOurs = !Holder::hasInstance();
    Holder::create();
    ASSERT_NE(getRNGSingleton(), nullptr);
    EXPECT_EQ(getRNGSingleton(), Holder::getInstance());
    EXPECT_EQ(getRNGSingleton()->getSeed(), 0u);
    if (isOurs)
    {
        Holder::destroy();
        EXPECT_EQ(getRNGSingleton(), nullptr);
    }
}

} // namespace mrv
