// mrvCore/system/containers/mrvMap.h
// Map from unique keys to values in key order.
#pragma once

#include "mrvCore/system/containers/mrvRedBlackTree.h"
#include "mrvCore/system/containers/mrvTreeIter.h"

namespace mrv {

namespace internal {

template <class K, class V>
struct MapNode
{
    /// The sentinel, black and linked to itself.
    MapNode() : _value(), _key(), _parent(nullptr), _left(this), _right(this), _color(false) {}
    /// A new node, red and without children.
    MapNode(const K& key, const V& value, MapNode* nil)
        : _value(value)
        , _key(key)
        , _parent(nil)
        , _left(nil)
        , _right(nil)
        , _color(true)
    {}
    MapNode(const MapNode&) = delete;
    MapNode& operator=(const MapNode&) = delete;

    const K& getKey() const { return _key; }
    template <class Make>
    MapNode* copyElements(const Make& make) const
    {
        return make(_key, _value);
    }
    void destroyElements()
    {
        _key.~K();
        _value.~V();
    }

    V _value;
    K _key;
    MapNode* _parent;
    MapNode* _left;
    MapNode* _right;
    bool _color;
};

/// Iterator of a map; `V` is const for a map that may not be changed through it.
template <class Tree, class V>
class MapIter : public TreeIter<MapIter<Tree, V>, Tree>
{
public:
    using TreeIter<MapIter<Tree, V>, Tree>::TreeIter;
    MapIter() = default;
    template <class Other, class = std::enable_if_t<std::is_same_v<const Other, V>>>
    MapIter(const MapIter<Tree, Other>& other) : MapIter(other.getNode(), other.getTree())
    {}

    const auto& getKey() const { return this->_node->_key; }
    V& getValue() const { return this->_node->_value; }
};

} // namespace internal

/// Red-black tree of keys and values.
///
/// Keys need `operator<` alone; keys and values need a default and a copy constructor. A value's address and
/// its iterators stay the same until its key is erased; the end stays the same as long as the map.
/// Nodes come from the heap or from a MapNodePool, see internal::NodePool for what that means.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class K, class V>
class MrvMap : private internal::RedBlackTree<internal::MapNode<K, V>, K, V>
{
    using Tree = internal::RedBlackTree<internal::MapNode<K, V>, K, V>;

public:
    using key_type = K;
    using mapped_type = V;
    using MrvMapNode = internal::MapNode<K, V>;
    using MapNodePool = internal::NodePool<MrvMapNode>;
    using MrvMapIter = internal::MapIter<Tree, V>;
    using MrvMapConstIter = internal::MapIter<Tree, const V>;
    using iterator = MrvMapIter;
    using const_iterator = MrvMapConstIter;
    using DeleteMapNodePtrType = typename Tree::DeleteNodePtrType;
    using NewMapNodePtrType = typename Tree::NewNodePtrType;

    MrvMap() : Tree(Tree::getClassMemoryStatId()) {}
    explicit MrvMap(MemAllocStatId id) : Tree(id) {}
    explicit MrvMap(MapNodePool* pool, MemAllocStatId id = Tree::getClassMemoryStatId()) : Tree(pool, id) {}

    using Tree::clear;
    using Tree::empty;
    using Tree::getClassMemoryStatId;
    using Tree::size;

    iterator begin() { return { this->getFirst(), this }; }
    const_iterator begin() const { return { this->getFirst(), this }; }
    iterator end() { return { this->getEnd(), this }; }
    const_iterator end() const { return { this->getEnd(), this }; }

    iterator find(const K& key) { return { this->internalFind(key), this }; }
    const_iterator find(const K& key) const { return { this->internalFind(key), this }; }

    /// The value of the key, which is inserted with a default value if it is absent.
    V& operator[](const K& key)
    {
        const auto place = this->locate(key);
        if (place.found != this->_nil)
            return place.found->_value;
        return this->hang(place, this->newNode(key, V()))->_value;
    }

    /// The entry of the key; a key that is there keeps its value.
    iterator insert(const K& key, const V& value) { return { this->internalInsert(key, value), this }; }
    /// All entries of a range of another map.
    void insert(const_iterator first, const_iterator last)
    {
        for (; first != last; ++first)
            this->internalInsert(first.getKey(), first.getValue());
    }

    /// Returns the entry behind the erased one.
    iterator erase(iterator position)
    {
        const iterator erased = position++;
        this->internalErase(erased.getNode());
        return position;
    }
    /// Number of entries removed, 0 or 1.
    size_t erase(const K& key) { return this->internalEraseKey(key); }

    bool operator==(const MrvMap& other) const;
    bool operator!=(const MrvMap& other) const { return !(*this == other); }
};

template <class K, class V>
bool MrvMap<K, V>::operator==(const MrvMap& other) const
{
    if (size() != other.size())
        return false;
    const_iterator a = begin();
    for (const_iterator b = other.begin(); a != end(); ++a, ++b)
        if (a.getKey() < b.getKey() || b.getKey() < a.getKey() || !(a.getValue() == b.getValue()))
            return false;
    return true;
}

} // namespace mrv
