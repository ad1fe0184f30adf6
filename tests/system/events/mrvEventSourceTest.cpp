// tests/system/events/mrvEventSourceTest.cpp
#include "mrvCore/system/events/mrvEventSource.h"
#include "mrvCore/system/events/mrvEvent.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace mrv {
namespace {

struct Listener;
using Source = EventSource<Listener, std::string>;

/// Writes its name to a common record, then does what the test wants done.
struct Listener
{
    Listener(char name, std::string& record) : _name(name), _record(record) {}
    void onEvent(const std::string& event)
    {
        _record += _name + event;
        if (_action)
            _action();
    }

    char _name;
    std::string& _record;
    std::function<void()> _action;
};

class EventSourceTest : public testing::Test
{
protected:
    EventSourceTest()
    {
        _source.addListener(_a);
        _source.addListener(_b);
        _source.addListener(_c);
    }
    std::string publish(const std::string& event)
    {
        _record.clear();
        _source.publishEvent(event);
        return _record;
    }

    std::string _record;
    Listener _a{ 'a', _record };
    Listener _b{ 'b', _record };
    Listener _c{ 'c', _record };
    Source _source{ &Listener::onEvent };
};

TEST_F(EventSourceTest, listenersAreCalledInOrderOfRegistration)
{
    EXPECT_EQ(publish("1"), "a1b1c1");
    _source.removeListener(_a);
    _source.removeListener(_a);
    _source.addListener(_a);
    EXPECT_EQ(publish("2"), "b2c2a2");
    EXPECT_EQ(_source.getListenersCount(), 3u);

    PODArray<Listener*> others;
    others.push_back(&_c);
    _source.setListeners(others);
    EXPECT_EQ(publish("3"), "c3");
    EXPECT_EQ(_source.getListeners(), others);
}

TEST_F(EventSourceTest, listenersMayComeAndGoWhileAnEventIsPublished)
{
    Listener added('d', _record);
    _b._action = [&] {
        _source.removeListener(_b);
        _source.removeListener(_c); // has not been called yet, and may be gone by now
        for (int i = 0; i < 100; ++i)
            _source.addListener(added); // the list moves to another block
    };
    EXPECT_EQ(publish("1"), "a1b1");
    _source.setListeners(PODArray<Listener*>(1, &added));
    EXPECT_EQ(publish("2"), "d2");
}

TEST_F(EventSourceTest, aListenerMayPublishAgain)
{
    _b._action = [&] {
        _b._action = nullptr;
        _source.publishEvent("2");
    };
    EXPECT_EQ(publish("1"), "a1b1a2b2c2c1");
}

TEST_F(EventSourceTest, anEventKnowsItsSource)
{
    const Event<Source> event(_source);
    EXPECT_EQ(event.getSource(), &_source);
}

} // namespace
} // namespace mrv
