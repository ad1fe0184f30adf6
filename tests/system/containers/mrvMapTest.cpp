// tests/system/containers/mrvMapTest.cpp
// MrvMap and MrvSet: the red-black rules, order, stable iterators, copies and pools.
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/containers/mrvStaticString.h"
#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

using namespace mrv;

namespace {

/// Black height of a subtree; -1 where a rule is broken: no red node below a red one, equal black heights,
/// links both ways.
template <class Node>
int blackHeight(const Node* node, const Node* parent, const Node* nil)
{
    if (node == nil)
        return 0;
    const int left = blackHeight(node->_left, node, nil);
    const int right = blackHeight(node->_right, node, nil);
    const bool redBelowRed = node->_color && parent->_color;
    if (left < 0 || left != right || redBelowRed || node->_parent != parent)
        return -1;
    return left + (node->_color ? 0 : 1);
}

template <class Tree>
auto* rootOf(const Tree& tree)
{
    auto* const nil = tree.end().getNode();
    auto* node = tree.begin().getNode();
    while (node != nil && node->_parent != nil)
        node = node->_parent;
    return node;
}

template <class Tree>
void expectRedBlack(const Tree& tree)
{
    auto* const nil = tree.end().getNode();
    ASSERT_FALSE(nil->_color);
    ASSERT_TRUE(nil->_left == nil && nil->_right == nil && nil->_parent == nullptr);
    ASSERT_FALSE(rootOf(tree)->_color);
    ASSERT_GE(blackHeight(rootOf(tree), nil, nil), 0);
}

template <class Node>
bool sameShape(const Node* a, const Node* nilA, const Node* b, const Node* nilB)
{
    if (a == nilA || b == nilB)
        return a == nilA && b == nilB;
    return a->_color == b->_color && !(a->getKey() < b->getKey()) && !(b->getKey() < a->getKey()) &&
           sameShape(a->_left, nilA, b->_left, nilB) && sameShape(a->_right, nilA, b->_right, nilB);
}

template <class Key>
Key makeKey(size_t number)
{
    if constexpr (std::is_same_v<Key, MrvString>)
        return std::to_string(number);
    else if constexpr (std::is_pointer_v<Key>)
        return reinterpret_cast<Key>(uintptr_t(number));
    else
        return static_cast<Key>(static_cast<int>(number) - 100);
}

template <class Key>
class Maps : public testing::Test
{};

// Plain keys, which are searched without branches, and others.
using KeyTypes = testing::Types<int, unsigned char, const void*, int64_t, float, MrvString>;
TYPED_TEST_SUITE(Maps, KeyTypes, );

using IntMap = MrvMap<int, int>;

} // namespace

TYPED_TEST(Maps, randomOperationsKeepRulesOrderAndIterators)
{
    std::mt19937 random(3);
    MrvMap<TypeParam, MrvString> map;
    std::map<TypeParam, MrvString> model;
    std::map<TypeParam, typename MrvMap<TypeParam, MrvString>::iterator> iterators;
    for (unsigned step = 0; step < 4000; ++step)
    {
        // Growing and shrinking phases, with 200 keys.
        const TypeParam key = makeKey<TypeParam>(random() % 200);
        MrvString value;
        value += static_cast<int>(step);
        if (random() % 10 < (step / 500 % 2 == 0 ? 7u : 2u))
        {
            const auto it = random() % 2 == 0 ? map.insert(key, value) : (map[key], map.find(key));
            if (model.find(key) == model.end())
            {
                model[key] = it.getValue();
                iterators[key] = it;
            }
            ASSERT_TRUE(iterators[key] == it); // an equal key changes nothing
        }
        else
        {
            ASSERT_EQ(map.erase(key), model.erase(key));
            iterators.erase(key);
        }
        ASSERT_EQ(map.size(), model.size());
        ASSERT_EQ(map.find(key) == map.end(), model.find(key) == model.end());
        if (step % 16 != 0)
            continue;
        expectRedBlack(map);
        auto it = map.begin();
        for (const auto& entry : model)
        {
            ASSERT_TRUE(it == iterators[entry.first]);
            ASSERT_TRUE(it.getKey() == entry.first && it.getValue() == entry.second);
            ++it;
        }
        ASSERT_TRUE(it == map.end());
        for (auto entry = model.rbegin(); entry != model.rend(); ++entry)
            ASSERT_TRUE((--it).getKey() == entry->first);
        if (testing::Test::HasFatalFailure())
            FAIL() << "step " << step;
    }
}

TEST(MrvMap, keepsTheValueOfAKeyThatIsThere)
{
    MrvMap<MrvStaticString, int> map;
    EXPECT_EQ(map["a"], 0);
    map["a"] = 1;
    EXPECT_EQ(map.insert("a", 2).getValue(), 1);
    const std::string equalText = "a";
    EXPECT_EQ(map[equalText.c_str()], 1);
    EXPECT_EQ(map.size(), 1u);
    const auto& constMap = map;
    MrvMap<MrvStaticString, int>::const_iterator it = map.find("a");
    EXPECT_TRUE(it == constMap.begin() && ++it == map.end());
}

TEST(MrvMap, keyThatEqualsTheSentinelsIsFoundOnlyWhenInserted)
{
    IntMap map;
    for (int key = -40; key <= 40; ++key)
    {
        EXPECT_TRUE(map.find(0) == map.end());
        if (key != 0)
            map.insert(key, key);
    }
    map.insert(0, 7);
    EXPECT_EQ(map.find(0).getValue(), 7);
    EXPECT_EQ(map.erase(0), 1u);
    EXPECT_TRUE(map.find(0) == map.end());
}

TEST(MrvMap, eraseByIteratorReturnsTheNextAndRangesAreCopied)
{
    IntMap map;
    for (int key = 0; key < 100; ++key)
        map[key] = key;
    for (auto it = map.begin(); it != map.end();)
        it = it.getKey() % 3 == 0 ? map.erase(it) : ++it;
    EXPECT_EQ(map.size(), 66u);
    IntMap other;
    other.insert(map.find(4), map.find(10));
    EXPECT_EQ(other.size(), 4u);
    EXPECT_TRUE(other != map);
    other.insert(map.begin(), map.end());
    EXPECT_TRUE(other == map);
    other[1] = 50;
    EXPECT_TRUE(other != map);
}

TEST(MrvMap, copiesKeepShapeAndColours)
{
    std::mt19937 random(5);
    MrvMap<int, MrvString> map(MemoryStatIds::Cache);
    for (int i = 0; i < 1000; ++i)
        map.insert(static_cast<int>(random() % 2000), "v");
    for (int i = 0; i < 300; ++i)
        map.erase(static_cast<int>(random() % 2000));
    MrvMap<int, MrvString> copy(map), assigned;
    assigned[1] = "x";
    assigned = map;
    MrvMap<int, MrvString>& self = assigned;
    assigned = self;
    for (const auto* tree : { &copy, &assigned })
    {
        expectRedBlack(*tree);
        EXPECT_TRUE(sameShape(rootOf(*tree), tree->end().getNode(), rootOf(map), map.end().getNode()));
        EXPECT_TRUE(*tree == map);
    }
    map.clear();
    EXPECT_FALSE(copy.empty());
    EXPECT_TRUE(map.begin() == map.end());
    copy = map;
    EXPECT_TRUE(copy.empty() && copy == map);
}

TEST(NodePool, reusesTheLastNodeAndTakesBlocksInAddressOrder)
{
    IntMap::MapNodePool pool(4, MemoryStatIds::Simulation);
    EXPECT_EQ(pool.getMemAllocStatId(), MemoryStatIds::Simulation);
    IntMap map(&pool);
    for (int key = 0; key < 4; ++key)
        map.insert(key, key);
    const auto* const first = map.find(0).getNode();
    for (int key = 0; key < 4; ++key)
        EXPECT_EQ(map.find(key).getNode(), first + key);
    const auto* const erased = map.find(2).getNode();
    map.erase(2);
    EXPECT_EQ(map.insert(9, 9).getNode(), erased);
    pool.setAllocationSize(0); // still one node at a time
    map.insert(10, 10);
    map.insert(11, 11);
    expectRedBlack(map);
    EXPECT_EQ(map.size(), 6u);
    map.clear();
    EXPECT_TRUE(map.empty());
    map[1] = 1;
    EXPECT_EQ(map.begin().getKey(), 1);
}

TEST(NodePool, assignmentBetweenUsersOfOnePoolLeavesTheSourceWhole)
{
    MrvSet<int>::SetNodePool pool(8);
    MrvSet<int> source(&pool);
    for (int value = 0; value < 50; ++value)
        source.insert(value);
    MrvSet<int> copy(source), independent;
    copy = source;
    independent = source;
    expectRedBlack(source);
    EXPECT_TRUE(copy == source && independent == source);
    source.clear(); // empties the pool: all its users end together
    copy.clear();
    EXPECT_EQ(independent.size(), 50u);
}

TEST(MrvSet, holdsEachValueOnceInOrder)
{
    std::mt19937 random(6);
    MrvSet<MrvString> set;
    std::set<std::string> model;
    for (int i = 0; i < 2000; ++i)
    {
        const std::string value = std::to_string(random() % 150);
        if (random() % 3 != 0)
        {
            model.insert(value);
            EXPECT_EQ(*set.insert(value), value.c_str());
        }
        else
            EXPECT_EQ(set.erase(value), model.erase(value));
    }
    expectRedBlack(set);
    ASSERT_EQ(set.size(), model.size());
    auto expected = model.begin();
    for (const MrvString& value : set)
        EXPECT_EQ(value, (expected++)->c_str());
    MrvSet<MrvString> other;
    other.insert(set.begin(), set.end());
    EXPECT_TRUE(other == set);
    other.erase(other.begin());
    EXPECT_TRUE(other != set);
}
