// mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.h
// A group of nodes with its sticky notes, and what can be asked of the graph inside.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"

namespace mrv {

class AbstractGraphicalNode;
class StickyNotes;

/// Base of the container types of applications; containers nest where they are nodes as well.
///
/// Ownership: shares its children and its notes. They point back at it, which is cleared when they are
/// removed, and not when it dies. The first child is the entry of the flow.
/// Edges may lead out of the container, in a ring, to the node itself, or be null: null leads nowhere.
/// Threads: none; one thread edits a graph.
class MRV_CORE_API AbstractGraphicalContainerNode
{
public:
    AbstractGraphicalContainerNode();
    virtual ~AbstractGraphicalContainerNode();
    AbstractGraphicalContainerNode(const AbstractGraphicalContainerNode&) = delete;
    AbstractGraphicalContainerNode& operator=(const AbstractGraphicalContainerNode&) = delete;

    /// Ignored for null and for a node that has a parent.
    virtual void addChildNode(AbstractGraphicalNode* node);
    /// False for a node that is no child. Its edges stay, in both directions.
    virtual bool removeChildNode(AbstractGraphicalNode* node);
    /// Clears `_avoided` of all nodes below; derived classes set it by rules of their own. Nesting that
    /// would exhaust the stack is not followed to its end, here and in isChildCollapsed().
    virtual void updateAvoidedChildren();
    /// Hook for derived classes; true here.
    virtual bool checkChildrenConnections();
    /// True if no container below this one is expanded.
    virtual bool isChildCollapsed() const;

    bool hasChildNode(const AbstractGraphicalNode* node) const { return getChildNodeId(node) != -1; }
    /// Index of the child; -1 for null or absent.
    int getChildNodeId(const AbstractGraphicalNode* node) const;
    const Array<SmartPointer<AbstractGraphicalNode>>& getChildrenNodes() const { return _childrenNodes; }
    /// For changes that addChildNode() does not make, such as another order.
    Array<SmartPointer<AbstractGraphicalNode>>& touchChildrenNodes() { return _childrenNodes; }
    bool isBrowsable() const { return _browsable; }

    /// Ignored for null and for a note that is here already.
    void addAStickyNotes(StickyNotes* notes);
    /// False for a note that is not here.
    bool removeAStickyNotes(StickyNotes* notes);
    bool hasAStickyNotes(const StickyNotes* notes) const;
    const Array<SmartPointer<StickyNotes>>& getStickyNotesPool() const { return _stickyNotesPool; }

    /// One predecessor for each node that has any: a walk goes breadth first from the children that no
    /// child leads to, and the last edge that it meets counts. A mere ring has no start and adds nothing.
    /// Entries of other nodes stay. Time n log n in nodes and edges.
    void computePredecessorsMap(MrvMap<AbstractGraphicalNode*, AbstractGraphicalNode*>& predecessors) const;
    /// Appends every child to the list of each node that it leads to: in order of children, once per edge.
    void computePredecessorsListMap(
        MrvMap<AbstractGraphicalNode*, PODArray<AbstractGraphicalNode*>>& predecessors) const;
    /// Whether edges lead from the first child to this child, through children of this container only.
    bool isChildNodeInFlow(const AbstractGraphicalNode* child) const;

private:
    Array<SmartPointer<AbstractGraphicalNode>> _childrenNodes;

public:
    bool _browsable = false;

private:
    Array<SmartPointer<StickyNotes>> _stickyNotesPool;

public:
    bool _isExpanded = false;
};

} // namespace mrv
