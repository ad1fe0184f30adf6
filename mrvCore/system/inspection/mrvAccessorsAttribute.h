// mrvCore/system/inspection/mrvAccessorsAttribute.h
// An attribute that is reached through a getter and a setter.
#pragma once

#include "mrvCore/system/inspection/mrvAttributeLeaf.h"

namespace mrv {

namespace internal {

template <typename T, typename Owner>
struct AccessorsReach
{
    static constexpr bool isDirect = false;

    T get(const Owner& owner) const { return (owner.*_getter)(); }
    void set(Owner& owner, T value) const { (owner.*_setter)(value); }

    T (Owner::*_getter)() const;
    void (Owner::*_setter)(T);
};

/// Behind a reference there may be a taker beside the setter, which leaves in the value what may only be
/// destroyed: the value that was read is not needed any more.
template <typename T, typename Owner>
struct AccessorsReach<const T&, Owner>
{
    static constexpr bool isDirect = false;
    static constexpr bool mayTake = true;

    const T& get(const Owner& owner) const { return (owner.*_getter)(); }
    void set(Owner& owner, const T& value) const { (owner.*_setter)(value); }
    bool hasTaker() const { return _taker != nullptr; }
    void take(Owner& owner, T& value) const { (owner.*_taker)(value); }

    const T& (Owner::*_getter)() const;
    void (Owner::*_setter)(const T&);
    void (Owner::*_taker)(T&) = nullptr;
};

template <typename T, typename Owner>
using AccessorsReachedAttribute = ReachedAttribute<AccessorsReach<T, Owner>, T, Owner>;

} // namespace internal

/// The setter, or the taker where there is one, is called once per read, in the second pass, when the whole
/// graph is known.
template <typename T, typename Owner>
class AccessorsAttribute
    : public internal::StreamedAttribute<AccessorsAttribute<T, Owner>,
                                         internal::AccessorsReachedAttribute<T, Owner>, Owner>
{
    using Base = internal::StreamedAttribute<AccessorsAttribute<T, Owner>,
                                             internal::AccessorsReachedAttribute<T, Owner>, Owner>;

public:
    AccessorsAttribute(const char* name, const RTTI& owner, T (Owner::*getter)() const,
                       void (Owner::*setter)(T))
        : Base(name, owner, internal::AccessorsReach<T, Owner>{ getter, setter })
    {}
    /// For a `const Value&`.
    AccessorsAttribute(const char* name, const RTTI& owner, T (Owner::*getter)() const,
                       void (Owner::*setter)(T), void (Owner::*taker)(std::decay_t<T>&))
        : Base(name, owner, internal::AccessorsReach<T, Owner>{ getter, setter, taker })
    {}

    const RTTI* getRTTI() const override { return this->findRTTI(internal::accessorsAttributeClass); }
};

} // namespace mrv
