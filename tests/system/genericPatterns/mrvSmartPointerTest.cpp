// tests/system/genericPatterns/mrvSmartPointerTest.cpp
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace mrv {
namespace {

int livingNodes = 0;

struct Plain
{};

/// A node of a chain that counts how many of its kind live; with or without a counter of its own.
template <typename Base>
struct Node : Base
{
    Node() { ++livingNodes; }
    Node(const Node& other) : Base(other) { ++livingNodes; }
    Node& operator=(const Node&) = default;
    virtual ~Node() { --livingNodes; }

    SmartPointer<Node> _next;
};

template <typename T>
class SmartPointerTest : public testing::Test
{
protected:
    SmartPointerTest() { livingNodes = 0; }
    ~SmartPointerTest() override { EXPECT_EQ(livingNodes, 0); }
};

using NodeTypes = testing::Types<Node<ReferenceCounter>, Node<Plain>>;
TYPED_TEST_SUITE(SmartPointerTest, NodeTypes);

TYPED_TEST(SmartPointerTest, theLastOwnerAndOnlyTheLastDeletes)
{
    SmartPointer<TypeParam> first(new TypeParam);
    EXPECT_EQ(first.getReferenceCount(), 1);
    {
        const SmartPointer<TypeParam> second(first);
        EXPECT_EQ(first.getReferenceCount(), 2);
        EXPECT_EQ(second.getImpl(), first.getImpl());
    }
    EXPECT_EQ(first.getReferenceCount(), 1);
    EXPECT_EQ(livingNodes, 1);
    first = SmartPointer<TypeParam>();
    EXPECT_EQ(livingNodes, 0);
    EXPECT_TRUE(!first);
    EXPECT_EQ(static_cast<void*>(first), nullptr);
}

TYPED_TEST(SmartPointerTest, nullHasNoCounter)
{
    const SmartPointer<TypeParam> empty(nullptr);
    const SmartPointer<TypeParam> copy(empty);
    EXPECT_EQ(copy.getReferenceCount(), 0);
    EXPECT_EQ(copy.getImpl(), nullptr);
}

TYPED_TEST(SmartPointerTest, assignmentSurvivesItselfAndWalkingAChain)
{
    SmartPointer<TypeParam> head(new TypeParam);
    for (int i = 0; i < 9; ++i)
    {
        SmartPointer<TypeParam> former(head);
        head = new TypeParam;
        head->_next = former;
    }
    const SmartPointer<TypeParam>& alias = head;
    head = alias;
    EXPECT_EQ(head.getReferenceCount(), 1);
    for (int left = 10; left > 0; --left)
    {
        EXPECT_EQ(livingNodes, left);
        head = head->_next; // the source lies in what the assignment lets go of
    }
}

TEST(SmartPointer, anObjectThatCountsForItselfTakesOwnersFromItsPlainPointer)
{
    auto* node = new Node<ReferenceCounter>;
    const SmartPointer<Node<ReferenceCounter>> first(node);
    const SmartPointer<Node<ReferenceCounter>> second(node);
    EXPECT_EQ(node->getReferenceCount(), 2);

    const Node<ReferenceCounter> copy(*node);
    EXPECT_EQ(copy.getReferenceCount(), 0) << "a copy has no owners yet";
    *node = copy;
    EXPECT_EQ(node->getReferenceCount(), 2) << "an assignment keeps the owners";
}

TEST(SmartPointer, ownersOnSeveralThreadsCountTogether)
{
    livingNodes = 0;
    SmartPointer<Node<ReferenceCounter>> shared(new Node<ReferenceCounter>);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([own = shared] {
            for (int i = 0; i < 20000; ++i)
                const SmartPointer<Node<ReferenceCounter>> copy(own);
        });
    shared = SmartPointer<Node<ReferenceCounter>>(); // so the last owner is on a thread
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(livingNodes, 0);
}

} // namespace
} // namespace mrv
