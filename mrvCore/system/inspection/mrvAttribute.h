// mrvCore/system/inspection/mrvAttribute.h
// An attribute that is a data member.
#pragma once

#include "mrvCore/system/inspection/mrvAttributeLeaf.h"

namespace mrv {

namespace internal {

template <typename T, typename Owner>
struct MemberReach
{
    static constexpr bool isDirect = true;

    T get(const Owner& owner) const { return owner.*_attribute; }
    void set(Owner& owner, T value) const { owner.*_attribute = value; }
    const T& touch(const Owner& owner) const { return owner.*_attribute; }
    T& touch(Owner& owner) const { return owner.*_attribute; }

    T Owner::*_attribute;
};

template <typename T, typename Owner>
using MemberAttribute = ReachedAttribute<MemberReach<T, Owner>, T, Owner>;

} // namespace internal

/// The member itself is written and read, in both passes; a pointer is stored in both passes too.
template <typename T, typename Owner>
class Attribute
    : public internal::StreamedAttribute<Attribute<T, Owner>, internal::MemberAttribute<T, Owner>, Owner>
{
    using Base = internal::StreamedAttribute<Attribute<T, Owner>, internal::MemberAttribute<T, Owner>, Owner>;

public:
    Attribute(const char* name, const RTTI& owner, T Owner::*attribute)
        : Base(name, owner, internal::MemberReach<T, Owner>{ attribute })
    {}

    const RTTI* getRTTI() const override { return this->findRTTI(internal::attributeClass); }
};

} // namespace mrv
