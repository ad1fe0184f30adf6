// tests/system/containers/mrvArrayTest.cpp
// PODArray and Array against a model, their growth and the lives of their elements.
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include "mrvContainersTesting.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace mrv;

namespace {

int valueOf(int element)
{
    return element;
}
int valueOf(const Tracked& element)
{
    return element.value();
}

template <class ArrayType>
class Arrays : public testing::Test
{
public:
    ~Arrays() override { EXPECT_EQ(Tracked::alive, 0); }
};

using ArrayTypes = testing::Types<PODArray<int>, Array<int>, Array<Tracked>>;
TYPED_TEST_SUITE(Arrays, ArrayTypes, );

template <class ArrayType>
void expectEqual(const ArrayType& array, const std::vector<int>& model)
{
    ASSERT_EQ(array.size(), model.size());
    ASSERT_LE(array.size(), array.capacity());
    for (size_t i = 0; i < model.size(); ++i)
        ASSERT_EQ(valueOf(array[i]), model[i]) << "at " << i;
}

/// The values 0 to count - 1 in a block of exactly that size.
template <class ArrayType>
ArrayType counting(int count)
{
    ArrayType array;
    array.set_capacity(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        array.push_back(i);
    return array;
}

} // namespace

TYPED_TEST(Arrays, growByTheRule)
{
    TypeParam array;
    EXPECT_EQ(array.begin(), nullptr);
    std::vector<size_t> capacities = { 0 };
    for (int i = 0; i < 121; ++i)
    {
        array.push_back(i);
        if (array.capacity() != capacities.back())
            capacities.push_back(array.capacity());
    }
    EXPECT_EQ(capacities, (std::vector<size_t>{ 0, 8, 24, 56, 120, 248 }));

    struct Case
    {
        size_t start;
        size_t resized;
        size_t capacity;
    };
    for (const Case& row : { Case{ 0, 3, 8 }, Case{ 0, 9, 9 }, Case{ 10, 11, 28 }, Case{ 10, 29, 29 },
                             Case{ 10, 10, 10 }, Case{ 10, 2, 10 } })
    {
        TypeParam sized(row.start);
        EXPECT_EQ(sized.capacity(), row.start);
        sized.resize(row.resized);
        EXPECT_EQ(sized.capacity(), row.capacity);
        EXPECT_EQ(sized.size(), row.resized);

        TypeParam inserted(row.start);
        inserted.reserve(row.resized);
        EXPECT_EQ(inserted.capacity(), row.capacity) << "reserve";
    }
}

TYPED_TEST(Arrays, setCapacityIsExactCutsAndFrees)
{
    TypeParam array = counting<TypeParam>(20);
    array.set_capacity(30);
    EXPECT_EQ(array.capacity(), 30u);
    array.set_capacity(7);
    expectEqual(array, { 0, 1, 2, 3, 4, 5, 6 });
    EXPECT_EQ(array.capacity(), 7u);
    array.set_capacity(0);
    EXPECT_EQ(array.begin(), nullptr);
    array.push_back(5);
    expectEqual(array, { 5 });
    array.trim();
    EXPECT_EQ(array.capacity(), 1u);
    array.clear();
    EXPECT_EQ(array.capacity(), 1u);
}

TYPED_TEST(Arrays, copiesHaveNoSpareRoomAndAssignmentNeverShrinks)
{
    TypeParam source(MemoryStatIds::Cache);
    source.reserve(100);
    source.push_back(1);
    source.push_back(2);
    const TypeParam copy(source);
    EXPECT_EQ(copy.capacity(), 2u);
    EXPECT_EQ(copy.getMemoryStatId(), MemoryStatIds::Cache);
    EXPECT_EQ(TypeParam(source, MemoryStatIds::Editors).getMemoryStatId(), MemoryStatIds::Editors);

    TypeParam large = counting<TypeParam>(50);
    large = copy;
    EXPECT_EQ(large.capacity(), 50u);
    EXPECT_TRUE(large == copy);
    TypeParam small = counting<TypeParam>(1);
    small = counting<TypeParam>(9);
    TypeParam& self = small;
    small = self;
    expectEqual(small, { 0, 1, 2, 3, 4, 5, 6, 7, 8 });
    const TypeParam& nine = small;
    TypeParam grown;
    grown = nine;
    EXPECT_EQ(grown.capacity(), 9u);

    const auto* block = grown.begin();
    const TypeParam moved(std::move(grown));
    EXPECT_EQ(moved.begin(), block);
    EXPECT_TRUE(grown.empty()); // NOLINT: a moved-from array is documented to be empty
}

TYPED_TEST(Arrays, randomOperationsMatchTheModelAlsoWithOwnElements)
{
    std::mt19937 random(7);
    TypeParam array;
    std::vector<int> model;
    using Position = std::vector<int>::iterator::difference_type;
    for (int step = 0; step < 4000; ++step)
    {
        const size_t index = model.empty() ? 0 : random() % model.size();
        const size_t last = index + (model.empty() ? 0 : random() % (model.size() - index + 1));
        const Position at = static_cast<Position>(index), end = static_cast<Position>(last);
        const size_t count = random() % 4;
        const bool own = random() % 2 == 0 && !model.empty();
        const int value = own ? model[index] : step;
        switch (random() % 11)
        {
        case 0:
            own ? array.push_back(array[index]) : array.push_back(step);
            model.push_back(value);
            break;
        case 1:
            own ? array.insert(array.begin() + last, count, array[index])
                : array.insert(array.begin() + last, count, step);
            model.insert(model.begin() + end, count, value);
            break;
        case 2: // a range of the array itself
        {
            const std::vector<int> range(model.begin() + at, model.begin() + end);
            array.insert(array.begin() + index / 2, array.begin() + index, array.begin() + last);
            model.insert(model.begin() + at / 2, range.begin(), range.end());
            break;
        }
        case 3: // a range of another type
        {
            const short range[] = { 1, 2, 3 };
            array.insert(array.begin() + index, range, range + 3);
            model.insert(model.begin() + at, range, range + 3);
            break;
        }
        case 4:
            array.erase(array.begin() + index, array.begin() + last);
            model.erase(model.begin() + at, model.begin() + end);
            break;
        case 5:
            array.resize(last, value);
            model.resize(last, value);
            break;
        case 6:
            own ? array.assign(count, array[index]) : array.assign(count + 5, step);
            model.assign(own ? count : count + 5, value);
            break;
        case 7:
            array.assign(last - index, array.begin() + index);
            model = std::vector<int>(model.begin() + at, model.begin() + end);
            break;
        case 8:
            array.addOne() = step;
            model.push_back(step);
            break;
        case 9:
            EXPECT_EQ(array.find(value) == array.end(), !own && array.find(step) == array.end());
            if (array.eraseIfExists(value))
                model.erase(std::find(model.begin(), model.end(), value));
            break;
        default:
            array.resize(array.size() + count, 0);
            model.resize(model.size() + count);
            break;
        }
        expectEqual(array, model);
        if (testing::Test::HasFatalFailure())
            FAIL() << "step " << step;
    }
}

TEST(Array, destroysWhatItCutsAndCopiesElementsOnlyWhenItGrows)
{
    {
        Array<Tracked> array(5);
        EXPECT_EQ(Tracked::alive, 5);
        array.resize(2);
        EXPECT_EQ(Tracked::alive, 2);
        array.pop_back();
        array.resize(4);
        EXPECT_EQ(Tracked::alive, 4);
        EXPECT_EQ(valueOf(array.back()), 0);
        array.clear();
        EXPECT_EQ(Tracked::alive, 0);
        array.resize(5);
        Tracked::copies = 0;
        Array<Tracked> taken(std::move(array));
        EXPECT_EQ(Tracked::copies, 0);
        taken.set_capacity(6);
        EXPECT_EQ(Tracked::copies, 5);
    }
    EXPECT_EQ(Tracked::alive, 0);
}

TEST(Array, takesRangesWhoseElementsConvert)
{
    const char* const names[] = { "hip", "spine", "head" };
    Array<std::string> array(1, "root");
    array.insert(array.end(), names, names + 3);
    EXPECT_EQ(array.back(), "head");
    EXPECT_EQ(array.size(), 4u);
}

TEST(PODArray, movesBytes)
{
    const int source[] = { 1, 2, 3, 4 };
    PODArray<int> array(4, source);
    array.shiftForward(1, 2);
    EXPECT_EQ(array.size(), 6u);
    EXPECT_EQ(array[0], 1);
    EXPECT_EQ(array[3], 2);
    EXPECT_EQ(array[5], 4);
    array.shiftBackward(3, 2);
    EXPECT_TRUE(array == PODArray<int>(4, source));
    array.zeroMemory();
    EXPECT_TRUE(array == PODArray<int>(4, 0));

    PODArray<void*> pointers(2, nullptr); // a fill value, not a source
    EXPECT_EQ(pointers.size(), 2u);
    EXPECT_EQ(pointers.back(), nullptr);
}

#ifndef NDEBUG
TEST(ArrayChecks, debugBuildsStopAtAccessBeyondTheSize)
{
    PODArray<int> array(2, 0);
    EXPECT_DEATH(array[2] = 1, "against its contract: index < _size");
    array.clear();
    EXPECT_DEATH(array.pop_back(), "against its contract");
}
#endif
