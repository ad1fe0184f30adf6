// mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.cpp
#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.h"

#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h"
#include "mrvCore/graphicalEditorNodes/mrvStickyNotes.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/utils/mrvStackSpace.h"

namespace mrv {

namespace {

using NodeList = PODArray<AbstractGraphicalNode*>;

/// Calls `visit(node, next)` for each edge that is not null; `node` itself may be null.
template <class Visit>
void forEachEdge(AbstractGraphicalNode* node, const Visit& visit)
{
    if (node == nullptr)
        return;
    for (const SmartPointer<AbstractGraphicalNode>& next : node->getNextNodes())
        if (next.getImpl() != nullptr)
            visit(node, next.getImpl());
}

/// The children less one entry for each edge to them: those left have no predecessor among the children.
NodeList findRoots(const Array<SmartPointer<AbstractGraphicalNode>>& children)
{
    MrvMap<AbstractGraphicalNode*, size_t> edgesTo;
    for (const SmartPointer<AbstractGraphicalNode>& child : children)
        forEachEdge(child.getImpl(),
                    [&](AbstractGraphicalNode*, AbstractGraphicalNode* next) { ++edgesTo[next]; });
    NodeList roots;
    for (const SmartPointer<AbstractGraphicalNode>& child : children)
    {
        const auto edges = edgesTo.find(child.getImpl());
        if (edges != edgesTo.end() && edges.getValue() != 0)
            --edges.getValue();
        else if (child.getImpl() != nullptr)
            roots.push_back(child.getImpl());
    }
    return roots;
}

/// All that can be reached from the list, breadth first and each node once.
NodeList walkFrom(NodeList list)
{
    NodeList order;
    MrvSet<AbstractGraphicalNode*> visited;
    for (size_t i = 0; i < list.size(); ++i)
    {
        AbstractGraphicalNode* const node = list[i];
        if (visited.find(node) != visited.end())
            continue;
        visited.insert(node);
        order.push_back(node);
        forEachEdge(node, [&](AbstractGraphicalNode*, AbstractGraphicalNode* next) { list.push_back(next); });
    }
    return order;
}

} // namespace

AbstractGraphicalContainerNode::AbstractGraphicalContainerNode() = default;

AbstractGraphicalContainerNode::~AbstractGraphicalContainerNode()
{
    internal::releaseNodes(_childrenNodes);
}

void AbstractGraphicalContainerNode::addChildNode(AbstractGraphicalNode* node)
{
    if (node == nullptr || node->_parentNode != nullptr)
        return;
    node->_parentNode = this;
    _childrenNodes.push_back(node);
}

bool AbstractGraphicalContainerNode::removeChildNode(AbstractGraphicalNode* node)
{
    const int index = getChildNodeId(node);
    if (index == -1)
        return false;
    node->_parentNode = nullptr;
    const SmartPointer<AbstractGraphicalNode> removed(node); // goes when the array is whole again
    _childrenNodes.eraseAt(static_cast<size_t>(index));
    return true;
}

void AbstractGraphicalContainerNode::updateAvoidedChildren()
{
    for (const SmartPointer<AbstractGraphicalNode>& child : _childrenNodes)
    {
        if (child.getImpl() == nullptr)
            continue;
        child->_avoided = false;
        auto* const container = dynamic_cast<AbstractGraphicalContainerNode*>(child.getImpl());
        if (container != nullptr && hasStackSpace())
            container->updateAvoidedChildren();
    }
}

bool AbstractGraphicalContainerNode::checkChildrenConnections()
{
    return true;
}

bool AbstractGraphicalContainerNode::isChildCollapsed() const
{
    for (const SmartPointer<AbstractGraphicalNode>& child : _childrenNodes)
    {
        const auto* const container = dynamic_cast<const AbstractGraphicalContainerNode*>(child.getImpl());
        if (container == nullptr)
            continue;
        if (container->_isExpanded || (hasStackSpace() && !container->isChildCollapsed()))
            return false;
    }
    return true;
}

int AbstractGraphicalContainerNode::getChildNodeId(const AbstractGraphicalNode* node) const
{
    if (node != nullptr)
        for (size_t i = 0; i < _childrenNodes.size(); ++i)
            if (_childrenNodes[i].getImpl() == node)
                return static_cast<int>(i);
    return -1;
}

void AbstractGraphicalContainerNode::addAStickyNotes(StickyNotes* notes)
{
    if (notes == nullptr || hasAStickyNotes(notes))
        return;
    _stickyNotesPool.push_back(notes);
    notes->_container = this;
}

bool AbstractGraphicalContainerNode::removeAStickyNotes(StickyNotes* notes)
{
    for (size_t i = 0; notes != nullptr && i < _stickyNotesPool.size(); ++i)
    {
        if (_stickyNotesPool[i].getImpl() != notes)
            continue;
        notes->_container = nullptr;
        _stickyNotesPool.eraseAt(i);
        return true;
    }
    return false;
}

bool AbstractGraphicalContainerNode::hasAStickyNotes(const StickyNotes* notes) const
{
    for (const SmartPointer<StickyNotes>& entry : _stickyNotesPool)
        if (notes != nullptr && entry.getImpl() == notes)
            return true;
    return false;
}

void AbstractGraphicalContainerNode::computePredecessorsMap(
    MrvMap<AbstractGraphicalNode*, AbstractGraphicalNode*>& predecessors) const
{
    for (AbstractGraphicalNode* const node : walkFrom(findRoots(_childrenNodes)))
        forEachEdge(node, [&](AbstractGraphicalNode* from, AbstractGraphicalNode* next) {
            predecessors[next] = from;
        });
}

void AbstractGraphicalContainerNode::computePredecessorsListMap(
    MrvMap<AbstractGraphicalNode*, PODArray<AbstractGraphicalNode*>>& predecessors) const
{
    for (const SmartPointer<AbstractGraphicalNode>& child : _childrenNodes)
        forEachEdge(child.getImpl(), [&](AbstractGraphicalNode* from, AbstractGraphicalNode* next) {
            predecessors[next].push_back(from);
        });
}

bool AbstractGraphicalContainerNode::isChildNodeInFlow(const AbstractGraphicalNode* child) const
{
    if (child == nullptr || child->_parentNode != this || _childrenNodes.empty())
        return false;
    MrvMap<AbstractGraphicalNode*, bool> visited;
    for (const SmartPointer<AbstractGraphicalNode>& node : _childrenNodes)
        if (node.getImpl() != nullptr && node->_parentNode == this)
            visited[node.getImpl()] = false;

    NodeList list;
    list.push_back(_childrenNodes.front().getImpl());
    while (!list.empty())
    {
        AbstractGraphicalNode* const node = list.back();
        list.pop_back();
        const auto entry = visited.find(node);
        if (entry == visited.end() || entry.getValue())
            continue;
        if (node == child)
            return true;
        entry.getValue() = true;
        forEachEdge(node, [&](AbstractGraphicalNode*, AbstractGraphicalNode* next) { list.push_back(next); });
    }
    return false;
}

} // namespace mrv
