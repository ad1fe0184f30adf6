// mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h
// One node of the graph that a visual editor shows.
#pragma once

#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"

namespace mrv {

class AbstractGraphicalContainerNode;
class CloneFactory;

/// Base of the node types of applications. A node that holds nodes derives from this class and from
/// AbstractGraphicalContainerNode, in any order.
///
/// Ownership: the container of a node and every node with an edge to it share it. A ring of edges keeps its
/// nodes alive until an edge is removed; a chain of any length dies without deep recursion. The parent is a
/// plain pointer: a node that outlives its container keeps a stale one.
/// Threads: none; one thread edits a graph.
class MRV_CORE_API AbstractGraphicalNode : public ReferenceCounter
{
public:
    /// Where the node stands in a run.
    struct RunStatus
    {
        enum Value { UNKNOWN, IDLE, START, RUN, STOP };
    };
    /// How its last run went.
    struct DebugStatus
    {
        enum Value { VALID, WARNING, FAILED, CRITICAL };
    };

    AbstractGraphicalNode();
    ~AbstractGraphicalNode() override;
    AbstractGraphicalNode(const AbstractGraphicalNode&) = delete;
    AbstractGraphicalNode& operator=(const AbstractGraphicalNode&) = delete;

    /// Appends an edge, a null one included.
    virtual void addNextNode(AbstractGraphicalNode* node);
    /// Does nothing for an index out of range, so it cannot append.
    virtual void insertNextNode(int index, AbstractGraphicalNode* node);
    /// Replaces an edge; does nothing for an index out of range.
    virtual void setNextNode(int index, AbstractGraphicalNode* node);
    /// Removes the first edge to the node, if any.
    virtual void removeNextNode(AbstractGraphicalNode* node);
    /// Does nothing for an index out of range.
    virtual void removeNextNodeAt(int index);

    virtual const MrvString& getName() const;
    virtual void setName(const char* name);
    /// The same for all objects of one class; valid in this process.
    virtual size_t getTypeHash() const;
    /// Hook for derived classes, which fill `target`; does nothing here.
    virtual void cloneImpl(AbstractGraphicalNode* target, CloneFactory* factory) const;
    /// A new node of the same kind, the caller's.
    virtual AbstractGraphicalNode* create() const;

    /// Index of the first edge to the node; -1 for null or none.
    int retrieveNextNodeId(const AbstractGraphicalNode* node) const;
    bool hasNextNode(const AbstractGraphicalNode* node) const { return retrieveNextNodeId(node) != -1; }
    const Array<SmartPointer<AbstractGraphicalNode>>& getNextNodes() const { return _nextNodes; }

    const AbstractGraphicalContainerNode* getParentNode() const { return _parentNode; }
    AbstractGraphicalContainerNode* touchParentNode() { return _parentNode; }

    /// Whether the container holds this node at any depth. The climb ends at a container that is no node.
    bool hasAncestorNode(const AbstractGraphicalContainerNode* ancestor) const;
    /// The container at the top, which may be this node. Null if what is on top is no container, and for
    /// nodes that hold each other in a ring.
    AbstractGraphicalContainerNode* touchFirstAncestor();

    bool _selected = false;
    bool _avoided = false; ///< the flow skips this node; see updateAvoidedChildren() of containers
    bool _enabled = true;
    bool _handled = true;
    bool _multipleNextNodes = false;
    RunStatus::Value _runStatus = RunStatus::UNKNOWN;
    Vector4 _backgroundColor = Vector4(0.23921569f, 0.2627451f, 0.28235295f, 1.0f);
    float _updatedThisFrameCoefficient = -1.0f;
    DebugStatus::Value _debugStatus = DebugStatus::VALID;
    MrvString _statusInfo; ///< goes with the debug status
    PODArray<int> _visualFeedbackFlags;
    Vector4 _color = Vector4(0.0f, 1.0f, 0.0f, 1.0f);
    int _executionPriority = 0;
    MrvString _typeName;

private:
    friend class AbstractGraphicalContainerNode;

    bool isEdge(int index) const { return index >= 0 && index < _nextNodes.sizeInt(); }

    Array<SmartPointer<AbstractGraphicalNode>> _nextNodes;
    MrvString _name;
    AbstractGraphicalContainerNode* _parentNode = nullptr; // borrowed
};

namespace internal {

/// Empties an array of a dying object. The nodes that go with it let go of theirs one after the other and
/// not inside each other, so that the depth of a graph costs no stack.
void releaseNodes(Array<SmartPointer<AbstractGraphicalNode>>& nodes);

} // namespace internal

} // namespace mrv
