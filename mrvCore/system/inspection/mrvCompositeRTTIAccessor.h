// mrvCore/system/inspection/mrvCompositeRTTIAccessor.h
// Records of the types that are made of other types: arrays, maps, pairs, pointers, references.
#pragma once

#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTIAccessor.h"
#include "mrvCore/system/inspection/mrvRTTICreator.h"

#include <type_traits>
#include <utility>

namespace mrv {

template <typename T>
class Array;
template <typename T>
class PODArray;
template <typename K, typename V>
class MrvMap;

/// Identity and name of a composite type, derived from those of its elements. Permanent.
struct MRV_CORE_API CompositeType
{
    /// The seed plus the element's identity; `nameFormat` takes the element's name.
    CompositeType(const char* seed, const char* nameFormat, const RTTI& element);

    /// The same with two elements.
    CompositeType(const char* seed, const char* nameFormat, const RTTI& first, const RTTI& second);

    /// The registered record, null if there is none. Costs nothing and changes nothing.
    RTTI* find() const;

    TypeID typeID;
    char typeName[1024];
};

/// What RTTIAccessor does for a composite type. `Composite` describes it: Type, makeType(), and the two
/// operations createElements() and releaseElements() on the records of the elements.
///
/// The record is made at the first use and holds one user of each element, however many users it has.
template <typename Composite>
class CompositeRTTIAccessor
{
public:
    /// Makes the record, or counts one more user of it.
    static void createClassRTTI()
    {
        Composite::createElements();
        const CompositeType type = Composite::makeType();
        RTTI* record = RTTI::checkBeforeCreate(type.typeID, type.typeName);
        if (record == nullptr)
            record = RTTI::create(type.typeID, type.typeName, makeCreator());
        else
            Composite::releaseElements();
        record->incrementCounter();
    }

    /// Counts one user less; the last one deletes the record. Nothing for a type without one.
    static void releaseClassRTTI()
    {
        RTTI* record = touchClassRTTI();
        if (record == nullptr)
            return;
        const bool isLastUser = record->getCounter() == 1;
        record->decrementCounter();
        if (isLastUser)
        {
            delete record;
            Composite::releaseElements();
        }
    }

    static const RTTI& getClassRTTI() { return *touchClassRTTI(); }

    /// The record without a change of its users; null if no attribute of the type is declared.
    static RTTI* touchClassRTTI() { return Composite::makeType().find(); }

private:
    static IRTTICreator* makeCreator()
    {
        if constexpr (std::is_default_constructible_v<typename Composite::Type>)
            return new RTTICreatorT<typename Composite::Type>();
        else
            return nullptr;
    }
};

namespace internal {

template <typename... Elements>
struct CompositeOf
{
    static void createElements() { (RTTIAccessor<Elements>::createClassRTTI(), ...); }
    static void releaseElements() { (RTTIAccessor<Elements>::releaseClassRTTI(), ...); }

    static CompositeType makeType(const char* seed, const char* nameFormat)
    {
        return CompositeType(seed, nameFormat, RTTIAccessor<Elements>::getClassRTTI()...);
    }
};

template <typename T>
struct ArrayComposite : CompositeOf<T>
{
    using Type = Array<T>;
    static CompositeType makeType()
    {
        return CompositeOf<T>::makeType("f7ef84a0-6994-497f-9b90-4d37d2ef7670", "Array<%s>");
    }
};

template <typename T>
struct PODArrayComposite : CompositeOf<T>
{
    using Type = PODArray<T>;
    static CompositeType makeType()
    {
        return CompositeOf<T>::makeType("d82fbb17-65dd-4579-a031-d68f04d44b5c", "PODArray<%s>");
    }
};

// The names of maps and pairs end in an asterisk; files of all ages have them so.
template <typename K, typename V>
struct MapComposite : CompositeOf<K, V>
{
    using Type = MrvMap<K, V>;
    static CompositeType makeType()
    {
        return CompositeOf<K, V>::makeType("812c7245-c0cf-4918-9bbe-a257b553e850", "MrvMap<%s,%s>*");
    }
};

template <typename K, typename V>
struct PairComposite : CompositeOf<K, V>
{
    using Type = std::pair<K, V>;
    static CompositeType makeType()
    {
        return CompositeOf<K, V>::makeType("ac77798c-5da6-401b-9e87-ffe02cfe183a", "pair<%s,%s>*");
    }
};

template <typename T>
struct PointerComposite : CompositeOf<T>
{
    using Type = T*;
    static CompositeType makeType()
    {
        return CompositeOf<T>::makeType("ee83e2b7-4c36-4965-9b02-5146e3ea72d0", "%s*");
    }
};

template <typename T>
struct ConstPointerComposite : CompositeOf<T>
{
    using Type = const T*;
    static CompositeType makeType()
    {
        return CompositeOf<T>::makeType("6af6f9e5-292f-41ec-956c-a5eed421d056", "const %s*");
    }
};

template <typename T>
struct ConstReferenceComposite : CompositeOf<T>
{
    using Type = T;
    static CompositeType makeType()
    {
        return CompositeOf<T>::makeType("7f18b132-84e3-4284-a123-2be7989e0848", "const %s&");
    }
};

} // namespace internal

template <typename T>
class RTTIAccessor<Array<T>> : public CompositeRTTIAccessor<internal::ArrayComposite<T>>
{};

template <typename T>
class RTTIAccessor<PODArray<T>> : public CompositeRTTIAccessor<internal::PODArrayComposite<T>>
{};

template <typename K, typename V>
class RTTIAccessor<MrvMap<K, V>> : public CompositeRTTIAccessor<internal::MapComposite<K, V>>
{};

template <typename K, typename V>
class RTTIAccessor<std::pair<K, V>> : public CompositeRTTIAccessor<internal::PairComposite<K, V>>
{};

template <typename T>
class RTTIAccessor<T*> : public CompositeRTTIAccessor<internal::PointerComposite<T>>
{};

template <typename T>
class RTTIAccessor<const T*> : public CompositeRTTIAccessor<internal::ConstPointerComposite<T>>
{};

template <typename T>
class RTTIAccessor<const T&> : public CompositeRTTIAccessor<internal::ConstReferenceComposite<T>>
{};

} // namespace mrv
