// mrvCore/system/containers/mrvTreeIter.h
// What the iterators of MrvMap and MrvSet share.
#pragma once

namespace mrv::internal {

/// A place in a tree: a node, or the sentinel for the end.
template <class Tree>
class TreePlace
{
public:
    using Node = typename Tree::NodeType;

    TreePlace() = default;
    TreePlace(Node* node, const Tree* tree) : _node(node), _tree(tree) {}

    bool operator==(const TreePlace& other) const { return _node == other._node; }
    bool operator!=(const TreePlace& other) const { return _node != other._node; }

    Node* getNode() const { return _node; }
    const Tree* getTree() const { return _tree; }

protected:
    Node* _node = nullptr;
    const Tree* _tree = nullptr;
};

/// Steps through a tree in ascending key order; `Derived` is the iterator that adds the access.
template <class Derived, class Tree>
class TreeIter : public TreePlace<Tree>
{
public:
    using TreePlace<Tree>::TreePlace;

    Derived& operator++()
    {
        this->_node = this->_tree->getNext(this->_node);
        return static_cast<Derived&>(*this);
    }
    Derived& operator--()
    {
        this->_node = this->_tree->getPrevious(this->_node);
        return static_cast<Derived&>(*this);
    }
    Derived operator++(int)
    {
        const Derived former = static_cast<Derived&>(*this);
        ++*this;
        return former;
    }
    Derived operator--(int)
    {
        const Derived former = static_cast<Derived&>(*this);
        --*this;
        return former;
    }
};

} // namespace mrv::internal
