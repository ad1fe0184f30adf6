// mrvCore/system/inspection/mrvRTTI.h
// Record of a registered type, and the registry of all records.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/inspection/mrvUuid.h"

#include <atomic>

namespace mrv {

class AbstractAttribute;
class AttributeIndex;
class IRTTICreator;
class MrvStaticString;
template <typename K, typename V>
class MrvMap;
template <typename T>
class RTTIAccessor;

/// Factories by TypeID, TypeIDs by name, records by TypeID.
using TypeIDToIRTTICreator = MrvMap<TypeID, IRTTICreator*>;
using TypeNameToTypeIDMAP = MrvMap<MrvStaticString, TypeID>;
using TypeIDToRTTIMap = MrvMap<TypeID, const class RTTI*>;

/// What the library knows of one type: identity, name, base classes, attributes in persistent order.
///
/// Owned by the registry, counted by its users: every registration of the class, every base-class
/// declaration and every attribute of the type is one user, and the last one deletes the record.
/// Threads: written only while the library starts or stops, or by a host's registration code run in
/// the same way; read freely in between.
class MRV_CORE_API RTTI
{
public:
    /// The record of `typeID` if it is registered, null otherwise. A record of that identity under
    /// another name is fatal: two classes would claim the same files.
    static RTTI* checkBeforeCreate(const TypeID& typeID, const char* name);

    /// Registers a new type. Takes over `creator`, which may be null for a type that cannot be made
    /// from its identity. A null identity or name is fatal. Counts no user.
    static RTTI* create(const TypeID& typeID, const char* name, IRTTICreator* creator);

    /// Registers the base types. Part of the start of the library.
    static void createRTTIs();

    /// Removes the base types and every record that is left. Part of the stop.
    static void destroyRTTIs();

    /// Makes the empty registry. Nothing of this class may be used before.
    static void allocateStaticRTTIs();

    /// Frees the registry. Nothing of this class may be used afterwards.
    static void deallocateStaticRTTIs();

    /// Identity of the type registered under `name`, the null TypeID if there is none.
    static const TypeID& getTypeID(const char* name);

    /// Name of a type, null if it is not registered.
    static const char* getTypeName(const TypeID& typeID);

    /// Record of a type, null if it is not registered.
    static const RTTI* getRTTI(const TypeID& typeID);

    /// Records of a type and of all that derive from it, in the order of their TypeIDs; empty if the
    /// type is not registered.
    static PODArray<const RTTI*> getRTTIs(const TypeID& typeID);

    /// Records of all registered types, in the order of their TypeIDs.
    static PODArray<const RTTI*> getRTTIs();

    /// A new instance, owned by the caller; null for an unknown type or one without a factory.
    static void* createInstance(const TypeID& typeID);

    /// A new instance of this type, as createInstance makes it.
    void* createInstance() const;

    /// Deletes an instance of exactly this type; does nothing for a type without a factory.
    void destroyInstance(void* instance) const;

    /// Removes the type from the registry and deletes its factory and attributes.
    ~RTTI();

    const TypeID& getTypeID() const { return _typeID; }
    const char* getTypeName() const { return _typeName; }

    /// True for the type itself and for every type that has it among its bases, at any depth.
    bool isDerivedFrom(const RTTI& other) const;

    unsigned int getBaseClassesCount() const { return static_cast<unsigned int>(_baseClassesRTTI.size()); }
    const RTTI& getBaseClassRTTI(unsigned int index) const { return *_baseClassesRTTI[index]; }

    /// Number of attributes, those of the base classes included.
    unsigned int getAttributesCount() const;

    /// True if this very attribute object belongs to the type or to one of its bases.
    bool hasAttribute(const AbstractAttribute& attribute) const;

    /// Attribute by persistent index: those of the first base, of the second and so on, then the own
    /// ones. Null beyond the last.
    const AbstractAttribute* getAttribute(unsigned int index) const;

    /// Attribute by name, which is made an identifier first. Own attributes hide those of the bases,
    /// though they come behind them in the index order. Null if there is none.
    const AbstractAttribute* getAttribute(const char* name) const;

    /// The attributes that the type itself declares, in order.
    const PODArray<AbstractAttribute*>& getOwnAttributes() const { return _attributes; }

    /// All attributes with their names, for code that looks many of them up.
    const AttributeIndex& getAttributeIndex() const
    {
        const AttributeIndex* index = _attributeIndex.load(std::memory_order_acquire);
        return index != nullptr ? *index : makeAttributeIndex();
    }

    /// Switches the declarations of this type to undoing themselves.
    void isRemoving(bool removing) const { _removingAttributes = removing; }

    unsigned int getCounter() const { return _counter; }
    /// @{
    /// Count and discount a user; nothing else happens here.
    void incrementCounter() const { ++_counter; }
    void decrementCounter() const { --_counter; }
    /// @}

    /// Declares the base class B, or takes the declaration back in removal mode.
    template <typename B>
    void addBaseClass() const;

    /// Declares an attribute, of which a copy is kept, or takes the declaration back in removal mode.
    template <typename A>
    void addAttribute(const A& attribute) const;

private:
    RTTI();
    RTTI(const RTTI&) = delete;
    RTTI& operator=(const RTTI&) = delete;

    const AttributeIndex& makeAttributeIndex() const;
    static void dropAttributeIndices();
    void appendBaseClass(const RTTI& base) const;
    void appendAttribute(AbstractAttribute* attribute) const;
    void removeAttribute(const char* name) const;

    static TypeIDToIRTTICreator* _rttiFactory;
    static TypeNameToTypeIDMAP* _typeNameToTypeID;
    static TypeIDToRTTIMap* _typeIDToRTTI;

    TypeID _typeID;
    const char* _typeName = nullptr;
    IRTTICreator* _creator = nullptr; ///< borrowed from _rttiFactory, null if there is none
    mutable unsigned int _counter = 0;
    mutable PODArray<const RTTI*> _baseClassesRTTI;
    mutable PODArray<AbstractAttribute*> _attributes;
    mutable bool _removingAttributes = false;
    mutable std::atomic<AttributeIndex*> _attributeIndex; ///< made at the first look-up, dropped at a change
};

template <typename B>
void RTTI::addBaseClass() const
{
    if (_removingAttributes)
    {
        // The list keeps its entry: this record goes away right after its declarations.
        B::persistentClass().destroyRTTI(false);
    }
    else
    {
        appendBaseClass(B::persistentClass().addUserAsBase());
    }
}

template <typename A>
void RTTI::addAttribute(const A& attribute) const
{
    using Accessor = RTTIAccessor<typename A::ValueType>;
    if (_removingAttributes)
    {
        removeAttribute(attribute.getName());
        Accessor::releaseClassRTTI();
    }
    else
    {
        Accessor::createClassRTTI();
        appendAttribute(new A(attribute));
    }
}

} // namespace mrv
