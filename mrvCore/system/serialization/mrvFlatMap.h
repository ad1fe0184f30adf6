// mrvCore/system/serialization/mrvFlatMap.h
// Hash table from ids or addresses to small records, for the identity tables of the streams.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstdint>

namespace mrv::internal {

/// Open-addressing hash table from numbers to plain values that only grows. The number with all bits set is
/// no key. Pointers to values are valid until the next touch().
template <typename Value>
class FlatMap
{
public:
    /// The value of `key`, null if there is none.
    Value* find(uint64_t key)
    {
        if (_slots.empty())
            return nullptr;
        Slot& slot = findSlot(key);
        return slot.key == key ? &slot.value : nullptr;
    }

    /// The value of `key`, which is made if there is none.
    Value& touch(uint64_t key)
    {
        if (2 * (_size + 1) > _slots.size())
            grow();
        Slot& slot = findSlot(key);
        if (slot.key != key)
        {
            slot = Slot{ key, Value() };
            ++_size;
        }
        return slot.value;
    }

    size_t size() const { return _size; }

    void clear()
    {
        _slots.clear();
        _size = 0;
    }

private:
    static constexpr uint64_t _unused = ~uint64_t(0);

    struct Slot
    {
        uint64_t key;
        Value value;
    };

    Slot& findSlot(uint64_t key)
    {
        const size_t mask = _slots.size() - 1;
        // Multiplicative hashing (Knuth, 1973) by 2^64 over the golden ratio; the low bits are little mixed.
        size_t place = (key * 0x9E3779B97F4A7C15u >> 20) & mask;
        while (_slots[place].key != key && _slots[place].key != _unused)
            place = (place + 1) & mask;
        return _slots[place];
    }

    void grow()
    {
        PODArray<Slot> former;
        former.swap(_slots);
        _slots.resize(former.empty() ? 64 : 2 * former.size(), Slot{ _unused, Value() });
        for (const Slot& slot : former)
            if (slot.key != _unused)
                findSlot(slot.key) = slot;
    }

    PODArray<Slot> _slots;
    size_t _size = 0;
};

} // namespace mrv::internal
