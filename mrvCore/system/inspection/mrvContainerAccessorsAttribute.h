// mrvCore/system/inspection/mrvContainerAccessorsAttribute.h
// An attribute that is one element of a small container in its owner.
#pragma once

#include "mrvCore/system/inspection/mrvAttributeLeaf.h"

namespace mrv {

namespace internal {

template <typename T, typename Owner>
struct ContainerAccessorsReach
{
    static constexpr bool isDirect = false;
    static constexpr bool mayTake = false;

    T get(const Owner& owner) const { return (owner.*_getter)(_index); }
    void set(Owner& owner, T value) const { (owner.*_setter)(_index, value); }

    T (Owner::*_getter)(unsigned int) const;
    void (Owner::*_setter)(unsigned int, T);
    unsigned int _index;
};

template <typename T, typename Owner>
using ContainerAccessorsReachedAttribute = ReachedAttribute<ContainerAccessorsReach<T, Owner>, T, Owner>;

} // namespace internal

/// As AccessorsAttribute, with the element's index as the first argument of getter and setter: several
/// attributes on the same accessors reach several elements under names of their own.
template <typename T, typename Owner>
class ContainerAccessorsAttribute
    : public internal::StreamedAttribute<ContainerAccessorsAttribute<T, Owner>,
                                         internal::ContainerAccessorsReachedAttribute<T, Owner>, Owner>
{
    using Base = internal::StreamedAttribute<ContainerAccessorsAttribute<T, Owner>,
                                             internal::ContainerAccessorsReachedAttribute<T, Owner>, Owner>;

public:
    ContainerAccessorsAttribute(const char* name, const RTTI& owner, T (Owner::*getter)(unsigned int) const,
                                void (Owner::*setter)(unsigned int, T), unsigned int index)
        : Base(name, owner, internal::ContainerAccessorsReach<T, Owner>{ getter, setter, index })
    {}

    const RTTI* getRTTI() const override
    {
        return this->findRTTI(internal::containerAccessorsAttributeClass);
    }

    /// Forwards to setConstReference, under the name that callers of all forms use.
    void setReference(Owner& owner, T value) const { this->setConstReference(owner, value); }
};

} // namespace mrv
