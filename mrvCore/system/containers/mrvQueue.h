// mrvCore/system/containers/mrvQueue.h
// First in, first out.
#pragma once

#include "mrvCore/system/containers/mrvDeque.h"

namespace mrv {

/// Queue on top of a container that offers push_back() and pop_front().
/// front(), back() and pop() need an element. Threads: as the container.
template <class T, class Container = MrvDeque<T>>
class MrvQueue
{
public:
    MrvQueue() = default;
    explicit MrvQueue(MemAllocStatId id) : _memAllocStatId(id), _container(id) {}

    void push(const T& value) { _container.push_back(value); }
    void pop() { _container.pop_front(); }
    void push_back(const T& value) { push(value); }
    void pop_front() { pop(); }

    T& front() { return _container.front(); }
    const T& front() const { return _container.front(); }
    T& back() { return _container.back(); }
    const T& back() const { return _container.back(); }

    bool empty() const { return _container.empty(); }
    size_t size() const { return _container.size(); }
    void clear() { _container.clear(); }

private:
    MemAllocStatId _memAllocStatId = MemoryStatIds::MaravoShared;
    Container _container;
};

} // namespace mrv
