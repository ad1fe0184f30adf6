// mrvCore/system/containers/mrvRedBlackTree.h
// The tree under MrvMap and MrvSet.
#pragma once

#include "mrvCore/system/containers/mrvNodePool.h"

namespace mrv::internal {

/// Red-black tree with unique keys and a sentinel node inside the tree itself.
///
/// Source: Cormen, Leiserson, Rivest, Stein, "Introduction to Algorithms", 3rd edition, 2009, chapter 13.
/// `Node` has the members `_parent`, `_left`, `_right`, `_color`, `getKey()` and `destroyElements()`;
/// `Mapped` is the value's type for a map and empty for a set. Keys are ordered by their `operator<`; two
/// keys are the same where neither is less.
/// Nodes never change their key, value or address, so an iterator stays valid until its node is erased.
/// Depth, and so every recursion, is at most 2 log2(size + 1).
template <class Node, class Key, class... Mapped>
class RedBlackTree
{
public:
    using NodeType = Node;
    using Pool = NodePool<Node>;
    using DeleteNodePtrType = void (RedBlackTree::*)(Node*);
    using NewNodePtrType = Node* (RedBlackTree::*)(const Key&, const Mapped&...);

    static constexpr bool RED = true;
    static constexpr bool BLACK = false;

    static constexpr MemAllocStatId getClassMemoryStatId() { return MemoryStatIds::MaravoShared; }

    explicit RedBlackTree(MemAllocStatId id) : RedBlackTree(nullptr, id) {}

    /// Nodes come from the pool, or from the heap where that is null. The pool is borrowed.
    RedBlackTree(Pool* pool, MemAllocStatId id)
        : _memAllocStatId(id)
        , _deleteNodeFuncPtr(pool ? &RedBlackTree::deleteNodeWithRecycler : &RedBlackTree::deleteNodeInternal)
        , _newNodeFuncPtr(pool ? &RedBlackTree::newNodeWithRecycler : &RedBlackTree::newNodeInternal)
        , _recycler(pool)
    {}

    /// Same node functions and pool, same shape and colours.
    RedBlackTree(const RedBlackTree& other) : RedBlackTree(other._recycler, other._memAllocStatId)
    {
        copyTree(other);
    }

    /// Keeps its own pool. Gives its nodes back one by one, since `other` may have its own from that pool.
    RedBlackTree& operator=(const RedBlackTree& other)
    {
        if (this == &other)
            return *this;
        internalClear(_root);
        _memAllocStatId = other._memAllocStatId;
        copyTree(other);
        return *this;
    }
    ~RedBlackTree() { clear(); }

    bool empty() const { return _size == 0; }
    size_t size() const { return _size; }

    /// Without a pool destroys every node, from the root down. With a pool drops all nodes and frees the
    /// pool's blocks, those of its other users included.
    void clear()
    {
        if (_recycler == nullptr)
            internalClear(_root);
        else
            _recycler->clear();
        _root = _nil;
        _size = 0;
    }

    Node* getFirst() const { return _root == _nil ? _nil : min(_root); }
    Node* getEnd() const { return _nil; }

    /// The node behind, the end behind the last one.
    Node* getNext(Node* node) const
    {
        if (node->_right != _nil)
            return min(node->_right);
        return climb<&Node::_right>(node);
    }
    /// The node before; the last one before the end.
    Node* getPrevious(Node* node) const
    {
        if (node == _nil)
            return max(_root);
        if (node->_left != _nil)
            return max(node->_left);
        return climb<&Node::_left>(node);
    }

protected:
    using Link = Node* Node::*;

    /// Where a key is, or where it would hang.
    struct Place
    {
        Node* found;
        Node* parent;
        bool right;
    };

    /// The place of a key, for an insertion.
    Place locate(const Key& key) const
    {
        // Plain keys are compared both ways at each level, which costs nothing and ends at the key. Others
        // are compared once: only the last node not above the key can be the same.
        Place place = { _nil, _nil, false };
        for (Node* node = _root; node != _nil;)
        {
            __builtin_prefetch(node->_left); // the repair looks at the nodes beside the way down
            __builtin_prefetch(node->_right);
            const bool isLess = key < node->getKey();
            if (hasPlainKey && isSame(key, node->getKey()))
            {
                place.found = node;
                return place;
            }
            if (!hasPlainKey && !isLess)
                place.found = node;
            place.parent = node;
            place.right = !isLess;
            node = getChild(node, isLess);
        }
        if (place.found != _nil && place.found->getKey() < key)
            place.found = _nil;
        return place;
    }

    /// The node of the key, or the end.
    Node* internalFind(const Key& key) const
    {
        if constexpr (hasPlainKey)
            return findPlain(key);
        else
            return locate(key).found;
    }

    /// The node of the key; a key that is there keeps its value.
    Node* internalInsert(const Key& key, const Mapped&... mapped)
    {
        const Place place = locate(key);
        if (place.found != _nil)
            return place.found;
        return hang(place, newNode(key, mapped...));
    }

    /// Puts a new red node in its place and repairs the colours.
    Node* hang(const Place& place, Node* node);
    void internalErase(Node* node);
    size_t internalEraseKey(const Key& key)
    {
        Node* const node = internalFind(key);
        if (node == _nil)
            return 0;
        internalErase(node);
        return 1;
    }
    Node* newNode(const Key& key, const Mapped&... mapped)
    {
        return (this->*_newNodeFuncPtr)(key, mapped...);
    }

    Node* _root = &_nilInstance;
    size_t _size = 0;
    Node* _nil = &_nilInstance;

private:
    static constexpr bool hasPlainKey =
        sizeof(Key) <= 8 && (std::is_integral_v<Key> || std::is_pointer_v<Key> || std::is_enum_v<Key>);

    // Keys come in no order that a processor could predict, so the ways down choose by conditional moves.
    // A compiler that knew where the values of a choice come from would make branches of it.
    template <class Value>
    static Value opaque(Value value)
    {
        asm("" : "+r"(value));
        return value;
    }
    static Node* getChild(const Node* node, bool isLeft)
    {
        Node* const left = opaque(node->_left);
        Node* const right = opaque(node->_right);
        return isLeft ? left : right;
    }
    /// Without a branch for the first comparison.
    static bool isSame(const Key& a, const Key& b)
    {
        const bool isLess = a < b;
        const bool isGreater = b < a;
        return !(isLess | isGreater);
    }

    Node* findPlain(Key key) const
    {
        // The walk stays at the key, and at the end, whose links lead to itself. So it takes some levels
        // before it asks whether it is there, and the branch that asks is nearly always foreseen.
        const int levels = 6;
        const Key sameKey = opaque(key);
        Node* node = _root;
        do
        {
            for (int level = 0; level < levels; ++level)
            {
                Node* const child = getChild(node, key < node->getKey());
                node = opaque(isSame(sameKey, node->getKey()) ? node : child);
            }
        } while (node != _nil && !isSame(key, node->getKey()));
        return node;
    }

    Node* min(Node* node) const
    {
        while (node->_left != _nil)
        {
            __builtin_prefetch(node->_right); // a walk needs it after the left side
            node = node->_left;
        }
        return node;
    }
    Node* max(Node* node) const
    {
        while (node->_right != _nil)
            node = node->_right;
        return node;
    }
    /// The first ancestor that does not have the node on the given side.
    template <Link side>
    Node* climb(Node* node) const
    {
        Node* parent = node->_parent;
        while (parent != _nil && node == parent->*side)
        {
            node = parent;
            parent = parent->_parent;
        }
        return parent;
    }

    /// Puts `replacement` below the parent of `node`.
    void relink(Node* node, Node* replacement)
    {
        if (node->_parent == _nil)
            _root = replacement;
        else if (node == node->_parent->_left)
            node->_parent->_left = replacement;
        else
            node->_parent->_right = replacement;
    }

    // The repairs are written for one side and mirrored by swapping the two links.
    template <Link left, Link right>
    void rotateLeft(Node* node);
    template <Link left, Link right>
    void rotateRight(Node* node)
    {
        rotateLeft<right, left>(node);
    }

    void insertFixup(Node* node);
    template <Link left, Link right>
    Node* insertFixupBelow(Node* node);
    void deleteFixUp(Node* node);
    template <Link left, Link right>
    Node* deleteFixUpBelow(Node* node);

    void copyTree(const RedBlackTree& other)
    {
        _root = copyNode(other, other._root, _nil);
        _size = other._size;
    }
    Node* copyNode(const RedBlackTree& other, const Node* from, Node* parent);
    void copyChildren(const RedBlackTree& other, const Node* from, Node* to)
    {
        to->_left = copyNode(other, from->_left, to);
        to->_right = copyNode(other, from->_right, to);
    }
    void internalClear(Node* node);

    Node* newNodeInternal(const Key& key, const Mapped&... mapped) { return new Node(key, mapped..., _nil); }
    void deleteNodeInternal(Node* node) { delete node; }
    Node* newNodeWithRecycler(const Key& key, const Mapped&... mapped)
    {
        return _recycler->obtain(key, mapped..., _nil);
    }
    void deleteNodeWithRecycler(Node* node) { _recycler->recycle(node); }

    Node _nilInstance;
    MemAllocStatId _memAllocStatId;
    DeleteNodePtrType _deleteNodeFuncPtr;
    NewNodePtrType _newNodeFuncPtr;
    Pool* _recycler;
};

template <class Node, class Key, class... Mapped>
template <Node* Node::*left, Node* Node::*right>
void RedBlackTree<Node, Key, Mapped...>::rotateLeft(Node* node)
{
    Node* const risen = node->*right;
    node->*right = risen->*left;
    if (risen->*left != _nil)
        (risen->*left)->_parent = node;
    relink(node, risen);
    risen->_parent = node->_parent;
    risen->*left = node;
    node->_parent = risen;
}

template <class Node, class Key, class... Mapped>
Node* RedBlackTree<Node, Key, Mapped...>::hang(const Place& place, Node* node)
{
    node->_parent = place.parent;
    if (place.parent == _nil)
        _root = node;
    else if (place.right)
        place.parent->_right = node;
    else
        place.parent->_left = node;
    ++_size;
    insertFixup(node);
    return node;
}

template <class Node, class Key, class... Mapped>
void RedBlackTree<Node, Key, Mapped...>::insertFixup(Node* node)
{
    while (node->_parent->_color == RED)
    {
        if (node->_parent == node->_parent->_parent->_left)
            node = insertFixupBelow<&Node::_left, &Node::_right>(node);
        else
            node = insertFixupBelow<&Node::_right, &Node::_left>(node);
    }
    _root->_color = BLACK;
}

/// One step up for a red node whose red parent is the `left` child; returns where to go on.
template <class Node, class Key, class... Mapped>
template <Node* Node::*left, Node* Node::*right>
Node* RedBlackTree<Node, Key, Mapped...>::insertFixupBelow(Node* node)
{
    Node* const grandparent = node->_parent->_parent;
    Node* const uncle = grandparent->*right;
    if (uncle->_color == RED)
    {
        node->_parent->_color = BLACK;
        uncle->_color = BLACK;
        grandparent->_color = RED;
        return grandparent;
    }
    if (node == node->_parent->*right)
    {
        node = node->_parent;
        rotateLeft<left, right>(node);
    }
    node->_parent->_color = BLACK;
    grandparent->_color = RED;
    rotateRight<left, right>(grandparent);
    return node;
}

template <class Node, class Key, class... Mapped>
void RedBlackTree<Node, Key, Mapped...>::internalErase(Node* node)
{
    Node* moved = nullptr; // takes the place that becomes free; may be the sentinel
    bool removedColor = node->_color;
    if (node->_left == _nil || node->_right == _nil)
    {
        moved = node->_left == _nil ? node->_right : node->_left;
        relink(node, moved);
        moved->_parent = node->_parent;
    }
    else
    {
        Node* const successor = min(node->_right);
        removedColor = successor->_color;
        moved = successor->_right;
        if (successor->_parent == node)
            moved->_parent = successor;
        else
        {
            relink(successor, moved);
            moved->_parent = successor->_parent;
            successor->_right = node->_right;
            successor->_right->_parent = successor;
        }
        relink(node, successor);
        successor->_parent = node->_parent;
        successor->_left = node->_left;
        successor->_left->_parent = successor;
        successor->_color = node->_color;
    }
    if (removedColor == BLACK)
        deleteFixUp(moved);
    _nil->_parent = nullptr;
    --_size;
    (this->*_deleteNodeFuncPtr)(node);
}

template <class Node, class Key, class... Mapped>
void RedBlackTree<Node, Key, Mapped...>::deleteFixUp(Node* node)
{
    while (node != _root && node->_color == BLACK)
    {
        if (node == node->_parent->_left)
            node = deleteFixUpBelow<&Node::_left, &Node::_right>(node);
        else
            node = deleteFixUpBelow<&Node::_right, &Node::_left>(node);
    }
    node->_color = BLACK;
}

/// One step up for a `left` child that lacks one black; returns where to go on, the root when done.
template <class Node, class Key, class... Mapped>
template <Node* Node::*left, Node* Node::*right>
Node* RedBlackTree<Node, Key, Mapped...>::deleteFixUpBelow(Node* node)
{
    Node* const parent = node->_parent;
    Node* sibling = parent->*right;
    if (sibling->_color == RED)
    {
        sibling->_color = BLACK;
        parent->_color = RED;
        rotateLeft<left, right>(parent);
        sibling = parent->*right;
    }
    if ((sibling->*left)->_color == BLACK && (sibling->*right)->_color == BLACK)
    {
        sibling->_color = RED;
        return parent;
    }
    if ((sibling->*right)->_color == BLACK)
    {
        (sibling->*left)->_color = BLACK;
        sibling->_color = RED;
        rotateRight<left, right>(sibling);
        sibling = parent->*right;
    }
    sibling->_color = parent->_color;
    parent->_color = BLACK;
    (sibling->*right)->_color = BLACK;
    rotateLeft<left, right>(parent);
    return _root;
}

template <class Node, class Key, class... Mapped>
Node* RedBlackTree<Node, Key, Mapped...>::copyNode(const RedBlackTree& other, const Node* from, Node* parent)
{
    if (from == other._nil)
        return _nil;
    Node* const node = from->copyElements(
        [this](const Key& key, const Mapped&... mapped) { return newNode(key, mapped...); });
    node->_parent = parent;
    node->_color = from->_color;
    copyChildren(other, from, node);
    return node;
}

template <class Node, class Key, class... Mapped>
void RedBlackTree<Node, Key, Mapped...>::internalClear(Node* node)
{
    while (node != _nil)
    {
        Node* const left = node->_left;
        Node* const right = node->_right;
        (this->*_deleteNodeFuncPtr)(node);
        internalClear(left);
        node = right;
    }
}

} // namespace mrv::internal
