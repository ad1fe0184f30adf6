// mrvCore/system/containers/mrvNodePool.h
// Nodes of maps and sets taken from large blocks instead of the heap.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"

namespace mrv::internal {

/// Pool of tree nodes: one `malloc` per block of `allocationSize` nodes, none per node.
///
/// Owns all its blocks until clear() or its end, and outlives the maps that use it. A map with a pool
/// empties the whole pool when it is cleared or destroyed, without destructors of keys and values: a pool
/// suits plain keys and values, and all users of one pool end together.
/// Threads: no lock; one thread at a time for all maps of a pool.
template <class Node>
class NodePool
{
public:
    explicit NodePool(size_t allocationSize, MemAllocStatId id = getDefaultArrayMemoryStatId())
        : _arrayOfStaticArraysOfNodes(id)
        , _allocationSize(allocationSize)
        , _memAllocStatId(id)
    {}
    NodePool(const NodePool&) = delete;
    NodePool& operator=(const NodePool&) = delete;
    ~NodePool() { clear(); }

    /// A node constructed from the arguments (key, value where there is one, sentinel of the tree), from a
    /// new block where no free one is left.
    template <class... Arguments>
    Node* obtain(const Arguments&... arguments)
    {
        if (_chainedFreeNodes == nullptr)
            allocateNewArray();
        Node* const node = _chainedFreeNodes;
        _chainedFreeNodes = node->_right;
        return new (static_cast<void*>(node)) Node(arguments...);
    }

    /// Destroys key and value and puts the node first on the free chain.
    void recycle(Node* node)
    {
        node->destroyElements();
        node->_right = _chainedFreeNodes;
        _chainedFreeNodes = node;
    }

    /// Frees all blocks; no node of the pool exists any more. Runs no destructors.
    void clear()
    {
        for (Node* const block : _arrayOfStaticArraysOfNodes)
            freeBlock(block);
        _arrayOfStaticArraysOfNodes.clear();
        _chainedFreeNodes = nullptr;
    }

    /// Nodes of each block taken from now on; 0 counts as 1.
    void setAllocationSize(size_t allocationSize) { _allocationSize = allocationSize; }
    MemAllocStatId getMemAllocStatId() const { return _memAllocStatId; }

    /// Takes one block and chains its nodes in the order of their addresses.
    void allocateNewArray()
    {
        static_assert(alignof(Node) <= alignof(std::max_align_t), "malloc aligns to 16 bytes");
        const size_t count = _allocationSize == 0 ? 1 : _allocationSize;
        Node* const block = static_cast<Node*>(allocateBlock(count, sizeof(Node)));
        _arrayOfStaticArraysOfNodes.push_back(block);
        for (size_t i = count; i-- > 0;)
        {
            block[i]._right = _chainedFreeNodes;
            _chainedFreeNodes = block + i;
        }
    }

private:
    Array<Node*> _arrayOfStaticArraysOfNodes;
    Node* _chainedFreeNodes = nullptr;
    size_t _allocationSize;
    MemAllocStatId _memAllocStatId;
};

} // namespace mrv::internal
