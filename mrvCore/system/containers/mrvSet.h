// mrvCore/system/containers/mrvSet.h
// Set of unique values in ascending order.
#pragma once

#include "mrvCore/system/containers/mrvRedBlackTree.h"
#include "mrvCore/system/containers/mrvTreeIter.h"

namespace mrv {

namespace internal {

template <class T>
struct SetNode
{
    /// The sentinel, black and linked to itself.
    SetNode() : _value(), _parent(nullptr), _left(this), _right(this), _color(false) {}
    /// A new node, red and without children.
    SetNode(const T& value, SetNode* nil) : _value(value), _parent(nil), _left(nil), _right(nil), _color(true)
    {}
    SetNode(const SetNode&) = delete;
    SetNode& operator=(const SetNode&) = delete;

    const T& getKey() const { return _value; }
    template <class Make>
    SetNode* copyElements(const Make& make) const
    {
        return make(_value);
    }
    void destroyElements() { _value.~T(); }

    T _value;
    SetNode* _parent;
    SetNode* _left;
    SetNode* _right;
    bool _color;
};

/// Iterator of a set; the values are its keys and cannot be changed.
template <class Tree, class T>
class SetIter : public TreeIter<SetIter<Tree, T>, Tree>
{
public:
    using TreeIter<SetIter<Tree, T>, Tree>::TreeIter;
    SetIter() = default;

    const T& getKey() const { return this->_node->_value; }
    const T& getValue() const { return this->_node->_value; }
    const T& operator*() const { return this->_node->_value; }
};

} // namespace internal

/// Red-black tree of values.
///
/// Values need `operator<` and a default and a copy constructor. An iterator stays valid until its value is
/// erased; the end stays the same as long as the set.
/// Nodes come from the heap or from a SetNodePool, see internal::NodePool for what that means.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class T>
class MrvSet : private internal::RedBlackTree<internal::SetNode<T>, T>
{
    using Tree = internal::RedBlackTree<internal::SetNode<T>, T>;

public:
    using key_type = T;
    using value_type = T;
    using MrvSetNode = internal::SetNode<T>;
    using SetNodePool = internal::NodePool<MrvSetNode>;
    using MrvSetIter = internal::SetIter<Tree, T>;
    using iterator = MrvSetIter;
    using const_iterator = MrvSetIter;
    using DeleteSetNodePtrType = typename Tree::DeleteNodePtrType;
    using NewSetNodePtrType = typename Tree::NewNodePtrType;

    MrvSet() : Tree(Tree::getClassMemoryStatId()) {}
    explicit MrvSet(MemAllocStatId id) : Tree(id) {}
    explicit MrvSet(SetNodePool* pool, MemAllocStatId id = Tree::getClassMemoryStatId()) : Tree(pool, id) {}

    using Tree::clear;
    using Tree::empty;
    using Tree::getClassMemoryStatId;
    using Tree::size;

    iterator begin() const { return { this->getFirst(), this }; }
    iterator end() const { return { this->getEnd(), this }; }
    iterator find(const T& value) const { return { this->internalFind(value), this }; }

    /// The place of the value, which stays as it was if an equal one is there.
    iterator insert(const T& value) { return { this->internalInsert(value), this }; }
    /// All values of a range of another set.
    void insert(iterator first, iterator last)
    {
        for (; first != last; ++first)
            this->internalInsert(*first);
    }

    /// Returns the place behind the erased one.
    iterator erase(iterator position)
    {
        const iterator erased = position++;
        this->internalErase(erased.getNode());
        return position;
    }
    /// Number of values removed, 0 or 1.
    size_t erase(const T& value) { return this->internalEraseKey(value); }

    bool operator==(const MrvSet& other) const;
    bool operator!=(const MrvSet& other) const { return !(*this == other); }
};

template <class T>
bool MrvSet<T>::operator==(const MrvSet& other) const
{
    if (size() != other.size())
        return false;
    iterator a = begin();
    for (iterator b = other.begin(); a != end(); ++a, ++b)
        if (*a < *b || *b < *a)
            return false;
    return true;
}

} // namespace mrv
