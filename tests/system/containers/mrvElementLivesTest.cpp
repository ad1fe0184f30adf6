// tests/system/containers/mrvElementLivesTest.cpp
// Elements of deques, lists, maps and recyclers: made once, destroyed once, never moved.
#include "mrvCore/system/containers/mrvDeque.h"
#include "mrvCore/system/containers/mrvList.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvSet.h"

#include "mrvContainersTesting.h"

#include <deque>
#include <random>

using namespace mrv;

namespace {

class ElementLives : public testing::Test
{
public:
    ~ElementLives() override { EXPECT_EQ(Tracked::alive, 0); }
};

/// The address of each element, which stays for all its life.
using Places = std::deque<const Tracked*>;

template <class Container>
void expectPlaces(const Container& container, const Places& places)
{
    ASSERT_EQ(container.size(), places.size());
    ASSERT_EQ(Tracked::alive, static_cast<int>(places.size()));
    auto place = places.begin();
    for (const Tracked& element : container)
        ASSERT_EQ(&element, *place++);
}

template <class Container>
void growAndShrinkAtBothEnds(Container& container, Places& places)
{
    std::mt19937 random(23);
    const size_t chances[][2] = { { 90, 100 }, { 20, 0 }, { 90, 0 }, { 10, 100 }, { 95, 95 }, { 30, 10 } };
    for (int step = 0; step < 12000; ++step)
    {
        const auto& [adding, atBack] = chances[step / 1000 % 6];
        const bool back = random() % 100 < atBack;
        if (places.empty() || random() % 100 < adding)
        {
            back ? container.push_back(step) : container.push_front(step);
            back ? places.push_back(&container.back()) : places.push_front(&container.front());
            ASSERT_EQ((back ? container.back() : container.front()).value(), step);
        }
        else
        {
            back ? container.pop_back() : container.pop_front();
            back ? places.pop_back() : places.pop_front();
        }
        if (step % 250 == 0)
            expectPlaces(container, places);
        if (testing::Test::HasFatalFailure())
            FAIL() << "step " << step;
    }
}

} // namespace

TEST_F(ElementLives, dequesAndListsMoveNoElement)
{
    {
        MrvDeque<Tracked> deque;
        Places places;
        growAndShrinkAtBothEnds(deque, places);
        const MrvDeque<Tracked> moved(std::move(deque));
        expectPlaces(moved, places);
        deque.push_back(1); // NOLINT: a moved-from deque is an empty one
        EXPECT_EQ(deque.size(), 1u);
    }
    MrvList<Tracked> list;
    Places places;
    growAndShrinkAtBothEnds(list, places);
    list.resize(2, 5);
    list.resize(5, list.front());
    list.remove(list.front()); // the value given dies with the first element
    list.push_back(3);
    list.push_back(3);
    list.remove(list.back());
    EXPECT_EQ(Tracked::alive, static_cast<int>(list.size()));
}

TEST_F(ElementLives, dequesUseTheBlocksOfErasedElementsAgain)
{
    MrvDeque<Tracked> deque;
    for (int round = 0; round < 36; ++round) // each end fills it and each end empties it
    {
        const int size = 64 * (round % 9 + 1);
        for (int i = 0; i < size; ++i)
            round % 2 == 0 ? deque.push_back(i) : deque.push_front(i);
        for (int i = 0; i < size; ++i)
        {
            const bool isFirstIn = (round % 2 == 0) == (round % 4 < 2);
            ASSERT_EQ((round % 4 < 2 ? deque.front() : deque.back()).value(), isFirstIn ? i : size - 1 - i);
            round % 4 < 2 ? deque.pop_front() : deque.pop_back();
        }
        ASSERT_EQ(Tracked::alive, 0);
    }
}

TEST_F(ElementLives, mapsDestroyKeyAndValueOfEachErasedNode)
{
    MrvMap<Tracked, Tracked> map;
    const int sentinel = Tracked::alive;
    for (int i = 0; i < 101; ++i)
        map[i * 37 % 101] = i;
    EXPECT_EQ(Tracked::alive, sentinel + 202);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(map.erase(map.begin().getKey()), 1u) << "the key lies in the node that dies";
    EXPECT_EQ(Tracked::alive, sentinel + 102);
    {
        const MrvMap<Tracked, Tracked> copy(map);
        EXPECT_EQ(Tracked::alive, 2 * (sentinel + 102));
        map = copy;
        map.clear();
        EXPECT_EQ(Tracked::alive, 2 * sentinel + 102);
    }
    EXPECT_EQ(Tracked::alive, sentinel);
}

TEST_F(ElementLives, poolsDestroyErasedElementsAndDropClearedOnes)
{
    using Set = MrvSet<Tracked>;
    Set::SetNodePool pool(16);
    Set set(&pool);
    const int sentinel = Tracked::alive;
    for (int round = 0; round < 3; ++round)
    {
        for (int i = 0; i < 50; ++i)
            set.insert(i);
        EXPECT_EQ(set.erase(Tracked(7)), 1u);
        EXPECT_EQ(Tracked::alive, sentinel + 49);
        set.clear();
        EXPECT_EQ(Tracked::alive, sentinel + 49) << "their blocks are gone, no destructor ran";
        Tracked::alive = sentinel;
    }
}

TEST_F(ElementLives, copiesOfAPoolsUserTakeTheirNodesFromThatPool)
{
    using Map = MrvMap<int, int>;
    Map::MapNodePool pool(4);
    Map map(&pool);
    for (int i = 0; i < 4; ++i)
        map.insert(i, i);
    Map copy(map);
    const auto* const node = copy.begin().getNode();
    copy.erase(copy.begin());
    EXPECT_EQ(map.insert(20, 20).getNode(), node) << "the node freed last, whoever freed it";
    EXPECT_EQ(copy.size(), 3u);
}
