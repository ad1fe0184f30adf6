// mrvCore/system/containers/mrvArrayCore.h
// What PODArray and Array share: fields, growth and every operation that both offer.
#pragma once

#include "mrvCore/system/memory/mrvMemoryBlock.h"
#include "mrvCore/system/memory/mrvMemoryStatIds.h"

#include <type_traits>
#include <utility>

namespace mrv::internal {

/// Growable array in one `malloc` block.
///
/// `Elements` says how elements live in raw memory: as bytes (PODArray) or as objects (Array).
/// Growth: when room is missing the capacity becomes the greater of `2 * capacity + 8` and what is
/// needed; it never falls by itself. An empty array holds no block until the first growth.
/// Values and ranges given to an operation may lie in the array itself.
/// Access is unchecked (debug builds check); iterators are plain pointers, valid until the next growth.
template <class T, class Elements>
class ArrayCore
{
public:
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;

    ArrayCore() noexcept = default;
    explicit ArrayCore(MemAllocStatId id) noexcept : _memAllocStatId(id) {}

    /// Exactly `count` elements: constructed in Array, left as they are in PODArray.
    explicit ArrayCore(size_t count)
    {
        set_capacity(count);
        resize(count);
    }
    ArrayCore(size_t count, const T& value)
    {
        set_capacity(count);
        resize(count, value);
    }

    /// A copy has the id of its source and no spare room.
    ArrayCore(const ArrayCore& other) : ArrayCore(other, other._memAllocStatId) {}
    ArrayCore(const ArrayCore& other, MemAllocStatId id) : _memAllocStatId(id)
    {
        set_capacity(other._size);
        Elements::copy(_data, other._data, other._size);
        _size = other._size;
    }
    /// Takes the block over; the source is empty afterwards.
    ArrayCore(ArrayCore&& other) noexcept { swap(other); }
    ~ArrayCore()
    {
        clear();
        Elements::free(_data);
    }

    /// Keeps its block where the source fits; otherwise takes one of exactly the source's size.
    ArrayCore& operator=(const ArrayCore& other);
    ArrayCore& operator=(ArrayCore&& other) noexcept
    {
        ArrayCore taken(std::move(other));
        swap(taken);
        return *this;
    }
    void swap(ArrayCore& other) noexcept;

    T& operator[](size_t index)
    {
        MRV_CONTAINER_CHECK(index < _size);
        return _data[index];
    }
    const T& operator[](size_t index) const
    {
        MRV_CONTAINER_CHECK(index < _size);
        return _data[index];
    }
    T& at(size_t index) { return (*this)[index]; }
    const T& at(size_t index) const { return (*this)[index]; }
    T& front() { return (*this)[0]; }
    const T& front() const { return (*this)[0]; }
    T& back() { return (*this)[_size - 1]; }
    const T& back() const { return (*this)[_size - 1]; }

    T* begin() { return _data; }
    const T* begin() const { return _data; }
    T* end() { return _data + _size; }
    const T* end() const { return _data + _size; }

    size_t size() const { return _size; }
    int sizeInt() const { return static_cast<int>(_size); }
    bool any() const { return _size != 0; }
    bool empty() const { return _size == 0; }
    size_t capacity() const { return _capacity; }

    /// Moves the elements to a block of exactly `capacity` elements; those beyond it are cut. 0 frees the
    /// block.
    void set_capacity(size_t capacity);
    /// Makes room for `needed` elements in all, by the growth rule.
    void grow(size_t needed)
    {
        if (needed > _capacity)
            set_capacity(grownCapacity(_capacity, needed));
    }
    /// The same as grow(), under its usual name.
    void reserve(size_t needed) { grow(needed); }
    void trim() { set_capacity(_size); }

    void resize(size_t size);
    void resize(size_t size, const T& value);
    /// Keeps the block.
    void clear()
    {
        Elements::destroy(_data, _size);
        _size = 0;
    }
    /// The first `count` elements of `source`, which may lie in this array.
    template <class U, class = std::enable_if_t<std::is_same_v<U, T>>>
    void assign(size_t count, const U* source);
    void assign(size_t count, const T& value);

    void push_back(const T& value)
    {
        if (_size == _capacity)
            return pushBackGrowing(value);
        Elements::copyOne(_data + _size, value);
        ++_size;
    }
    void pop_back()
    {
        MRV_CONTAINER_CHECK(_size != 0);
        --_size;
        Elements::destroy(_data + _size, 1);
    }
    /// One more element at the end, as resize() makes it.
    T& addOne()
    {
        if (_size == _capacity)
            growForOne();
        Elements::construct(_data + _size, 1);
        return _data[_size++];
    }

    /// Each insert returns the first inserted element, or its place where nothing was inserted.
    T* insert(const T* position, const T& value) { return insert(position, 1, value); }
    T* insert(const T* position, size_t count, const T& value);
    /// A range of T, or of another type whose elements convert to T.
    template <class U, class = std::enable_if_t<std::is_convertible_v<const U&, T>>>
    T* insert(const T* position, const U* first, const U* last);

    /// Each erase keeps the order and returns the element behind the erased ones.
    T* erase(const T* position) { return erase(position, position + 1); }
    T* erase(const T* first, const T* last);
    void eraseAt(size_t index) { erase(_data + index); }
    /// Erases the first element equal to `value`; false if there is none.
    bool eraseIfExists(const T& value);

    /// The first element equal to `value`, or end().
    T* find(const T& value) { return _data + indexOf(value); }
    const T* find(const T& value) const { return _data + indexOf(value); }

    bool operator==(const ArrayCore& other) const;
    bool operator!=(const ArrayCore& other) const { return !(*this == other); }

    MemAllocStatId getMemoryStatId() const { return _memAllocStatId; }
    void setMemoryStatId(MemAllocStatId id) { _memAllocStatId = id; }

protected:
    /// Takes over a full block of `size` elements.
    ArrayCore(T* block, size_t size) noexcept : _size(size), _capacity(size), _data(block) {}

    /// Makes `count` raw places at `index`; the elements behind move up and the size grows.
    T* openGap(size_t index, size_t count)
    {
        MRV_CONTAINER_CHECK(index <= _size);
        grow(saturatedSum(_size, count));
        if (count != 0)
            Elements::moveUp(_data + index, _size - index, count);
        _size += count;
        return _data + index;
    }

private:
    bool owns(const void* address) const { return address >= _data && address < _data + _size; }
    size_t indexOf(const T& value) const
    {
        size_t index = 0;
        while (index < _size && !(_data[index] == value))
            ++index;
        return index;
    }
    [[gnu::noinline]] void growForOne() { set_capacity(2 * _capacity + 8); }
    [[gnu::noinline]] void pushBackGrowing(const T& value)
    {
        const T copy(value);
        growForOne();
        push_back(copy);
    }

    size_t _size = 0;
    size_t _capacity = 0;
    T* _data = nullptr;
    MemAllocStatId _memAllocStatId = Elements::defaultId;
};

template <class T, class Elements>
ArrayCore<T, Elements>& ArrayCore<T, Elements>::operator=(const ArrayCore& other)
{
    if (this == &other)
        return *this;
    if (other._size > _capacity)
    {
        ArrayCore copy(other);
        swap(copy);
        return *this;
    }
    const size_t common = _size < other._size ? _size : other._size;
    Elements::assign(_data, other._data, common);
    Elements::destroy(_data + common, _size - common);
    Elements::copy(_data + common, other._data + common, other._size - common);
    _size = other._size;
    _memAllocStatId = other._memAllocStatId;
    return *this;
}

template <class T, class Elements>
void ArrayCore<T, Elements>::swap(ArrayCore& other) noexcept
{
    std::swap(_size, other._size);
    std::swap(_capacity, other._capacity);
    std::swap(_data, other._data);
    std::swap(_memAllocStatId, other._memAllocStatId);
}

template <class T, class Elements>
void ArrayCore<T, Elements>::set_capacity(size_t capacity)
{
    static_assert(alignof(T) <= alignof(std::max_align_t), "malloc aligns to 16 bytes");
    if (capacity == _capacity)
        return;
    if (_size > capacity)
    {
        Elements::destroy(_data + capacity, _size - capacity);
        _size = capacity;
    }
    _data = Elements::moveToBlock(_data, _size, capacity);
    _capacity = capacity;
}

template <class T, class Elements>
void ArrayCore<T, Elements>::resize(size_t size)
{
    grow(size);
    if (size > _size)
        Elements::construct(_data + _size, size - _size);
    else
        Elements::destroy(_data + size, _size - size);
    _size = size;
}

template <class T, class Elements>
void ArrayCore<T, Elements>::resize(size_t size, const T& value)
{
    if (size > _size)
        insert(end(), size - _size, value);
    else
        resize(size);
}

template <class T, class Elements>
template <class U, class>
void ArrayCore<T, Elements>::assign(size_t count, const U* source)
{
    ArrayCore former(_memAllocStatId);
    if (owns(source))
        swap(former); // what is read stays until the end of this function
    clear();
    insert(end(), source, source + count);
}

template <class T, class Elements>
void ArrayCore<T, Elements>::assign(size_t count, const T& value)
{
    const T copy(value);
    clear();
    insert(end(), count, copy);
}

template <class T, class Elements>
T* ArrayCore<T, Elements>::insert(const T* position, size_t count, const T& value)
{
    const size_t index = static_cast<size_t>(position - _data);
    if (owns(&value))
    {
        const T copy(value);
        Elements::fill(openGap(index, count), count, copy);
    }
    else
        Elements::fill(openGap(index, count), count, value);
    return _data + index;
}

template <class T, class Elements>
template <class U, class>
T* ArrayCore<T, Elements>::insert(const T* position, const U* first, const U* last)
{
    const size_t index = static_cast<size_t>(position - _data);
    const size_t count = static_cast<size_t>(last - first);
    if (owns(first))
    {
        ArrayCore copy;
        copy.insert(nullptr, first, last);
        Elements::copy(openGap(index, count), copy._data, count);
    }
    else
        Elements::copy(openGap(index, count), first, count);
    return _data + index;
}

template <class T, class Elements>
T* ArrayCore<T, Elements>::erase(const T* first, const T* last)
{
    MRV_CONTAINER_CHECK(first >= _data && first <= last && last <= end());
    T* const to = _data + (first - _data);
    const size_t count = static_cast<size_t>(last - first);
    if (count != 0)
        Elements::moveDown(to, count, static_cast<size_t>(end() - last));
    Elements::destroy(end() - count, count);
    _size -= count;
    return to;
}

template <class T, class Elements>
bool ArrayCore<T, Elements>::eraseIfExists(const T& value)
{
    const size_t index = indexOf(value);
    if (index == _size)
        return false;
    eraseAt(index);
    return true;
}

template <class T, class Elements>
bool ArrayCore<T, Elements>::operator==(const ArrayCore& other) const
{
    if (_size != other._size)
        return false;
    size_t index = 0;
    while (index < _size && _data[index] == other._data[index])
        ++index;
    return index == _size;
}

} // namespace mrv::internal
