// mrvCore/system/inspection/mrvPersistentClass.h
// How a class becomes persistent: one macro in its header, one macro and addAttributes() in its source.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTICreator.h"

#include <type_traits>

namespace mrv {

template <typename T, typename Owner>
class Attribute;
template <typename T, typename Owner>
class AccessorsAttribute;
template <typename T, typename Owner>
class ContainerAccessorsAttribute;

/// Registers and removes one persistent class. A constant beside each class; see the macros below.
struct MRV_CORE_API PersistentClass
{
    RTTI** rtti;                    ///< the class's record, null while unregistered
    const char* typeName;           ///< permanent name
    const char* typeID;             ///< permanent identity in text form
    IRTTICreator* (*makeCreator)(); ///< null for a class that cannot be made from its identity
    void (*addAttributes)();        ///< declares, or in removal mode takes back

    /// Counts one more user of the record, which is made first if needed; with attributes it also
    /// declares the bases and attributes.
    void createRTTI(bool withAttributes) const;

    /// Takes back what createRTTI did with the same argument; the last user deletes the record.
    void destroyRTTI(bool withAttributes) const;

    /// The record of a registered class. It never creates one: an unregistered class is a fault of the
    /// caller.
    const RTTI& getRTTI() const;

    /// The record with one more user, made without a factory if it does not exist.
    const RTTI& addUserAsBase() const;
};

/// The members that every persistent class has; stands first in the class and leaves it public.
/// The class's record is reached by getClassRTTI() and getRTTI(); addAttributes() is the class's own and
/// declares bases and attributes, in their permanent order, with the private helpers. It runs twice
/// in the life of a record: at the registration, and at the removal, where each declaration undoes itself.
#define MRV_PERSISTENT_CLASS(Class) MRV_INTERNAL_PERSISTENT_CLASS(Class, )

/// The same for classes that are used through a pointer to a base: getRTTI() is virtual.
#define MRV_PERSISTENT_CLASS_VIRTUAL(Class) MRV_INTERNAL_PERSISTENT_CLASS(Class, virtual)

#define MRV_INTERNAL_PERSISTENT_CLASS(Class, virtuality)                                                     \
public:                                                                                                      \
    static ::mrv::RTTI* _rtti;                                                                               \
    static const ::mrv::PersistentClass& persistentClass();                                                  \
    static void createClassRTTI(bool withAttributes)                                                         \
    {                                                                                                        \
        persistentClass().createRTTI(withAttributes);                                                        \
    }                                                                                                        \
    static void destroyClassRTTI(bool withAttributes)                                                        \
    {                                                                                                        \
        persistentClass().destroyRTTI(withAttributes);                                                       \
    }                                                                                                        \
    static const ::mrv::RTTI& getClassRTTI()                                                                 \
    {                                                                                                        \
        return _rtti != nullptr ? *_rtti : persistentClass().getRTTI();                                      \
    }                                                                                                        \
    virtuality const ::mrv::RTTI& getRTTI() const                                                            \
    {                                                                                                        \
        return getClassRTTI();                                                                               \
    }                                                                                                        \
    static void addAttributes();                                                                             \
                                                                                                             \
private:                                                                                                     \
    template <typename B>                                                                                    \
    static void addBaseClass()                                                                               \
    {                                                                                                        \
        getClassRTTI().template addBaseClass<B>();                                                           \
    }                                                                                                        \
    template <typename T>                                                                                    \
    static void addAttribute(const char* name, T Class::*member)                                             \
    {                                                                                                        \
        const ::mrv::RTTI& rtti = getClassRTTI();                                                            \
        rtti.addAttribute(::mrv::Attribute<T, Class>(name, rtti, member));                                   \
    }                                                                                                        \
    template <typename T>                                                                                    \
    static void addAccessorsAttribute(const char* name, T (Class::*getter)() const,                          \
                                      void (Class::*setter)(T))                                              \
    {                                                                                                        \
        const ::mrv::RTTI& rtti = getClassRTTI();                                                            \
        rtti.addAttribute(::mrv::AccessorsAttribute<T, Class>(name, rtti, getter, setter));                  \
    }                                                                                                        \
    template <typename T>                                                                                    \
    static void addAccessorsAttribute(const char* name, T (Class::*getter)() const,                          \
                                      void (Class::*setter)(T), void (Class::*taker)(std::decay_t<T>&))      \
    {                                                                                                        \
        const ::mrv::RTTI& rtti = getClassRTTI();                                                            \
        rtti.addAttribute(::mrv::AccessorsAttribute<T, Class>(name, rtti, getter, setter, taker));           \
    }                                                                                                        \
    template <typename T>                                                                                    \
    static void addContainerAccessorsAttribute(const char* name, T (Class::*getter)(unsigned int) const,     \
                                               void (Class::*setter)(unsigned int, T), unsigned int index)   \
    {                                                                                                        \
        const ::mrv::RTTI& rtti = getClassRTTI();                                                            \
        rtti.addAttribute(::mrv::ContainerAccessorsAttribute<T, Class>(name, rtti, getter, setter, index));  \
    }                                                                                                        \
                                                                                                             \
public:

/// Defines the members of a persistent class that can be made from its identity. Name and identity
/// stand here and nowhere else, and never change.
#define MRV_DEFINE_PERSISTENT_CLASS(Class, name, id)                                                         \
    MRV_INTERNAL_DEFINE_PERSISTENT_CLASS(                                                                    \
        Class, name, id, []() -> ::mrv::IRTTICreator* { return new ::mrv::RTTICreatorT<Class>(); })

/// The same for an abstract class, which has no factory.
#define MRV_DEFINE_ABSTRACT_PERSISTENT_CLASS(Class, name, id)                                                \
    MRV_INTERNAL_DEFINE_PERSISTENT_CLASS(Class, name, id, nullptr)

#define MRV_INTERNAL_DEFINE_PERSISTENT_CLASS(Class, name, id, makeCreator)                                   \
    ::mrv::RTTI* Class::_rtti = nullptr;                                                                     \
    const ::mrv::PersistentClass& Class::persistentClass()                                                   \
    {                                                                                                        \
        static const ::mrv::PersistentClass description = { &Class::_rtti, name, id, makeCreator,            \
                                                            &Class::addAttributes };                         \
        return description;                                                                                  \
    }

} // namespace mrv
