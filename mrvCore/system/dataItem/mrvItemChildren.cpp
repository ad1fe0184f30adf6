// mrvCore/system/dataItem/mrvItemChildren.cpp
// The children of one item of a data item tree.
#include "mrvCore/system/dataItem/mrvItemChildren.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include <climits>
#include <cstring>
#include <new>

namespace mrv::internal {

namespace {

/// More than 32 bits count is no memory that a tree can have.
uint32_t checkedCount(size_t count)
{
    if (count > UINT_MAX)
        allocateBlock(SIZE_MAX, sizeof(DataItem));
    return static_cast<uint32_t>(count);
}

} // namespace

ItemChildren::ItemChildren(const ItemChildren& other)
{
    reserve(other._size);
    for (; _size < other._size; ++_size)
        new (static_cast<void*>(_items + _size)) DataItem(other._items[_size]);
}

void ItemChildren::free()
{
    for (uint32_t i = 0; i < _size; ++i)
        _items[i].DataItem::~DataItem(); // they are no derived ones
    freeBlock(_items);
}

DataItem& ItemChildren::add()
{
    if (_size == _capacity)
        reserve(_size == 0 ? 2 : 2 * size_t(_size));
    return *new (static_cast<void*>(_items + _size++)) DataItem();
}

void ItemChildren::add(size_t count)
{
    reserve(_size + count);
    for (; count > 0; --count)
        add();
}

void ItemChildren::reserve(size_t count)
{
    if (count <= _capacity)
        return;
    _capacity = checkedCount(count);
    _items = static_cast<DataItem*>(reallocateBlock(_items, count, sizeof(DataItem)));
}

void ItemChildren::takeFrom(ItemChildren& other, uint32_t first)
{
    const uint32_t count = other._size - first;
    if (count == 0)
        return;
    reserve(size_t(_size) + count);
    std::memcpy(static_cast<void*>(_items + _size), static_cast<const void*>(other._items + first),
                count * sizeof(DataItem));
    _size += count;
    other._size = first;
}

} // namespace mrv::internal
