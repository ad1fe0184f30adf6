// tests/system/thread/mrvAtomicTest.cpp
#include "mrvCore/system/thread/mrvAtomic.h"

#include <gtest/gtest.h>

#include <limits>

namespace mrv {
namespace {

template <class Atomic>
class AtomicIntegers : public testing::Test
{};

using Integers = testing::Types<atomic32_t, atomic64_t>;
TYPED_TEST_SUITE(AtomicIntegers, Integers);

TYPED_TEST(AtomicIntegers, changeTheWholeWidthAndReturnWhatWasThere)
{
    using Value = typename TypeParam::value_type;
    const Value most = std::numeric_limits<Value>::max();

    TypeParam value;
    atomicStoreRelaxed(value, most);
    EXPECT_EQ(atomicFetchAddRelaxed(value, -1), most);
    EXPECT_EQ(atomicFetchAddAcquire(value, -1), most - 1);
    EXPECT_EQ(atomicFetchAddRelease(value, -1), most - 2);
    EXPECT_EQ(atomicFetchAddSequentiallyConsistent(value, 3), most - 3);
    EXPECT_EQ(atomicFetchAndRelaxed(value, 12), most);
    EXPECT_EQ(atomicFetchOrRelaxed(value, 3), 12);
    EXPECT_EQ(atomicFetchAndRelease(value, 5), 15);
    EXPECT_EQ(atomicLoadAcquire(value), 5);
}

TYPED_TEST(AtomicIntegers, exchangeOnlyWhatWasExpected)
{
    TypeParam value;
    atomicStoreRelease(value, 5);
    EXPECT_EQ(atomicCompareExchangeRelaxed(value, 4, 9), 5);
    EXPECT_FALSE(atomicCompareExchangeRelaxedBool(value, 4, 9));
    EXPECT_FALSE(atomicCompareExchangeAcquireBool(value, 4, 9));
    EXPECT_EQ(atomicLoadRelaxed(value), 5);

    EXPECT_EQ(atomicCompareExchangeRelaxed(value, 5, 6), 5);
    EXPECT_TRUE(atomicCompareExchangeRelaxedBool(value, 6, 7));
    EXPECT_TRUE(atomicCompareExchangeAcquireBool(value, 7, 8));
    TypeParam copy(value);
    EXPECT_EQ(atomicLoadRelaxed(copy), 8);
    atomicStoreRelaxed(value, 1);
    copy = value;
    EXPECT_EQ(atomicLoadRelaxed(copy), 1);
}

} // namespace
} // namespace mrv
