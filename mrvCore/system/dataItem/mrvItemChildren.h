// mrvCore/system/dataItem/mrvItemChildren.h
// The children of one item of a data item tree.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace mrv {

class DataItem;

namespace internal {

/// Items one behind the other in one block, which owns them.
///
/// Smaller than an array, and what grows is moved as bytes: an item means the same at another address, and
/// a copy would be one of its whole subtree.
class MRV_CORE_API ItemChildren
{
public:
    ItemChildren() noexcept = default;
    /// Copies the subtrees.
    ItemChildren(const ItemChildren& other);
    ItemChildren(ItemChildren&& other) noexcept { swap(other); }
    ~ItemChildren()
    {
        if (_items != nullptr)
            free();
    }
    ItemChildren& operator=(ItemChildren other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(ItemChildren& other) noexcept
    {
        std::swap(_items, other._items);
        std::swap(_size, other._size);
        std::swap(_capacity, other._capacity);
    }

    /// The first one; null or beyond the last one where there is none.
    DataItem* begin() { return _items; }
    const DataItem* begin() const { return _items; }
    uint32_t size() const { return _size; }

    /// One more at the end.
    DataItem& add();
    /// So many at the end, and no room for more.
    void add(size_t count);
    /// Room for so many in all and no more; nothing where there is that much.
    void reserve(size_t count);
    /// Takes the items of another list from that one on, which come to the end of these without room for
    /// more. `other` may be the list in which the owner of these lies, before them.
    void takeFrom(ItemChildren& other, uint32_t first);

private:
    void free();

    DataItem* _items = nullptr;
    uint32_t _size = 0;
    uint32_t _capacity = 0;
};

} // namespace internal
} // namespace mrv
