// tests/system/containers/mrvListTest.cpp
// MrvList against a model, and the recycler under it.
#include "mrvCore/system/containers/mrvList.h"
#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <list>
#include <random>
#include <set>
#include <string>

using namespace mrv;

TEST(MrvList, randomOperationsMatchTheModelAndElementsNeverMove)
{
    std::mt19937 random(31);
    MrvList<MrvString> list;
    std::list<std::string> model;
    std::set<const MrvString*> nodes;
    for (int step = 0; step < 5000; ++step)
    {
        const std::string value = std::to_string(step % 40);
        auto it = list.begin();
        auto at = model.begin();
        for (size_t i = model.empty() ? 0 : random() % model.size(); i > 0; --i, ++it, ++at)
            ;
        const MrvString* const place = model.empty() ? nullptr : &*it;
        const bool grow = model.size() < 30 && random() % 2 == 0;
        if (grow || model.empty())
        {
            nodes.insert(&*list.insert(it, value));
            model.insert(at, value);
            EXPECT_TRUE(place == nullptr || &*it == place);
        }
        else if (random() % 10 == 0)
        {
            list.remove(*it);
            model.remove(std::string(*at));
        }
        else
        {
            list.erase(it);
            model.erase(at);
        }
        ASSERT_EQ(list.size(), model.size());
        auto expected = model.begin();
        for (const MrvString& text : list)
            ASSERT_EQ(text, (expected++)->c_str());
    }
    EXPECT_LE(nodes.size(), 31u); // erased nodes are used again
}

TEST(MrvList, worksAtBothEndsAndCopies)
{
    MrvList<MrvString> list(3, "a");
    list.push_front("first");
    list.push_back("last");
    EXPECT_EQ(list.front(), "first");
    EXPECT_EQ(list.back(), "last");
    const MrvList<MrvString> copy(list);
    EXPECT_TRUE(copy == list);
    list.pop_front();
    list.pop_back();
    EXPECT_TRUE(copy != list);
    list.resize(1);
    EXPECT_EQ(*--list.end(), "a");
    MrvList<MrvString> other;
    other.swap(list);
    EXPECT_TRUE(list.empty());
    list = copy;
    EXPECT_EQ(list.size(), 5u);
    list.clear();
    EXPECT_TRUE(list.begin() == list.end());
    MrvList<MrvString>::const_iterator it = other.begin();
    EXPECT_EQ(*it++, "a");
    EXPECT_TRUE(it == other.end());
}

TEST(RecyclerT, givesTheLastRecycledItemFirstAndThenTheNextOfTheNewestBlock)
{
    RecyclerT<int, false> recycler(3);
    int* const a = recycler.obtain();
    int* const b = recycler.obtain();
    EXPECT_EQ(b, a + 1);
    recycler.recycle(a);
    recycler.recycle(b);
    EXPECT_EQ(recycler.obtain(), b);
    EXPECT_EQ(recycler.obtain(), a);
    EXPECT_EQ(recycler.obtain(), a + 2);
    int* const c = recycler.obtain(); // of a second block
    *c = 1;
    EXPECT_EQ(recycler.obtain(), c + 1);
    recycler.clear();
    *recycler.obtain() = 2;
}

TEST(RecyclerT, constructsItemsWhenAskedTo)
{
    RecyclerT<MrvString, true> recycler(0);
    MrvString* const text = recycler.obtain();
    EXPECT_EQ(*text, "");
    *text = "a longer text than the block of an empty one";
    recycler.recycle(text);
    EXPECT_EQ(recycler.obtain(), text);
    EXPECT_EQ(*text, "");
    recycler.recycle(text);
}
