// mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.cpp
#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h"

#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.h"

#include <typeinfo>

namespace mrv {

namespace {

constexpr size_t visualFeedbackFlagCount = 48;

/// Climbs from node to node through their containers, and notices when it walks in a ring: a node that is
/// compared with comes up again, and is moved on after twice as many steps each time (R. Brent, 1980).
class RingWatch
{
public:
    bool closesRing(const AbstractGraphicalNode* node)
    {
        if (node == _mark)
            return true;
        if (++_steps == _limit)
        {
            _mark = node;
            _limit *= 2;
            _steps = 0;
        }
        return false;
    }

private:
    const AbstractGraphicalNode* _mark = nullptr;
    size_t _steps = 0;
    size_t _limit = 1;
};

} // namespace

namespace internal {

void releaseNodes(Array<SmartPointer<AbstractGraphicalNode>>& nodes)
{
    static thread_local Array<SmartPointer<AbstractGraphicalNode>>* waiting = nullptr;
    if (waiting != nullptr)
    {
        waiting->insert(waiting->end(), nodes.begin(), nodes.end());
        nodes.clear();
        return;
    }
    Array<SmartPointer<AbstractGraphicalNode>> list;
    list.swap(nodes);
    waiting = &list;
    while (!list.empty())
    {
        const SmartPointer<AbstractGraphicalNode> node(list.back());
        list.pop_back();
    }
    waiting = nullptr;
}

} // namespace internal

AbstractGraphicalNode::AbstractGraphicalNode()
{
    _visualFeedbackFlags.resize(visualFeedbackFlagCount, 0);
}

AbstractGraphicalNode::~AbstractGraphicalNode()
{
    internal::releaseNodes(_nextNodes);
}

void AbstractGraphicalNode::addNextNode(AbstractGraphicalNode* node)
{
    _nextNodes.push_back(node);
}

void AbstractGraphicalNode::insertNextNode(int index, AbstractGraphicalNode* node)
{
    if (isEdge(index))
        _nextNodes.insert(_nextNodes.begin() + index, SmartPointer<AbstractGraphicalNode>(node));
}

void AbstractGraphicalNode::setNextNode(int index, AbstractGraphicalNode* node)
{
    if (isEdge(index))
        _nextNodes[static_cast<size_t>(index)] = SmartPointer<AbstractGraphicalNode>(node);
}

void AbstractGraphicalNode::removeNextNode(AbstractGraphicalNode* node)
{
    removeNextNodeAt(retrieveNextNodeId(node));
}

void AbstractGraphicalNode::removeNextNodeAt(int index)
{
    if (!isEdge(index))
        return;
    // The node may be the last owner of this one, through a ring: it goes when the array is whole again.
    const SmartPointer<AbstractGraphicalNode> removed(_nextNodes[static_cast<size_t>(index)]);
    _nextNodes.eraseAt(static_cast<size_t>(index));
}

const MrvString& AbstractGraphicalNode::getName() const
{
    return _name;
}

void AbstractGraphicalNode::setName(const char* name)
{
    _name = name;
}

size_t AbstractGraphicalNode::getTypeHash() const
{
    return typeid(*this).hash_code();
}

void AbstractGraphicalNode::cloneImpl(AbstractGraphicalNode*, CloneFactory*) const {}

AbstractGraphicalNode* AbstractGraphicalNode::create() const
{
    return new AbstractGraphicalNode;
}

int AbstractGraphicalNode::retrieveNextNodeId(const AbstractGraphicalNode* node) const
{
    if (node != nullptr)
        for (size_t i = 0; i < _nextNodes.size(); ++i)
            if (_nextNodes[i].getImpl() == node)
                return static_cast<int>(i);
    return -1;
}

bool AbstractGraphicalNode::hasAncestorNode(const AbstractGraphicalContainerNode* ancestor) const
{
    RingWatch watch;
    for (const AbstractGraphicalNode* node = this; node != nullptr && !watch.closesRing(node);
         node = dynamic_cast<const AbstractGraphicalNode*>(node->_parentNode))
    {
        if (node->_parentNode == nullptr)
            return false;
        if (node->_parentNode == ancestor)
            return true;
    }
    return false;
}

AbstractGraphicalContainerNode* AbstractGraphicalNode::touchFirstAncestor()
{
    RingWatch watch;
    AbstractGraphicalNode* top = this;
    while (top->_parentNode != nullptr)
    {
        if (watch.closesRing(top))
            return nullptr;
        AbstractGraphicalNode* const above = dynamic_cast<AbstractGraphicalNode*>(top->_parentNode);
        if (above == nullptr)
            return top->_parentNode;
        top = above;
    }
    return dynamic_cast<AbstractGraphicalContainerNode*>(top);
}

} // namespace mrv
