// mrvCore/system/inspection/mrvAbstractAttributeT.h
// An attribute whose type and owner are known: how its value is got and set.
#pragma once

#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvCompositeRTTIAccessor.h"

namespace mrv {

namespace internal {

/// Names and identities of an attribute class, which has one per form of its type.
struct AttributeClass
{
    const char* name;
    const char* seeds[4]; ///< of T, T*, const T* and const T&; null for a form that it does not have
};

extern MRV_CORE_API const AttributeClass abstractAttributeClass;
extern MRV_CORE_API const AttributeClass attributeClass;
extern MRV_CORE_API const AttributeClass accessorsAttributeClass;
extern MRV_CORE_API const AttributeClass containerAccessorsAttributeClass;

/// The record of an attribute class for one type and one owner, null if nobody registered it.
MRV_CORE_API RTTI* findAttributeClassRTTI(const AttributeClass& described,
                                          AbstractAttribute::AttributeType::Value form, const RTTI& type,
                                          const RTTI& owner);

/// The form of a type and the type without it.
template <typename T>
struct AttributeForm
{
    using Bare = T;
    static constexpr AbstractAttribute::AttributeType::Value value = AbstractAttribute::AttributeType::VALUE;
};

template <typename T>
struct AttributeForm<T*>
{
    using Bare = T;
    static constexpr AbstractAttribute::AttributeType::Value value =
        AbstractAttribute::AttributeType::POINTER;
};

template <typename T>
struct AttributeForm<const T*>
{
    using Bare = T;
    static constexpr AbstractAttribute::AttributeType::Value value =
        AbstractAttribute::AttributeType::CONST_POINTER;
};

template <typename T>
struct AttributeForm<const T&>
{
    using Bare = T;
    static constexpr AbstractAttribute::AttributeType::Value value =
        AbstractAttribute::AttributeType::CONST_REFERENCE;
};

/// What all forms of AbstractAttributeT share.
template <typename T, typename Owner>
class TypedAttribute : public AbstractAttribute
{
public:
    using ValueType = T;
    using Form = AttributeForm<T>;

    const RTTI& getAttributeRTTI() const override { return RTTIAccessor<T>::getClassRTTI(); }

    /// The record of the attribute's own class. Nothing registers such records: null, unless a host does.
    virtual const RTTI* getRTTI() const { return findRTTI(abstractAttributeClass); }

protected:
    TypedAttribute(const char* name, const RTTI& owner) : AbstractAttribute(name, owner)
    {
        _attributeType = Form::value;
    }

    static const RTTI* findRTTI(const AttributeClass& described)
    {
        _rtti = findAttributeClassRTTI(
            described, Form::value, RTTIAccessor<typename Form::Bare>::getClassRTTI(), Owner::getClassRTTI());
        return _rtti;
    }

    static RTTI* _rtti;
};

template <typename T, typename Owner>
RTTI* TypedAttribute<T, Owner>::_rtti = nullptr;

} // namespace internal

/// An attribute of type T in the class Owner. The pair of operations fits the form of T: getValue and
/// setValue, getPointer and setPointer, getConstPointer and setConstPointer, getConstReference and
/// setConstReference. Those of this class are fatal: a leaf defines how its value is reached.
template <typename T, typename Owner>
class AbstractAttributeT : public internal::TypedAttribute<T, Owner>
{
public:
    using internal::TypedAttribute<T, Owner>::TypedAttribute;
    virtual T getValue(const Owner&) const { this->endNotImplemented(); }
    virtual void setValue(Owner&, T) const { this->endNotImplemented(); }
};

/// The form of pointers.
template <typename T, typename Owner>
class AbstractAttributeT<T*, Owner> : public internal::TypedAttribute<T*, Owner>
{
public:
    using internal::TypedAttribute<T*, Owner>::TypedAttribute;
    virtual T* getPointer(const Owner*) const { this->endNotImplemented(); }
    virtual void setPointer(Owner*, T*) const { this->endNotImplemented(); }
};

/// The form of pointers to what is not changed through them.
template <typename T, typename Owner>
class AbstractAttributeT<const T*, Owner> : public internal::TypedAttribute<const T*, Owner>
{
public:
    using internal::TypedAttribute<const T*, Owner>::TypedAttribute;
    virtual const T* getConstPointer(const Owner&) const { this->endNotImplemented(); }
    virtual void setConstPointer(Owner&, const T*) const { this->endNotImplemented(); }
};

/// The form of values that are reached by reference.
template <typename T, typename Owner>
class AbstractAttributeT<const T&, Owner> : public internal::TypedAttribute<const T&, Owner>
{
public:
    using internal::TypedAttribute<const T&, Owner>::TypedAttribute;
    virtual const T& getConstReference(const Owner&) const { this->endNotImplemented(); }
    virtual void setConstReference(Owner&, const T&) const { this->endNotImplemented(); }
};

} // namespace mrv
