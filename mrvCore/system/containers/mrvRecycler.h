// mrvCore/system/containers/mrvRecycler.h
// Items of one size that are taken and given back often.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

/// Pool of items of one type in blocks of `allocationSize` items.
///
/// Owns the memory of all its items until clear() or its end. With `constructed` false an item is raw
/// memory: the user constructs and destroys what is in it. With true obtain() makes a default item and
/// recycle() destroys it; items that were not given back are then never destroyed.
/// Threads: no lock.
template <class Item, bool constructed>
class RecyclerT
{
public:
    /// An `allocationSize` of 0 counts as 1.
    explicit RecyclerT(size_t allocationSize, MemAllocStatId id = getDefaultPODArrayMemoryStatId())
        : _allocatedDataArrays(id)
        , _recycledItems(id)
        , _allocationSize(allocationSize ? allocationSize : 1)
        , _memAllocStatId(id)
    {}
    RecyclerT(const RecyclerT&) = delete;
    RecyclerT& operator=(const RecyclerT&) = delete;
    ~RecyclerT() { clear(); }

    /// The item given back last, otherwise the next unused one.
    Item* obtain()
    {
        Item* const item = _recycledItems.any() ? takeRecycled() : takeUnused();
        if constexpr (constructed)
            new (static_cast<void*>(item)) Item();
        return item;
    }

    /// Gives an item back, which is destroyed if this recycler constructs.
    void recycle(Item* item)
    {
        if constexpr (constructed)
            item->~Item();
        _recycledItems.push_back(item);
    }

    /// Frees all blocks; no item exists any more.
    void clear()
    {
        for (Item* const block : _allocatedDataArrays)
            internal::freeBlock(block);
        _allocatedDataArrays.clear();
        _recycledItems.clear();
        _currentFeedingIndex = 0;
    }

    void swap(RecyclerT& other) noexcept
    {
        _allocatedDataArrays.swap(other._allocatedDataArrays);
        _recycledItems.swap(other._recycledItems);
        std::swap(_currentFeedingIndex, other._currentFeedingIndex);
        std::swap(_allocationSize, other._allocationSize);
        std::swap(_memAllocStatId, other._memAllocStatId);
    }

private:
    Item* takeRecycled()
    {
        Item* const item = _recycledItems.back();
        _recycledItems.pop_back();
        return item;
    }
    Item* takeUnused()
    {
        static_assert(alignof(Item) <= alignof(std::max_align_t), "malloc aligns to 16 bytes");
        if (_allocatedDataArrays.empty() || _currentFeedingIndex == _allocationSize)
        {
            _allocatedDataArrays.push_back(
                static_cast<Item*>(internal::allocateBlock(_allocationSize, sizeof(Item))));
            _currentFeedingIndex = 0;
        }
        return _allocatedDataArrays.back() + _currentFeedingIndex++;
    }

    PODArray<Item*> _allocatedDataArrays;
    PODArray<Item*> _recycledItems;
    size_t _currentFeedingIndex = 0; // of the newest block
    size_t _allocationSize;
    MemAllocStatId _memAllocStatId;
};

} // namespace mrv
