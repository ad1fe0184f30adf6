// tests/system/containers/mrvContainersUtilsTest.cpp
// Sort and search on ranges.
#include "mrvCore/system/containers/mrvContainersUtils.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvDeque.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace mrv;

namespace {

/// A pointer that records how deep the stack is when the sort measures a range.
struct StackMeter
{
    int* at;

    int& operator*() const { return *at; }
    StackMeter& operator++()
    {
        ++at;
        return *this;
    }
    StackMeter operator+(int n) const { return { at + n }; }
    ptrdiff_t operator-(const StackMeter& other) const
    {
        const char* const here = static_cast<const char*>(__builtin_frame_address(0));
        lowest = std::min(lowest, here);
        highest = std::max(highest, here);
        return at - other.at;
    }
    bool operator!=(const StackMeter& other) const { return at != other.at; }

    static const char* lowest;
    static const char* highest;
};

const char* StackMeter::lowest = nullptr;
const char* StackMeter::highest = nullptr;

PODArray<int> makeInput(const std::string& kind, int count)
{
    std::mt19937 random(41);
    PODArray<int> values;
    for (int i = 0; i < count; ++i)
        values.push_back(kind == "ascending"    ? i
                         : kind == "descending" ? -i
                         : kind == "equal"      ? 7
                         : kind == "organ pipe" ? std::min(i, count - i)
                                                : static_cast<int>(random() % 1000));
    return values;
}

} // namespace

TEST(QuickSort, sortsAnyInputWithAShallowStack)
{
    for (const char* kind : { "ascending", "descending", "equal", "organ pipe", "random" })
    {
        PODArray<int> values = makeInput(kind, 3000), expected = values;
        std::sort(expected.begin(), expected.end());
        const char here = 0;
        StackMeter::lowest = StackMeter::highest = &here;
        mrvQuickSort(StackMeter{ values.begin() }, StackMeter{ values.end() });
        EXPECT_TRUE(values == expected) << kind;
        // A frame for each element would take 3000 times at least 48 bytes.
        EXPECT_LT(StackMeter::highest - StackMeter::lowest, 30000) << kind;
    }
}

TEST(QuickSort, worksOnObjectsOfAnyContainerWithRandomAccess)
{
    Array<MrvString> texts;
    MrvDeque<int> numbers;
    mrvQuickSort(texts.begin(), texts.end());
    for (const int value : makeInput("random", 300))
    {
        texts.push_back(std::to_string(value));
        numbers.push_back(value);
    }
    mrvQuickSort(texts.begin(), texts.end());
    mrvQuickSort(numbers.begin(), numbers.end());
    for (size_t i = 1; i < 300; ++i)
    {
        EXPECT_FALSE(texts[i] < texts[i - 1]);
        EXPECT_LE(numbers[i - 1], numbers[i]);
    }
}

TEST(Partition, takesTheFirstAsPivotAndReturnsItsPlace)
{
    int values[] = { 5, 9, 1, 7, 3, 5 };
    EXPECT_EQ(mrvPartition(values, values + 6), values + 2);
    EXPECT_TRUE(std::equal(values, values + 6, std::begin({ 3, 1, 5, 7, 9, 5 })));
}

TEST(BinarySearch, findsWhatIsThereAndNothingElse)
{
    PODArray<int> values;
    EXPECT_EQ(mrvBinarySearch(values.begin(), values.end(), 1), values.end());
    for (int count = 1; count < 40; ++count)
    {
        values.push_back(2 * count);
        for (int wanted = 0; wanted <= 2 * count + 1; ++wanted)
        {
            const int* const found = mrvBinarySearch(values.begin(), values.end(), wanted);
            if (wanted % 2 == 0 && wanted > 0)
                EXPECT_EQ(found, values.begin() + wanted / 2 - 1);
            else
                EXPECT_EQ(found, values.end());
        }
    }
    const int equalOnes[] = { 1, 4, 4, 4, 9 };
    EXPECT_EQ(mrvBinarySearch(equalOnes, equalOnes + 5, 4), equalOnes + 2) << "the first that halving meets";
}

TEST(Unique, keepsTheFirstOfEachRun)
{
    struct Case
    {
        std::string text;
        std::string kept;
    };
    for (const Case& row : { Case{ "", "" }, Case{ "a", "a" }, Case{ "aa", "a" }, Case{ "ab", "ab" },
                             Case{ "aabbbca", "abca" }, Case{ "abbb", "ab" } })
    {
        std::string text = row.text;
        text.erase(mrvUnique(text.begin(), text.end()), text.end());
        EXPECT_EQ(text, row.kept);
    }
    int one[] = { 1 };
    EXPECT_EQ(mrvUnique(one, one + 1), one + 1);
}
