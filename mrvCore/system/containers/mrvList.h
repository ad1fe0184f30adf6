// mrvCore/system/containers/mrvList.h
// Doubly linked list with pooled nodes.
#pragma once

#include "mrvCore/system/containers/mrvRecycler.h"

namespace mrv {

namespace internal {

/// Node of a list. The list constructs and destroys `_data`; a sentinel has none.
template <class T>
struct ListNode
{
    ListNode() {}
    ~ListNode() {}

    union
    {
        T _data;
    };
    ListNode* _prev = nullptr;
    ListNode* _next = nullptr;
};

/// Iterator of a list, valid until its element is erased; `T` is const for a list that may not be changed
/// through it.
template <class Node, class T>
class ListIter
{
public:
    ListIter() = default;
    explicit ListIter(Node* node) : _node(node) {}
    template <class Other, class = std::enable_if_t<std::is_same_v<const Other, T>>>
    ListIter(const ListIter<Node, Other>& other) : _node(other.getNode())
    {}

    T& operator*() const { return _node->_data; }
    T* operator->() const { return &_node->_data; }
    ListIter& operator++()
    {
        _node = _node->_next;
        return *this;
    }
    ListIter& operator--()
    {
        _node = _node->_prev;
        return *this;
    }
    ListIter operator++(int)
    {
        const ListIter former = *this;
        ++*this;
        return former;
    }
    ListIter operator--(int)
    {
        const ListIter former = *this;
        --*this;
        return former;
    }
    bool operator==(const ListIter& other) const { return _node == other._node; }
    bool operator!=(const ListIter& other) const { return _node != other._node; }

    Node* getNode() const { return _node; }

private:
    Node* _node = nullptr;
};

} // namespace internal

/// Doubly linked list. Its nodes come from a recycler of its own and wait there when they are erased;
/// memory is given back only by the destructor.
///
/// Elements never move. T is copyable and has an alignment of at most 16.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
template <class T>
class MrvList
{
public:
    using value_type = T;
    using MrvListNode = internal::ListNode<T>;
    using iterator = internal::ListIter<MrvListNode, T>;
    using const_iterator = internal::ListIter<MrvListNode, const T>;

    MrvList() : MrvList(MemoryStatIds::MaravoShared) {}
    explicit MrvList(MemAllocStatId id);
    explicit MrvList(size_t size, const T& value = T()) : MrvList() { resize(size, value); }
    MrvList(const MrvList& other) : MrvList(other._memAllocStatId) { append(other); }
    ~MrvList() { clear(); }

    MrvList& operator=(const MrvList& other)
    {
        if (this == &other)
            return *this;
        clear();
        _memAllocStatId = other._memAllocStatId;
        append(other);
        return *this;
    }
    void swap(MrvList& other) noexcept;

    bool empty() const { return _size == 0; }
    size_t size() const { return _size; }

    T& front() { return *begin(); }
    const T& front() const { return *begin(); }
    T& back() { return *--end(); }
    const T& back() const { return *--end(); }

    iterator begin() { return iterator(_head->_next); }
    const_iterator begin() const { return const_iterator(_head->_next); }
    iterator end() { return iterator(_tail); }
    const_iterator end() const { return const_iterator(_tail); }

    void push_back(const T& value) { insert(end(), value); }
    void push_front(const T& value) { insert(begin(), value); }
    void pop_back() { erase(--end()); }
    void pop_front() { erase(begin()); }

    /// Inserts before `position`; returns the new element.
    iterator insert(const_iterator position, const T& value);
    /// Returns the element behind the erased one.
    iterator erase(const_iterator position);
    iterator erase(const_iterator first, const_iterator last);
    /// Erases all elements equal to `value`, which may be one of them.
    void remove(const T& value);
    /// Adds copies of `value` or removes elements at the end.
    void resize(size_t size, const T& value = T());
    void clear() { erase(begin(), end()); }

    bool operator==(const MrvList& other) const;
    bool operator!=(const MrvList& other) const { return !(*this == other); }

private:
    static constexpr size_t _nodesPerBlock = 8;

    MrvListNode* newNode() { return new (static_cast<void*>(_nodeRecycler.obtain())) MrvListNode; }
    void append(const MrvList& other)
    {
        for (const T& value : other)
            push_back(value);
    }

    MemAllocStatId _memAllocStatId;
    MrvListNode* _head = nullptr; // sentinels: the elements lie between them
    MrvListNode* _tail = nullptr;
    size_t _size = 0;
    RecyclerT<MrvListNode, false> _nodeRecycler;
};

template <class T>
MrvList<T>::MrvList(MemAllocStatId id) : _memAllocStatId(id)
                                       , _nodeRecycler(_nodesPerBlock, id)
{
    _head = newNode();
    _tail = newNode();
    _head->_next = _tail;
    _tail->_prev = _head;
}

template <class T>
void MrvList<T>::swap(MrvList& other) noexcept
{
    std::swap(_memAllocStatId, other._memAllocStatId);
    std::swap(_head, other._head);
    std::swap(_tail, other._tail);
    std::swap(_size, other._size);
    _nodeRecycler.swap(other._nodeRecycler);
}

template <class T>
typename MrvList<T>::iterator MrvList<T>::insert(const_iterator position, const T& value)
{
    MrvListNode* const next = position.getNode();
    MrvListNode* const node = newNode();
    new (static_cast<void*>(&node->_data)) T(value);
    node->_prev = next->_prev;
    node->_next = next;
    node->_prev->_next = node;
    next->_prev = node;
    ++_size;
    return iterator(node);
}

template <class T>
typename MrvList<T>::iterator MrvList<T>::erase(const_iterator position)
{
    MRV_CONTAINER_CHECK(_size != 0 && position != end());
    MrvListNode* const node = position.getNode();
    MrvListNode* const next = node->_next;
    node->_prev->_next = next;
    next->_prev = node->_prev;
    --_size;
    node->_data.~T();
    _nodeRecycler.recycle(node);
    return iterator(next);
}

template <class T>
typename MrvList<T>::iterator MrvList<T>::erase(const_iterator first, const_iterator last)
{
    while (first != last)
        first = erase(first);
    return iterator(last.getNode());
}

template <class T>
void MrvList<T>::remove(const T& value)
{
    const T copy(value);
    for (iterator it = begin(); it != end();)
        it = *it == copy ? erase(it) : ++it;
}

template <class T>
void MrvList<T>::resize(size_t size, const T& value)
{
    while (_size > size)
        pop_back();
    while (_size < size)
        push_back(value);
}

template <class T>
bool MrvList<T>::operator==(const MrvList& other) const
{
    if (_size != other._size)
        return false;
    const_iterator a = begin();
    for (const_iterator b = other.begin(); a != end(); ++a, ++b)
        if (!(*a == *b))
            return false;
    return true;
}

} // namespace mrv
