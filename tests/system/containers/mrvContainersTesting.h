// tests/system/containers/mrvContainersTesting.h
// An element that watches its own life, for the tests of all containers.
#pragma once

#include <gtest/gtest.h>

namespace mrv {

/// An element that notices when it is moved as bytes, used before its construction or lost.
class Tracked
{
public:
    Tracked() : Tracked(0) {}
    Tracked(int value) : _value(value), _self(this) { ++alive; }
    Tracked(const Tracked& other) : Tracked(other.value()) { ++copies; }
    ~Tracked()
    {
        check();
        _self = nullptr;
        --alive;
    }
    Tracked& operator=(const Tracked& other)
    {
        check();
        _value = other.value();
        return *this;
    }
    bool operator==(const Tracked& other) const { return value() == other.value(); }
    bool operator<(const Tracked& other) const { return value() < other.value(); }
    int value() const
    {
        check();
        return _value;
    }

    static inline int alive = 0;
    static inline int copies = 0;

private:
    void check() const
    {
        const Tracked* const self = _self;
        EXPECT_EQ(self, this);
    }

    int _value;
    const Tracked* volatile _self; // the destructor's last write is not optimised away
};

} // namespace mrv
