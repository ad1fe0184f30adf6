// mrvCore/system/containers/mrvDeque.h
// Sequence that grows and shrinks at both ends, in blocks of 64 elements.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

namespace internal {

/// Random-access iterator of a deque: a place, valid as long as the deque is not assigned or destroyed; an
/// insertion or removal at the front moves it on by one element.
template <class Deque, class T>
class DequeIter
{
public:
    DequeIter() = default;
    DequeIter(Deque* deque, size_t index) : _deque(deque), _index(index) {}

    T& operator*() const { return (*_deque)[_index]; }
    T* operator->() const { return &(*_deque)[_index]; }
    DequeIter& operator++()
    {
        ++_index;
        return *this;
    }
    DequeIter& operator--()
    {
        --_index;
        return *this;
    }
    DequeIter operator++(int) { return { _deque, _index++ }; }
    DequeIter operator--(int) { return { _deque, _index-- }; }
    DequeIter operator+(ptrdiff_t distance) const
    {
        return { _deque, _index + static_cast<size_t>(distance) };
    }
    DequeIter operator-(ptrdiff_t distance) const
    {
        return { _deque, _index - static_cast<size_t>(distance) };
    }
    ptrdiff_t operator-(const DequeIter& other) const
    {
        return static_cast<ptrdiff_t>(_index) - static_cast<ptrdiff_t>(other._index);
    }
    bool operator==(const DequeIter& other) const { return _index == other._index; }
    bool operator!=(const DequeIter& other) const { return _index != other._index; }
    bool operator<(const DequeIter& other) const { return _index < other._index; }

private:
    Deque* _deque = nullptr;
    size_t _index = 0;
};

} // namespace internal

/// Sequence with fast insertion and removal at both ends.
///
/// Elements lie in blocks of 64, which a map of slots points to; element i is at position
/// `_headBlockFirstElementIndex + i` counted from the block of slot `_headBlockIndex`. Elements never move.
/// Emptied blocks wait for reuse: memory is taken only at a new high-water mark, and given back only by the
/// destructor. A slot outside the elements is null, except the head slot of a deque emptied inside a block.
/// T is copyable and has an alignment of at most 16.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class T>
class MrvDeque
{
public:
    using value_type = T;
    using iterator = internal::DequeIter<MrvDeque, T>;
    using const_iterator = internal::DequeIter<const MrvDeque, const T>;

    MrvDeque() = default;
    explicit MrvDeque(MemAllocStatId id) : _memAllocStatId(id), _blockAdresses(id), _recycledBlocks(id) {}
    MrvDeque(const MrvDeque& other) : MrvDeque(other._memAllocStatId) { append(other); }
    MrvDeque(MrvDeque&& other) noexcept { swap(other); }
    ~MrvDeque()
    {
        clear();
        for (T* const block : _recycledBlocks)
            internal::freeBlock(block);
    }

    MrvDeque& operator=(const MrvDeque& other)
    {
        if (this == &other)
            return *this;
        clear();
        _memAllocStatId = other._memAllocStatId;
        append(other);
        return *this;
    }
    MrvDeque& operator=(MrvDeque&& other) noexcept
    {
        MrvDeque taken(std::move(other));
        swap(taken);
        return *this;
    }
    void swap(MrvDeque& other) noexcept;

    bool empty() const { return _size == 0; }
    size_t size() const { return _size; }

    T& operator[](size_t index) { return *address(index); }
    const T& operator[](size_t index) const { return *address(index); }
    T& at(size_t index) { return *address(index); }
    const T& at(size_t index) const { return *address(index); }
    T& front() { return *address(0); }
    const T& front() const { return *address(0); }
    T& back() { return *address(_size - 1); }
    const T& back() const { return *address(_size - 1); }

    iterator begin() { return { this, 0 }; }
    const_iterator begin() const { return { this, 0 }; }
    iterator end() { return { this, _size }; }
    const_iterator end() const { return { this, _size }; }

    void push_back(const T& value) { addValueAfter(value); }
    void push_front(const T& value) { addValueBefore(value); }
    void pop_back() { removeValueAfter(); }
    void pop_front() { removeValueBefore(); }

    /// Adds copies of `value` or removes elements at the end.
    void resize(size_t size, const T& value = T());
    /// Destroys the elements and keeps the blocks for reuse.
    void clear();

private:
    static constexpr size_t _blockSize = 64;
    static constexpr size_t _minimumMapSize = 8;
    /// Where an empty deque begins: the middle of the minimum map.
    static constexpr size_t _emptyHeadBlockIndex = _minimumMapSize / 2;

    T* address(size_t index) const
    {
        MRV_CONTAINER_CHECK(index < _size);
        const size_t position = _headBlockFirstElementIndex + index;
        return _blockAdresses[_headBlockIndex + position / _blockSize] + position % _blockSize;
    }

    void addValueAfter(const T& value);
    void addValueBefore(const T& value);
    void removeValueAfter();
    void removeValueBefore();

    void append(const MrvDeque& other)
    {
        for (const T& value : other)
            push_back(value);
    }
    /// Frees at least one slot behind or before the used ones.
    void makeRoomAfter();
    void makeRoomBefore();
    /// Moves the `used` slots at the head; what they leave is null.
    void moveSlots(size_t used, size_t newHeadBlockIndex);
    /// The block of a slot, which gets one where it has none.
    T* takeBlock(size_t slot);
    void recycleBlock(size_t slot);

    MemAllocStatId _memAllocStatId = MemoryStatIds::MaravoShared;
    PODArray<T*> _blockAdresses; // empty until the first element comes
    PODArray<T*> _recycledBlocks;
    size_t _size = 0;
    size_t _headBlockIndex = _emptyHeadBlockIndex;
    size_t _headBlockFirstElementIndex = 0;
};

template <class T>
void MrvDeque<T>::swap(MrvDeque& other) noexcept
{
    std::swap(_memAllocStatId, other._memAllocStatId);
    _blockAdresses.swap(other._blockAdresses);
    _recycledBlocks.swap(other._recycledBlocks);
    std::swap(_size, other._size);
    std::swap(_headBlockIndex, other._headBlockIndex);
    std::swap(_headBlockFirstElementIndex, other._headBlockFirstElementIndex);
}

template <class T>
void MrvDeque<T>::resize(size_t size, const T& value)
{
    while (_size > size)
        pop_back();
    while (_size < size)
        push_back(value);
}

template <class T>
void MrvDeque<T>::clear()
{
    for (T& value : *this)
        value.~T();
    for (size_t slot = 0; slot < _blockAdresses.size(); ++slot)
        if (_blockAdresses[slot] != nullptr)
            recycleBlock(slot);
    _size = 0;
    _headBlockIndex = _emptyHeadBlockIndex;
    _headBlockFirstElementIndex = 0;
}

template <class T>
void MrvDeque<T>::addValueAfter(const T& value)
{
    const size_t position = _headBlockFirstElementIndex + _size;
    if (_headBlockIndex + position / _blockSize >= _blockAdresses.size())
        makeRoomAfter();
    T* const block = takeBlock(_headBlockIndex + position / _blockSize);
    new (static_cast<void*>(block + position % _blockSize)) T(value);
    ++_size;
}

template <class T>
void MrvDeque<T>::addValueBefore(const T& value)
{
    if (_headBlockFirstElementIndex == 0)
    {
        if (_headBlockIndex == 0 || _blockAdresses.empty())
            makeRoomBefore();
        --_headBlockIndex;
        _headBlockFirstElementIndex = _blockSize;
    }
    --_headBlockFirstElementIndex;
    new (static_cast<void*>(takeBlock(_headBlockIndex) + _headBlockFirstElementIndex)) T(value);
    ++_size;
}

template <class T>
void MrvDeque<T>::removeValueAfter()
{
    back().~T();
    --_size;
    const size_t position = _headBlockFirstElementIndex + _size;
    if (position % _blockSize != 0)
        return;
    recycleBlock(_headBlockIndex + position / _blockSize);
    if (_size == 0)
        _headBlockIndex = _emptyHeadBlockIndex;
}

template <class T>
void MrvDeque<T>::removeValueBefore()
{
    front().~T();
    --_size;
    ++_headBlockFirstElementIndex;
    if (_headBlockFirstElementIndex != _blockSize)
        return;
    recycleBlock(_headBlockIndex);
    _headBlockFirstElementIndex = 0;
    _headBlockIndex = _size == 0 ? _emptyHeadBlockIndex : _headBlockIndex + 1;
}

template <class T>
void MrvDeque<T>::makeRoomAfter()
{
    const size_t slots = _blockAdresses.size();
    if (slots == 0)
        _blockAdresses.resize(_minimumMapSize, nullptr);
    else if (_headBlockIndex != 0)
        moveSlots(slots - _headBlockIndex, _headBlockIndex / 2);
    else
        _blockAdresses.resize(2 * slots, nullptr);
}

template <class T>
void MrvDeque<T>::makeRoomBefore()
{
    const size_t slots = _blockAdresses.size();
    if (slots == 0)
    {
        _blockAdresses.resize(_minimumMapSize, nullptr);
        return;
    }
    const size_t used = (_size + _blockSize - 1) / _blockSize;
    const size_t free = slots - used;
    if (free == 0)
        _blockAdresses.resize(2 * slots, nullptr);
    moveSlots(used, free == 0 ? slots : free - free / 2);
}

template <class T>
void MrvDeque<T>::moveSlots(size_t used, size_t newHeadBlockIndex)
{
    PODArray<T*>& map = _blockAdresses;
    std::memmove(map.begin() + newHeadBlockIndex, map.begin() + _headBlockIndex, used * sizeof(T*));
    for (size_t slot = _headBlockIndex; slot < _headBlockIndex + used; ++slot)
        if (slot < newHeadBlockIndex || slot >= newHeadBlockIndex + used)
            map[slot] = nullptr;
    _headBlockIndex = newHeadBlockIndex;
}

template <class T>
T* MrvDeque<T>::takeBlock(size_t slot)
{
    static_assert(alignof(T) <= alignof(std::max_align_t), "malloc aligns to 16 bytes");
    T*& block = _blockAdresses[slot];
    if (block == nullptr)
    {
        if (_recycledBlocks.any())
        {
            block = _recycledBlocks.back();
            _recycledBlocks.pop_back();
        }
        else
            block = static_cast<T*>(internal::allocateBlock(_blockSize, sizeof(T)));
    }
    return block;
}

template <class T>
void MrvDeque<T>::recycleBlock(size_t slot)
{
    _recycledBlocks.push_back(_blockAdresses[slot]);
    _blockAdresses[slot] = nullptr;
}

} // namespace mrv
