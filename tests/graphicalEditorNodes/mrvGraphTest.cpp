// tests/graphicalEditorNodes/mrvGraphTest.cpp
#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.h"
#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h"
#include "mrvCore/graphicalEditorNodes/mrvGraphicalNodeLogEventListener.h"
#include "mrvCore/graphicalEditorNodes/mrvStickyNotes.h"
#include "mrvCore/mrvCore.h"

#include <gtest/gtest.h>

#include <string>

using namespace mrv;

namespace {

using Node = AbstractGraphicalNode;

struct Box : Node, AbstractGraphicalContainerNode
{};

/// Nodes A, B, ... that are children as far as told, and edges such as "AB BC"; "A0" is a null edge.
struct Graph
{
    Graph(const std::string& edges, char lastChild)
    {
        for (char name = 'A'; name <= 'F'; ++name)
        {
            nodes.push_back(new Node);
            nodes.back()->setName(std::string(1, name).c_str());
            if (name <= lastChild)
                box.addChildNode(nodes.back().getImpl());
        }
        for (size_t i = 0; i < edges.size(); i += 3)
            node(edges[i])->addNextNode(edges[i + 1] == '0' ? nullptr : node(edges[i + 1]));
    }
    ~Graph()
    {
        for (const auto& entry : nodes)
            while (!entry->getNextNodes().empty())
                entry->removeNextNodeAt(0);
    }
    Node* node(char name) { return nodes[static_cast<size_t>(name - 'A')].getImpl(); }

    Array<SmartPointer<Node>> nodes;
    AbstractGraphicalContainerNode box;
};

TEST(Graph, findsPredecessorsAndFlow)
{
    struct Row
    {
        const char* edges;
        char lastChild;
        const char* predecessors; // "BA" for B to A
        const char* lists;
        const char* inFlow;
    };
    const Row rows[] = {
        { "AB BC", 'C', "BA CB ", "BA CB ", "ABC" },
        { "AB BA", 'B', "", "AB BA ", "AB" },
        { "AB BB B0 A0", 'C', "BB ", "BAB ", "AB" },
        { "AB AC BD CD AD", 'D', "BA CA DC ", "BA CA DABC ", "ABCD" },
        { "AB AB", 'B', "BA ", "BAA ", "AB" },
        // E and F are strangers: followed by the predecessors, not by the flow.
        { "AE EF FB", 'B', "BF EA FE ", "EA ", "A" },
    };
    for (const Row& row : rows)
    {
        Graph graph(row.edges, row.lastChild);
        MrvMap<Node*, Node*> predecessors;
        MrvMap<Node*, PODArray<Node*>> lists;
        graph.box.computePredecessorsMap(predecessors);
        graph.box.computePredecessorsListMap(lists);
        std::string maps[2], inFlow;
        for (const auto& node : graph.nodes)
        {
            const auto one = predecessors.find(node.getImpl());
            if (one != predecessors.end())
                maps[0] += node->getName().c_str()[0] + std::string(one.getValue()->getName().c_str()) + ' ';
            const auto list = lists.find(node.getImpl());
            if (list != lists.end())
            {
                maps[1] += node->getName().c_str();
                for (const Node* const from : list.getValue())
                    maps[1] += from->getName().c_str();
                maps[1] += ' ';
            }
            if (graph.box.isChildNodeInFlow(node.getImpl()))
                inFlow += node->getName().c_str();
        }
        EXPECT_EQ(maps[0], row.predecessors) << row.edges;
        EXPECT_EQ(maps[1], row.lists) << row.edges;
        EXPECT_EQ(inFlow, row.inFlow) << row.edges;
    }
}

TEST(Graph, edgesChangeWithinRangeOnly)
{
    Graph graph("AB AC", 'C');
    Node* const a = graph.node('A');
    Node* const d = graph.node('D');
    a->insertNextNode(2, d);
    a->insertNextNode(-1, d);
    a->setNextNode(2, d);
    a->removeNextNode(d);
    a->removeNextNodeAt(2);
    a->removeNextNode(nullptr);
    ASSERT_EQ(a->getNextNodes().size(), 2u);
    a->insertNextNode(1, d); // B D C
    a->setNextNode(0, d);    // D D C
    EXPECT_EQ(a->retrieveNextNodeId(graph.node('C')), 2);
    EXPECT_FALSE(a->hasNextNode(graph.node('B')));
    a->removeNextNode(d);
    EXPECT_EQ(a->retrieveNextNodeId(d), 0);
    EXPECT_EQ(d->getReferenceCount(), 2);
}

TEST(Graph, containersNestAndHoldANodeOnce)
{
    SmartPointer<Box> top(new Box), middle(new Box);
    SmartPointer<Node> leaf(new Node);
    top->addChildNode(middle.getImpl());
    middle->addChildNode(leaf.getImpl());
    top->addChildNode(leaf.getImpl());
    EXPECT_FALSE(top->hasChildNode(leaf.getImpl()));
    EXPECT_TRUE(leaf->hasAncestorNode(top.getImpl()));
    EXPECT_FALSE(top->hasAncestorNode(middle.getImpl()));
    EXPECT_EQ(leaf->touchFirstAncestor(), static_cast<AbstractGraphicalContainerNode*>(top.getImpl()));
    EXPECT_EQ(Graph("", 'A').node('B')->touchFirstAncestor(), nullptr);
    EXPECT_NE(leaf->getTypeHash(), top->getTypeHash());
    EXPECT_EQ(middle->getTypeHash(), top->getTypeHash());

    EXPECT_TRUE(top->isChildCollapsed());
    middle->_isExpanded = true;
    EXPECT_FALSE(top->isChildCollapsed());
    leaf->_avoided = middle->_avoided = true;
    top->updateAvoidedChildren();
    EXPECT_FALSE(leaf->_avoided || middle->_avoided);

    EXPECT_FALSE(top->removeChildNode(leaf.getImpl()));
    EXPECT_TRUE(middle->removeChildNode(leaf.getImpl()));
    EXPECT_EQ(leaf->getParentNode(), nullptr);

    // Two that hold each other: every climb and descent ends.
    middle->addChildNode(top.getImpl());
    EXPECT_EQ(top->touchFirstAncestor(), nullptr);
    EXPECT_FALSE(top->hasAncestorNode(nullptr));
    middle->_isExpanded = false;
    EXPECT_TRUE(top->isChildCollapsed());
    EXPECT_TRUE(middle->removeChildNode(top.getImpl()));
}

TEST(Graph, depthCostsNoStack)
{
    Array<SmartPointer<Node>> firsts;
    {
        AbstractGraphicalContainerNode box;
        Node* last = nullptr;
        for (int i = 0; i < 100000; ++i)
        {
            Node* const node = new Node;
            box.addChildNode(node);
            if (last != nullptr)
                last->addNextNode(node);
            last = node;
        }
        firsts.push_back(box.getChildrenNodes().front());
        EXPECT_TRUE(box.isChildNodeInFlow(last));
        MrvMap<Node*, Node*> predecessors;
        box.computePredecessorsMap(predecessors);
        EXPECT_EQ(predecessors.size(), 99999u);
    }
    firsts.clear(); // the whole chain

    SmartPointer<Box> top(new Box);
    for (Box *box = top.getImpl(), *inner; firsts.size() < 100000; box = inner)
    {
        inner = new Box;
        box->addChildNode(inner);
        firsts.push_back(inner);
    }
    firsts.clear();
    top->updateAvoidedChildren();
    EXPECT_TRUE(top->isChildCollapsed());
}

TEST(StickyNotes, layInOnePoolOnce)
{
    AbstractGraphicalContainerNode box;
    SmartPointer<StickyNotes> a(new StickyNotes), b(new StickyNotes);
    box.addAStickyNotes(a.getImpl());
    box.addAStickyNotes(b.getImpl());
    box.addAStickyNotes(a.getImpl());
    box.addAStickyNotes(nullptr);
    EXPECT_EQ(box.getStickyNotesPool().size(), 2u);
    EXPECT_EQ(a->_container, &box);
    EXPECT_TRUE(box.removeAStickyNotes(a.getImpl()));
    EXPECT_FALSE(box.removeAStickyNotes(a.getImpl()));
    EXPECT_EQ(a->_container, nullptr);
    EXPECT_TRUE(box.hasAStickyNotes(b.getImpl()));
}

TEST(GraphicalNodeLogEventListener, showsTheLastMessage)
{
    initCore();
    {
        Node node;
        GraphicalNodeLogEventListener listener(&node), idle;
        using Status = Node::DebugStatus;
        const Status::Value statuses[] = { Status::FAILED, Status::WARNING, Status::VALID };
        for (const Log::Severity severity : { Log::LOG_ERROR, Log::LOG_WARNING, Log::LOG_INFO })
        {
            const std::string text = "message " + std::to_string(severity);
            getLog()->trace(Log::DCC, severity, text.c_str(), "", 0, "");
            EXPECT_EQ(node._debugStatus, statuses[severity]);
            EXPECT_EQ(node._statusInfo, text.c_str());
        }
    }
    finishCore(true);
}

} // namespace
