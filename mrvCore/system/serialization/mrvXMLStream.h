// mrvCore/system/serialization/mrvXMLStream.h
// Turns a graph of persistent objects into a tree of data items, the shape of an XML file, and back.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/dataItem/mrvAbstractDataFileParser.h"
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/inspection/mrvRTTIAccessor.h"
#include "mrvCore/system/serialization/mrvPersistentTraits.h"
#include "mrvCore/system/serialization/mrvReadIdentities.h"
#include "mrvCore/system/serialization/mrvWrittenIdentities.h"

#include <iosfwd>

namespace mrv {

class Quaternion;
class Vector2;
class Vector3;
class Vector4;
class XMLPrinter;

/// The tolerant object form: attributes are found by the names of their elements, so that a stored object
/// with more, fewer or reordered attributes still loads, with a warning for each that is not known.
///
/// An object's element has "pointerID" and one child per attribute; a plain value's has "value"; arrays and
/// maps have children named "element", with an "index" unless they are
/// entries of a map. The content of an object that pointers share stands
/// at the first of them, the others only have its id.
///
/// pack and unpack walk the graph twice. One stream serves one operation on one graph and is then done with.
/// Bad files: no object is made of a class that does not fit; a map entry without children and a text
/// without its "value" are fatal. Instances made for pointers belong to the attributes that hold them.
/// Threads: one at a time; the registry is only read.
class MRV_CORE_API XMLStream
{
public:
    /// Names of the components of a vector.
    static const char* dimensionName[4];

    XMLStream();
    ~XMLStream();
    XMLStream(const XMLStream&) = delete;
    XMLStream& operator=(const XMLStream&) = delete;

    /// Sets the last of the component names, which is set anyhow.
    static void init();

    /// The root item, named "XMLSerialization" until a file is imported.
    DataItem& getRoot() { return _configurationItem; }
    const DataItem& getRoot() const { return _configurationItem; }

    bool isFirstPass() const { return _firstPass; }
    void setFirstPass(bool firstPass);

    /// Writes the root into an XML file.
    SaveXMLDataFileErrorCode::Value exportTo(const char* fileName);

    /// Replaces the root by the content of an XML file, whose faults are fatal.
    void importFrom(const char* fileName);

    /// Appends a child named "maravoObject" with the object to `item`.
    template <typename T>
    void pack(DataItem& item, const T& object);

    /// @{
    /// Writes the XML text of `root` with the object as pack() appends it: the same bytes as those of the
    /// tree, which is not made. In front of the object stands what `root` has.
    /// An attribute class of a host that fills its item itself does so before it has the stream write there.
    template <typename T>
    SaveXMLDataFileErrorCode::Value exportObject(const char* fileName, const DataItem& root, const T& object)
    {
        return exportObject(fileName, root, &object, object.getRTTI());
    }
    /// A failure is seen in the state of the stream.
    template <typename T>
    void exportObject(std::ostream& stream, const DataItem& root, const T& object)
    {
        exportObject(stream, root, &object, object.getRTTI());
    }
    /// @}

    /// Reads the first child of `item` whose class is T or derives from it. Without such a child the object
    /// stays as it was; returns whether there was one.
    template <typename T>
    bool unpack(const DataItem& item, T& object);

    /// @{
    /// Values that attributes behind references leave from the first pass of reading to the second, first
    /// in, first out. A pop of another attribute's value, or of none, is a warning and null.
    /// After each of the two, leaveFifoValue() follows when the value has been read.
    void pushValueInFifo(void* value, const AbstractAttribute* attribute = nullptr)
    {
        _readIdentities.pushValue(value, attribute);
    }
    void* popValuefromFifo(const AbstractAttribute* attribute = nullptr)
    {
        return _readIdentities.popValue(attribute);
    }
    void leaveFifoValue() { _readIdentities.leaveValue(); }
    /// @}

    /// Plain values, in the second pass only.
    void write(DataItem& item, bool value);
    void write(DataItem& item, char value);
    void write(DataItem& item, unsigned char value);
    void write(DataItem& item, short value);
    void write(DataItem& item, unsigned short value);
    void write(DataItem& item, int value);
    void write(DataItem& item, unsigned int value);
    void write(DataItem& item, long value);
    void write(DataItem& item, uint64_t value);
    void write(DataItem& item, float value);
    void write(DataItem& item, double value);
    void write(DataItem& item, const char* value);
    void write(DataItem& item, const MrvString& value);
    void write(DataItem& item, const Vector2& value);
    void write(DataItem& item, const Vector3& value);
    void write(DataItem& item, const Vector4& value);
    void write(DataItem& item, const Quaternion& value);

    /// A number that is absent or unreadable reads as 0; a `bool` that is absent stays as it was, with a
    /// warning.
    void read(const DataItem& item, bool& value);
    void read(const DataItem& item, char& value);
    void read(const DataItem& item, unsigned char& value);
    void read(const DataItem& item, short& value);
    void read(const DataItem& item, unsigned short& value);
    void read(const DataItem& item, int& value);
    void read(const DataItem& item, unsigned int& value);
    void read(const DataItem& item, long& value);
    void read(const DataItem& item, uint64_t& value);
    void read(const DataItem& item, float& value);
    void read(const DataItem& item, double& value);
    /// The text belongs to the item.
    void read(const DataItem& item, const char*& value);
    void read(const DataItem& item, MrvString& value);
    void read(const DataItem& item, Vector2& value);
    void read(const DataItem& item, Vector3& value);
    void read(const DataItem& item, Vector4& value);
    void read(const DataItem& item, Quaternion& value);

    /// @{
    /// One scalar in an attribute of that name. Here for the numbers of the overloads above.
    template <typename T>
    void doWriteAttribute(DataItem& item, T value, const char* name = "value");
    template <typename T>
    void doReadAttribute(const DataItem& item, T& value, const char* name = "value");
    /// @}

    /// @{
    /// An object in full, at its place.
    template <typename T>
    void write(DataItem& item, const T& object, bool isByValue)
    {
        writeObject(item, &object, object.getRTTI(), isByValue);
    }
    template <typename T>
    std::enable_if_t<internal::IsPersistentClass<T>::value> read(const DataItem& item, T& object)
    {
        readObject(item, &object, object.getRTTI());
    }
    /// @}

    /// @{
    /// Pointers to an object, or to a plain value, which stands at its first occurrence; arrays, pairs and
    /// maps.
    template <typename T>
    void write(DataItem& item, T* pointer);
    template <typename T>
    void read(const DataItem& item, T*& pointer);

    template <typename T>
    void write(DataItem& item, const Array<T>& array)
    {
        writeElements(item, array);
    }
    template <typename T>
    void read(const DataItem& item, Array<T>& array)
    {
        readElements(item, array);
    }
    template <typename T>
    void write(DataItem& item, const PODArray<T>& array)
    {
        writeElements(item, array);
    }
    template <typename T>
    void read(const DataItem& item, PODArray<T>& array)
    {
        readElements(item, array);
    }
    template <typename K, typename V>
    void write(DataItem& item, const std::pair<K, V>& pair)
    {
        writeEntry(item, pair.first, pair.second);
    }
    template <typename K, typename V>
    void read(const DataItem& item, std::pair<K, V>& pair);
    template <typename K, typename V>
    void write(DataItem& item, const MrvMap<K, V>& map);
    template <typename K, typename V>
    void read(const DataItem& item, MrvMap<K, V>& map);
    /// @}

    /// @{
    /// Any of these, an object by value: what attributes and elements are written and read with.
    template <typename T>
    void writeValue(DataItem& item, const T& value)
    {
        if constexpr (internal::IsPersistentClass<T>::value)
            write(item, value, true);
        else
            write(item, value);
    }
    template <typename T>
    void readValue(const DataItem& item, T& value)
    {
        read(item, value);
    }
    /// @}
    /// A value that is gone when its reader returns: no pointer of the graph reaches an object inside it.
    template <typename T>
    void readLocalValue(const DataItem& item, T& value)
    {
        if constexpr (internal::HoldsObjects<T>::value)
        {
            _readIdentities.enterLocalValue();
            readValue(item, value);
            _readIdentities.leaveLocalValue();
        }
        else
        {
            readValue(item, value);
        }
    }

    void clear();

private:
    /// Key and value of a map's entry, wherever a file has put them.
    struct Entry
    {
        const DataItem* key;
        const DataItem* value;
    };

    template <typename Elements>
    void writeElements(DataItem& item, const Elements& elements);
    template <typename Elements>
    void readElements(const DataItem& item, Elements& elements);
    template <typename K, typename V>
    void writeEntry(DataItem& item, const K& key, const V& value);

    /// True for the item that stands for the open element of a text that is being printed.
    bool isPrinted(const DataItem& item) const { return &item == &_printedItem; }
    /// A new child in the second pass, one to throw away in the first. It is left behind its last write.
    DataItem& enterChild(DataItem& item, const char* name, unsigned int nameSize);
    DataItem& enterElement(DataItem& item) { return enterChild(item, "element", 7); }
    DataItem& enterElement(DataItem& item, size_t index);
    void leaveChild(const DataItem& child)
    {
        if (isPrinted(child))
            leavePrintedChild();
    }
    void leavePrintedChild();
    void printStrays();
    void reserveChildren(DataItem& item, size_t count)
    {
        if (!_firstPass && !isPrinted(item))
            item.reserveChildrenSpace(count);
    }
    template <typename T>
    void writeElement(DataItem& item, size_t index, const T& value)
    {
        DataItem& element = enterElement(item, index);
        writeValue(element, value);
        leaveChild(element);
    }
    Entry findEntry(const DataItem& item) const;
    /// The place of an element in an array of this size; false, with a warning, if it has none.
    bool findIndex(const DataItem& element, unsigned int position, size_t size, unsigned int& index) const;

    SaveXMLDataFileErrorCode::Value exportObject(const char* fileName, const DataItem& root,
                                                 const void* object, const RTTI& rtti);
    void exportObject(std::ostream& stream, const DataItem& root, const void* object, const RTTI& rtti);
    void printObject(XMLPrinter& printer, const DataItem& root, const void* object, const RTTI& rtti);
    const DataItem* findObject(const DataItem& item, const RTTI& type) const;
    void finishPack(DataItem& item, const RTTI& rtti);

    void writeText(DataItem& item, const char* name, size_t nameSize, const char* text, size_t size);
    void writeTypeName(DataItem& item, const RTTI& rtti);
    void writeObject(DataItem& item, const void* object, const RTTI& rtti, bool isByValue);
    void packAttributes(DataItem& item, const void* object, const RTTI& rtti);
    void readObject(const DataItem& item, void* object, const RTTI& rtti);
    void readAttributes(const DataItem& item, void* object, const RTTI& rtti);
    void writePointer(DataItem& item, const void* object, const RTTI& rtti, const RTTI& declared);
    void* readPointer(const DataItem& item, const RTTI& declared);
    /// Returns whether the value itself stands here.
    bool writePlainPointer(DataItem& item, const void* value, const RTTI& type);
    void* readPlainPointer(const DataItem& item, const RTTI& type, void* (*create)());
    unsigned int readPointerId(const DataItem& item);
    template <size_t Count>
    void writeComponents(DataItem& item, const float (&components)[Count]);
    template <size_t Count>
    void readComponents(const DataItem& item, float (&components)[Count]);

    internal::WrittenIdentities _writtenIdentities;
    internal::ReadIdentities _readIdentities;
    DataItem _configurationItem;
    DataItem _firstPassElement;
    DataItem _printedItem;
    XMLPrinter* _printer = nullptr;
    unsigned int _pointerId;
    bool _firstPass;
};

template <typename T>
void XMLStream::write(DataItem& item, T* pointer)
{
    using Bare = std::remove_const_t<T>;
    if constexpr (internal::IsPersistentClass<Bare>::value)
        writePointer(item, pointer, pointer != nullptr ? pointer->getRTTI() : Bare::getClassRTTI(),
                     Bare::getClassRTTI());
    else if (writePlainPointer(item, pointer, RTTIAccessor<Bare>::getClassRTTI()))
        write(item, *pointer);
}

template <typename T>
void XMLStream::read(const DataItem& item, T*& pointer)
{
    using Bare = std::remove_const_t<T>;
    if constexpr (internal::IsPersistentClass<Bare>::value)
    {
        pointer = static_cast<T*>(readPointer(item, Bare::getClassRTTI()));
    }
    else
    {
        Bare* value = static_cast<Bare*>(readPlainPointer(item, RTTIAccessor<Bare>::getClassRTTI(),
                                                          [] { return static_cast<void*>(new Bare()); }));
        if (value != nullptr && item.getAttributesCount() > 1)
            read(item, *value);
        pointer = value;
    }
}

template <typename Elements>
void XMLStream::writeElements(DataItem& item, const Elements& elements)
{
    using T = typename Elements::value_type;
    if (_firstPass && !internal::HasIdentities<T>::value)
        return;
    reserveChildren(item, elements.size());
    for (size_t i = 0; i < elements.size(); ++i)
        writeElement(item, i, elements[i]);
}

template <typename Elements>
void XMLStream::readElements(const DataItem& item, Elements& elements)
{
    using T = typename Elements::value_type;
    if (_firstPass)
    {
        if (internal::HoldsObjects<T>::value && !_readIdentities.beginContainer(&elements))
            return;
        elements.clear();
        if constexpr (std::is_trivially_destructible_v<T>)
            elements.resize(item.getChildrenCount(), T());
        else
            elements.resize(item.getChildrenCount());
    }
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
    {
        const DataItem& element = item.getChild(i);
        unsigned int index = 0;
        if (findIndex(element, i, elements.size(), index))
            readValue(element, elements[index]);
    }
}

template <typename K, typename V>
void XMLStream::writeEntry(DataItem& item, const K& key, const V& value)
{
    reserveChildren(item, 2);
    writeElement(item, 0, key);
    writeElement(item, 1, value);
}

template <typename K, typename V>
void XMLStream::read(const DataItem& item, std::pair<K, V>& pair)
{
    const Entry entry = findEntry(item);
    readValue(*entry.key, pair.first);
    if (entry.value != nullptr)
        readValue(*entry.value, pair.second);
}

template <typename K, typename V>
void XMLStream::write(DataItem& item, const MrvMap<K, V>& map)
{
    if (_firstPass && !internal::HasIdentities<std::pair<K, V>>::value)
        return;
    reserveChildren(item, map.size());
    for (auto entry = map.begin(); entry != map.end(); ++entry)
    {
        DataItem& element = enterElement(item);
        writeEntry(element, entry.getKey(), entry.getValue());
        leaveChild(element);
    }
}

template <typename K, typename V>
void XMLStream::read(const DataItem& item, MrvMap<K, V>& map)
{
    if (_firstPass)
    {
        if (internal::HoldsObjects<std::pair<K, V>>::value && !_readIdentities.beginContainer(&map))
            return;
        map.clear();
    }
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
    {
        const Entry entry = findEntry(item.getChild(i));
        K key = K();
        readLocalValue(*entry.key, key);
        V& value = map[key];
        if (entry.value != nullptr)
            readValue(*entry.value, value);
    }
}

template <typename T>
void XMLStream::pack(DataItem& item, const T& object)
{
    DataItem& child = item.addChild();
    child.setName("maravoObject");
    write(child, object, false);
    setFirstPass(false);
    write(child, object, false);
    setFirstPass(true);
    finishPack(child, object.getRTTI());
}

template <typename T>
bool XMLStream::unpack(const DataItem& item, T& object)
{
    const DataItem* child = findObject(item, T::getClassRTTI());
    if (child == nullptr)
        return false;
    read(*child, object);
    setFirstPass(false);
    read(*child, object);
    setFirstPass(true);
    return true;
}

} // namespace mrv
