// mrvCore/system/events/mrvEventSource.h
// Keeps listeners and hands events to them.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

/// Publishes events of one type to listeners of one class through one of their operations.
///
/// Listeners are borrowed: each is removed before it dies. A listener added twice is called twice.
/// Threads: nothing is protected; listeners are called on the publishing thread.
template <typename Listener, typename EventType>
class EventSource
{
public:
    using ProcessEventFunc = void (Listener::*)(const EventType&);

    explicit EventSource(ProcessEventFunc processEvent) : _processEvent(processEvent) {}
    EventSource(const EventSource&) = default;
    EventSource& operator=(const EventSource&) = default;
    virtual ~EventSource() = default;

    /// Registers a listener behind those that are there.
    void addListener(Listener& listener) { _listeners.push_back(&listener); }

    /// Removes the first registration of a listener; does nothing for one that is not registered.
    void removeListener(Listener& listener) { _listeners.eraseIfExists(&listener); }

    const PODArray<Listener*>& getListeners() const { return _listeners; }
    void setListeners(const PODArray<Listener*>& listeners) { _listeners = listeners; }
    size_t getListenersCount() const { return _listeners.size(); }

    /// Calls each listener in order of registration.
    ///
    /// A listener may add and remove listeners, itself included, and publish again. One removed before
    /// its turn is not called, so it may be gone by then; one added meanwhile hears the next event. The
    /// source itself must outlive the call.
    void publishEvent(const EventType& event)
    {
        const PODArray<Listener*> registered(_listeners);
        for (Listener* listener : registered)
        {
            if (_listeners.find(listener) != _listeners.end())
                (listener->*_processEvent)(event);
        }
    }

private:
    ProcessEventFunc _processEvent;
    PODArray<Listener*> _listeners;
};

} // namespace mrv
