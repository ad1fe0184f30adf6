// tests/system/containers/mrvContainersTesting.h
// An element that watches its own life, and what several container tests share.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace mrv {

/// A number that knows its address: copied as bytes, used raw or destroyed twice, it counts a fault.
class Counted
{
public:
    Counted() : Counted(0) {}
    Counted(int value) : _value(value) { ++alive; }
    Counted(const Counted& other) : Counted(other.getValue()) {}
    Counted& operator=(const Counted& other)
    {
        check();
        _value = other.getValue();
        return *this;
    }
    ~Counted()
    {
        check();
        _self = nullptr;
        --alive;
    }

    int getValue() const
    {
        check();
        return _value;
    }
    bool operator==(const Counted& other) const { return getValue() == other.getValue(); }
    bool operator<(const Counted& other) const { return getValue() < other.getValue(); }

    static inline long alive = 0;
    static inline long faults = 0;

private:
    void check() const { faults += _self != this; }

    const Counted* _self = this;
    int _value;
};

inline int valueOf(int element)
{
    return element;
}
inline int valueOf(const Counted& element)
{
    return element.getValue();
}

template <class Container>
std::vector<int> valuesOf(const Container& container)
{
    std::vector<int> values;
    for (const auto& element : container)
        values.push_back(valueOf(element));
    return values;
}

/// Every element that a test makes is destroyed at its end, once.
class CountedTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Counted::alive = 0;
        Counted::faults = 0;
    }
    void TearDown() override
    {
        EXPECT_EQ(Counted::alive, 0);
        EXPECT_EQ(Counted::faults, 0);
    }
};

/// Seeded numbers in [0, end); the same on every run.
class Dice
{
public:
    explicit Dice(unsigned seed) : _engine(seed) {}
    size_t operator()(size_t end) { return end == 0 ? 0 : _engine() % end; }

private:
    std::mt19937 _engine;
};

} // namespace mrv
