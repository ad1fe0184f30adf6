// tests/system/containers/mrvDequeTest.cpp
// MrvDeque and MrvQueue against a model, and the deque's slots and blocks.
#include "mrvCore/system/containers/mrvQueue.h"
#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>
#include <set>

using namespace mrv;

namespace {

using IntDeque = MrvDeque<int>;

/// Names private members: an explicit instantiation may do that.
template <PODArray<int*> IntDeque::*map, PODArray<int*> IntDeque::*recycled, size_t IntDeque::*head>
struct Opened
{
    friend const PODArray<int*>& mapOf(const IntDeque& deque) { return deque.*map; }
    friend size_t recycledOf(const IntDeque& deque) { return (deque.*recycled).size(); }
    friend size_t headOf(const IntDeque& deque) { return deque.*head; }
};
const PODArray<int*>& mapOf(const IntDeque& deque);
size_t recycledOf(const IntDeque& deque);
size_t headOf(const IntDeque& deque);
template struct Opened<&IntDeque::_blockAdresses, &IntDeque::_recycledBlocks, &IntDeque::_headBlockIndex>;

std::string usedSlots(const IntDeque& deque)
{
    std::string slots;
    for (const int* const block : mapOf(deque))
        slots += block == nullptr ? '.' : 'x';
    return slots;
}

void pushBack(IntDeque& deque, int count)
{
    for (int i = 0; i < count; ++i)
        deque.push_back(i);
}
void popFront(IntDeque& deque, int count)
{
    for (int i = 0; i < count; ++i)
        deque.pop_front();
}

} // namespace

TEST(MrvDeque, randomOperationsMatchTheModel)
{
    std::mt19937 random(21);
    MrvDeque<MrvString> deque;
    std::deque<int> model;
    const auto textOf = [](int number) {
        MrvString text;
        return text += number;
    };
    for (int step = 0; step < 60000; ++step)
    {
        // Phases that prefer one end and one direction, so that the deque wanders over its map.
        const unsigned phase = static_cast<unsigned>(step / 1500) * 2654435761u >> 28;
        const bool front = random() % 4 == 0 ? random() % 2 == 0 : phase % 2 == 0;
        const bool add = random() % 3 == 0 ? random() % 2 == 0 : phase / 2 % 2 == 0;
        if (add || model.empty())
        {
            front ? deque.push_front(textOf(step)) : deque.push_back(textOf(step));
            front ? model.push_front(step) : model.push_back(step);
        }
        else
        {
            front ? deque.pop_front() : deque.pop_back();
            front ? model.pop_front() : model.pop_back();
        }
        ASSERT_EQ(deque.size(), model.size());
        if (model.empty())
            continue;
        const size_t index = random() % model.size();
        ASSERT_EQ(deque[index], textOf(model[index])) << "step " << step;
        ASSERT_EQ(deque.front(), textOf(model.front()));
        ASSERT_EQ(deque.back(), textOf(model.back()));
        if (step % 5000 != 0)
            continue;
        const MrvDeque<MrvString> copy(deque);
        deque = copy;
        auto expected = model.begin();
        for (const MrvString& text : copy)
            ASSERT_EQ(text, textOf(*expected++));
    }
    deque.resize(deque.size() + 70, "new");
    EXPECT_EQ(deque.back(), "new");
    deque.resize(3);
    EXPECT_EQ(deque.end() - deque.begin(), 3);
    const MrvDeque<MrvString> moved(std::move(deque));
    EXPECT_EQ(moved.size(), 3u);
}

TEST(MrvDeque, slidesDownByHalfWhileTheHeadIsBehindTheFirstSlotAndDoublesOtherwise)
{
    IntDeque deque;
    EXPECT_EQ(headOf(deque), 4u);
    pushBack(deque, 4 * 64);
    EXPECT_EQ(usedSlots(deque), "....xxxx");
    deque.push_back(0);
    EXPECT_EQ(usedSlots(deque), "..xxxxx.");
    pushBack(deque, 64);
    EXPECT_EQ(usedSlots(deque), "..xxxxxx");
    pushBack(deque, 64);
    EXPECT_EQ(usedSlots(deque), ".xxxxxxx");
    pushBack(deque, 64);
    EXPECT_EQ(usedSlots(deque), "xxxxxxxx");
    pushBack(deque, 64);
    EXPECT_EQ(usedSlots(deque), "xxxxxxxxx.......");
    EXPECT_EQ(mapOf(deque).capacity(), 24u);
    popFront(deque, 64);
    EXPECT_EQ(usedSlots(deque), ".xxxxxxxx.......");
    EXPECT_EQ(recycledOf(deque), 1u);
}

TEST(MrvDeque, worksFromTheFrontOnTheSameMap)
{
    IntDeque deque;
    for (int i = 0; i < 4 * 64; ++i)
        deque.push_front(i);
    EXPECT_EQ(usedSlots(deque), "xxxx....");
    deque.push_front(0);
    EXPECT_EQ(usedSlots(deque), ".xxxxx..");
    for (int i = 0; i < 4 * 64; ++i)
        deque.push_front(i);
    EXPECT_EQ(usedSlots(deque), ".......xxxxxxxxx");
}

TEST(MrvDeque, emptiedAtABlockBoundaryRestartsAtTheMiddleOfTheMinimumMap)
{
    IntDeque deque;
    pushBack(deque, 64);
    popFront(deque, 64);
    EXPECT_EQ(headOf(deque), 4u);
    pushBack(deque, 128);
    popFront(deque, 64);
    EXPECT_EQ(headOf(deque), 5u);
    popFront(deque, 63);
    EXPECT_EQ(headOf(deque), 5u);
    deque.pop_back();
    EXPECT_EQ(headOf(deque), 5u); // inside a block: it stays where it is
    EXPECT_EQ(usedSlots(deque), ".....x..");
    pushBack(deque, 65);
    deque.pop_front();
    EXPECT_EQ(headOf(deque), 6u);
    for (int i = 0; i < 64; ++i)
        deque.pop_back();
    EXPECT_EQ(headOf(deque), 4u);
    pushBack(deque, 1);
    deque.clear();
    EXPECT_EQ(headOf(deque), 4u);
    EXPECT_EQ(usedSlots(deque), "........");
    EXPECT_EQ(recycledOf(deque), 2u);
}

TEST(MrvDeque, alternatingAcrossABoundaryTakesOneBlock)
{
    IntDeque deque;
    pushBack(deque, 64);
    std::set<const int*> places;
    for (int i = 0; i < 10; ++i)
    {
        deque.push_back(i);
        places.insert(&deque.back());
        deque.pop_back();
    }
    EXPECT_EQ(places.size(), 1u);
    for (int i = 0; i < 10000; ++i) // a queue that wanders on forever
    {
        deque.push_back(i);
        deque.pop_front();
    }
    EXPECT_LE(recycledOf(deque), 2u);
    EXPECT_EQ(mapOf(deque).size(), 8u);
}

TEST(MrvQueue, isFirstInFirstOut)
{
    MrvQueue<void*, MrvDeque<void*>> queue;
    int values[200];
    for (int& value : values)
        (&value - values) % 2 == 0 ? queue.push(&value) : queue.push_back(&value);
    EXPECT_EQ(queue.back(), values + 199);
    for (int& value : values)
    {
        ASSERT_EQ(queue.front(), &value);
        (&value - values) % 3 == 0 ? queue.pop() : queue.pop_front();
    }
    EXPECT_TRUE(queue.empty());
    queue.push(nullptr);
    queue.clear();
    EXPECT_EQ(queue.size(), 0u);
}
