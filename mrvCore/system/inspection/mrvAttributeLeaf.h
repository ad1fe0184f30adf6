// mrvCore/system/inspection/mrvAttributeLeaf.h
// What the concrete attributes share: writing and reading in the two passes, by the form of the type.
#pragma once

#include "mrvCore/system/inspection/mrvAbstractAttributeT.h"

#include <typeinfo>

namespace mrv::internal {

/// Where an attribute stands in the binary stream: its next bytes.
template <typename Stream>
struct BinarySite
{
    Stream& stream;

    template <typename V>
    void write(const V& value) const
    {
        stream.writeValue(value);
    }
    template <typename V>
    void read(V& value) const
    {
        stream.readValue(value);
    }
    template <typename V>
    void readLocal(V& value) const
    {
        stream.readLocalValue(value);
    }
    template <typename V>
    static constexpr bool keepsBytesOf()
    {
        return Stream::template keepsBytesOf<V>();
    }
    template <typename V>
    static size_t minimumSizeOf()
    {
        return Stream::template minimumSizeOf<V>();
    }
};

/// Where an attribute stands in the XML stream: its element.
template <typename Stream, typename Item>
struct XMLSite
{
    Stream& stream;
    Item& item;

    template <typename V>
    void write(const V& value) const
    {
        stream.writeValue(item, value);
    }
    template <typename V>
    void read(V& value) const
    {
        stream.readValue(item, value);
    }
    template <typename V>
    void readLocal(V& value) const
    {
        stream.readLocalValue(item, value);
    }
    template <typename V>
    static constexpr bool keepsBytesOf()
    {
        return false;
    }
};

/// An attribute reached through `Reach`, which has get(const Owner&), set(Owner&, T) and isDirect; where
/// that is true also touch(), for a member that is read in place. Behind a reference it has mayTake; where
/// that is true also hasTaker() and take(Owner&, T&).
///
/// Leaves that are not direct call their setter in the second pass alone, when the whole graph is known.
/// A class derived from a leaf may override the getter and setter; writing and reading then go through
/// them.
template <typename Reach, typename T, typename Owner>
class ReachedAttribute : public AbstractAttributeT<T, Owner>
{
public:
    T getValue(const Owner& owner) const override { return _reach.get(owner); }
    void setValue(Owner& owner, T value) const override { _reach.set(owner, value); }

protected:
    ReachedAttribute(const char* name, const RTTI& owner, const Reach& reach)
        : AbstractAttributeT<T, Owner>(name, owner)
        , _reach(reach)
    {}

    template <typename Leaf, typename Site>
    void packTo(const Site& site, const Owner& owner) const
    {
        if constexpr (Reach::isDirect)
            if (typeid(*this) == typeid(Leaf))
                return site.write(_reach.touch(owner));
        const T value = getValue(owner);
        site.write(value);
    }

    template <typename Leaf, typename Site>
    void unpackFrom(const Site& site, Owner& owner) const
    {
        if constexpr (Reach::isDirect)
            if (typeid(*this) == typeid(Leaf))
                return site.read(_reach.touch(owner));
        T value = getValue(owner);
        site.readLocal(value);
        if (Reach::isDirect || !site.stream.isFirstPass())
            setValue(owner, value);
    }

    Reach _reach;
};

template <typename Reach, typename T, typename Owner>
class ReachedAttribute<Reach, T*, Owner> : public AbstractAttributeT<T*, Owner>
{
public:
    T* getPointer(const Owner* owner) const override { return _reach.get(*owner); }
    void setPointer(Owner* owner, T* pointer) const override { _reach.set(*owner, pointer); }

protected:
    ReachedAttribute(const char* name, const RTTI& owner, const Reach& reach)
        : AbstractAttributeT<T*, Owner>(name, owner)
        , _reach(reach)
    {}

    template <typename Leaf, typename Site>
    void packTo(const Site& site, const Owner& owner) const
    {
        T* const pointer = getPointer(&owner);
        site.write(pointer);
    }

    template <typename Leaf, typename Site>
    void unpackFrom(const Site& site, Owner& owner) const
    {
        T* pointer = nullptr;
        site.read(pointer);
        if (Reach::isDirect || !site.stream.isFirstPass())
            setPointer(&owner, pointer);
    }

    Reach _reach;
};

template <typename Reach, typename T, typename Owner>
class ReachedAttribute<Reach, const T*, Owner> : public AbstractAttributeT<const T*, Owner>
{
public:
    const T* getConstPointer(const Owner& owner) const override { return _reach.get(owner); }
    void setConstPointer(Owner& owner, const T* pointer) const override { _reach.set(owner, pointer); }

protected:
    ReachedAttribute(const char* name, const RTTI& owner, const Reach& reach)
        : AbstractAttributeT<const T*, Owner>(name, owner)
        , _reach(reach)
    {}

    template <typename Leaf, typename Site>
    void packTo(const Site& site, const Owner& owner) const
    {
        const T* const pointer = getConstPointer(owner);
        site.write(pointer);
    }

    template <typename Leaf, typename Site>
    void unpackFrom(const Site& site, Owner& owner) const
    {
        const T* pointer = nullptr;
        site.read(pointer);
        if (Reach::isDirect || !site.stream.isFirstPass())
            setConstPointer(owner, pointer);
    }

    Reach _reach;
};

/// A value behind a reference cannot be filled in place, and its setter may run only once the whole graph
/// is known. The value of the first pass therefore waits in the stream's FIFO, which keeps alive what that
/// pass registered, and the second pass takes it from there.
template <typename Reach, typename T, typename Owner>
class ReachedAttribute<Reach, const T&, Owner> : public AbstractAttributeT<const T&, Owner>
{
public:
    const T& getConstReference(const Owner& owner) const override { return _reach.get(owner); }
    void setConstReference(Owner& owner, const T& value) const override { _reach.set(owner, value); }

    void deleteValue(void* value) const override { delete static_cast<T*>(value); }

protected:
    ReachedAttribute(const char* name, const RTTI& owner, const Reach& reach)
        : AbstractAttributeT<const T&, Owner>(name, owner)
        , _reach(reach)
    {}

    template <typename Leaf, typename Site>
    void packTo(const Site& site, const Owner& owner) const
    {
        site.write(getConstReference(owner));
    }

    template <typename Leaf, typename Site>
    void unpackFrom(const Site& site, Owner& owner) const
    {
        if constexpr (Site::template keepsBytesOf<T>())
            return unpackBytes<Leaf>(site, owner);
        else
            return unpackObject<Leaf>(site, owner);
    }

    Reach _reach;

private:
    template <typename Leaf, typename Site>
    void unpackBytes(const Site& site, Owner& owner) const
    {
        T value = T();
        if (!site.stream.isFirstPass())
            site.stream.popBytesFromFifo(value, this);
        site.read(value);
        if (site.stream.isFirstPass())
            site.stream.pushBytesInFifo(value, this);
        else
            handOver<Leaf>(owner, value);
    }

    template <typename Leaf, typename Site>
    void unpackObject(const Site& site, Owner& owner) const
    {
        if (site.stream.isFirstPass())
        {
            T* value = new T();
            site.stream.pushValueInFifo(value, this);
            site.read(*value);
            site.stream.leaveFifoValue();
            return;
        }
        T* value = static_cast<T*>(site.stream.popValuefromFifo(this));
        if (value == nullptr)
            value = new T();
        site.read(*value);
        site.stream.leaveFifoValue();
        handOver<Leaf>(owner, *value);
        delete value;
    }

    template <typename Leaf>
    void handOver(Owner& owner, T& value) const
    {
        if constexpr (Reach::mayTake)
            if (_reach.hasTaker() && typeid(*this) == typeid(Leaf))
                return _reach.take(owner, value);
        setConstReference(owner, value);
    }
};

/// The four operations of the streams, from packTo and unpackFrom of `Base`.
template <typename Leaf, typename Base, typename Owner>
class StreamedAttribute : public Base
{
public:
    void pack(BinaryStream& stream, const void* object) const override
    {
        this->template packTo<Leaf>(BinarySite<BinaryStream>{ stream }, *static_cast<const Owner*>(object));
    }
    void unpack(BinaryStream& stream, void* object) const override
    {
        this->template unpackFrom<Leaf>(BinarySite<BinaryStream>{ stream }, *static_cast<Owner*>(object));
    }
    void pack(XMLStream& stream, DataItem& item, const void* object) const override
    {
        this->template packTo<Leaf>(XMLSite<XMLStream, DataItem>{ stream, item },
                                    *static_cast<const Owner*>(object));
    }
    size_t getMinimumBinarySize() const override
    {
        return BinarySite<BinaryStream>::template minimumSizeOf<std::decay_t<typename Base::ValueType>>();
    }
    void unpack(XMLStream& stream, const DataItem& item, void* object) const override
    {
        this->template unpackFrom<Leaf>(XMLSite<XMLStream, const DataItem>{ stream, item },
                                        *static_cast<Owner*>(object));
    }

protected:
    using Base::Base;
};

} // namespace mrv::internal
