// tests/system/memory/mrvMemoryStatIdsTest.cpp
// Names of the statistics ids, and blocks that are never smaller than asked for.
#include "mrvCore/system/memory/mrvMemoryStatIds.h"
#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace mrv;

TEST(MemoryStatIds, namesAreShiftedByOneFromMaravoDeepOn)
{
    EXPECT_STREQ(getMemoryStatName(MemoryStatIds::MaravoShared), "MaravoShared");
    EXPECT_STREQ(getMemoryStatName(MemoryStatIds::MaravoOrvel), "MaravoOrvel");
    EXPECT_STREQ(getMemoryStatName(MemoryStatIds::MaravoDeep), "UserStats");
    EXPECT_STREQ(getMemoryStatName(MemoryStatIds::UserStats), "End");
    EXPECT_STREQ(getMemoryStatName(MemoryStatIds::End), "");
    static_assert(sizeof(MemAllocStatId) == 4 && MemoryStatIds::End == 10);
}

TEST(MemoryBlock, sizesThatOverflowEndTheProgramInsteadOfAllocatingTooLittle)
{
    const size_t half = SIZE_MAX / 2;
    EXPECT_EQ(internal::saturatedSum(half, half + 2), SIZE_MAX);
    EXPECT_EQ(internal::grownCapacity(8, SIZE_MAX), SIZE_MAX);
    EXPECT_DEATH(internal::allocateBlock(half, 4), "too large");
    EXPECT_DEATH(internal::reallocateBlock(nullptr, half + 1, 1), "too large");
    EXPECT_DEATH(internal::allocateBlock(half, 1), "Out of memory|exceeds maximum");
}
