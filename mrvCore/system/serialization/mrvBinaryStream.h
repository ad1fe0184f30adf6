// mrvCore/system/serialization/mrvBinaryStream.h
// Writes a graph of persistent objects into bytes and reads it back.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/inspection/mrvRTTIAccessor.h"
#include "mrvCore/system/serialization/mrvPersistentTraits.h"
#include "mrvCore/system/serialization/mrvReadIdentities.h"
#include "mrvCore/system/serialization/mrvWrittenIdentities.h"

#include <cstring>
#include <iosfwd>

namespace mrv {

class Quaternion;
class Vector2;
class Vector3;
class Vector4;

/// The compact object form: no names, no header; fields are found by their place in the attribute lists,
/// so a reader needs exactly the class that wrote. Framing and versions are the business of the user.
///
/// Numbers are little-endian in their natural width; counts, lengths and ids are unsigned 32-bit numbers.
/// An object is its id, its attribute count and its attributes; a pointer is an id, and unless that is 0
/// the class's identity and a byte that says whether the object follows.
///
/// Every operation walks the graph twice. pack and unpack do both walks; whoever calls write or read by
/// himself sets the pass in between, and for reading seeks back to where the first walk began.
///
/// Bad bytes: what does not fit in the rest of the buffer sets the error state of getStream(); from then on
/// values stay as they were and no object is created. An object whose attribute count is not that of its
/// class is fatal. Instances made for pointers belong to the attributes that hold them.
/// Threads: one at a time; the registry is only read.
class MRV_CORE_API BinaryStream
{
public:
    BinaryStream();
    ~BinaryStream();
    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;

    /// The bytes, with one write and one read position and the error state.
    std::stringstream& getStream();

    /// The error state alone, which imported bytes tell without becoming a stream's.
    bool hasFailed();

    /// The write position, or 0 where there is none.
    size_t getLength();

    /// The read position.
    size_t getPosition();

    /// Writes the whole buffer into a file, in place of a former one, which stays whole if this fails.
    /// Returns false on failure, also of the operations that filled the buffer.
    bool exportTo(const char* fileName);

    /// Replaces the buffer by the content of a file; the absence of the file is fatal. What was read into
    /// memory already costs one copy less by the second form.
    void importFrom(const char* fileName);

    /// Replaces the buffer by these bytes; a null buffer is fatal.
    void importFrom(const uint8_t* buffer, size_t size);
    void importFrom(PODArray<char>&& bytes);

    bool isFirstPass() const { return _firstPass; }
    void setFirstPass(bool firstPass);

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

    /// True for values that wait as their bytes, without an object of their own: they keep alive nothing.
    template <typename T>
    static constexpr bool keepsBytesOf()
    {
        return std::is_trivially_copyable_v<T> && !internal::HoldsObjects<T>::value;
    }
    /// @{
    /// As pushValueInFifo and popValuefromFifo, in a queue beside that one, for a value that has been read.
    /// Without bytes of this attribute the value stays as it was.
    template <typename T>
    void pushBytesInFifo(const T& value, const AbstractAttribute* attribute)
    {
        _readIdentities.pushBytes(&value, sizeof(value), attribute);
    }
    template <typename T>
    void popBytesFromFifo(T& value, const AbstractAttribute* attribute)
    {
        _readIdentities.popBytes(&value, sizeof(value), attribute);
    }
    /// @}

    /// @{
    /// Raw bytes, in both passes.
    void write(const char* bytes, unsigned int count);
    void read(char* bytes, unsigned int count);
    /// @}

    /// @{
    /// Typed values, which are written in the second pass only and read in both.
    void write(bool value) { writePlain(static_cast<char>(value)); }
    void write(char value) { writePlain(value); }
    void write(unsigned char value) { writePlain(value); }
    void write(short value) { writePlain(value); }
    void write(unsigned short value) { writePlain(value); }
    void write(int value) { writePlain(value); }
    void write(unsigned int value) { writePlain(value); }
    void write(long value) { writePlain(value); }
    void write(uint64_t value) { writePlain(value); }
    void write(float value) { writePlain(value); }
    void write(double value) { writePlain(value); }
    void write(const MrvString& value);
    void write(const Uuid& value);
    void write(const Vector2& value);
    void write(const Vector3& value);
    void write(const Vector4& value);
    void write(const Quaternion& value);

    void read(bool& value);
    void read(char& value) { takeBytes(&value, sizeof(value)); }
    void read(unsigned char& value) { takeBytes(&value, sizeof(value)); }
    void read(short& value) { takeBytes(&value, sizeof(value)); }
    void read(unsigned short& value) { takeBytes(&value, sizeof(value)); }
    void read(int& value) { takeBytes(&value, sizeof(value)); }
    void read(unsigned int& value) { takeBytes(&value, sizeof(value)); }
    void read(long& value) { takeBytes(&value, sizeof(value)); }
    void read(uint64_t& value) { takeBytes(&value, sizeof(value)); }
    void read(float& value) { takeBytes(&value, sizeof(value)); }
    void read(double& value) { takeBytes(&value, sizeof(value)); }
    void read(MrvString& value);
    void read(Uuid& value);
    void read(Vector2& value);
    void read(Vector3& value);
    void read(Vector4& value);
    void read(Quaternion& value);

    /// An object. It is by value wherever it is not the aim of a pointer.
    template <typename T>
    void write(const T& object, bool isByValue)
    {
        writeObject(&object, object.getRTTI(), isByValue);
    }
    template <typename T>
    std::enable_if_t<internal::IsPersistentClass<T>::value> read(T& object)
    {
        readObject(&object, object.getRTTI(), 0);
    }

    /// A pointer to an object, or to a plain value, which is stored at its first occurrence.
    template <typename T>
    void write(T* pointer);
    template <typename T>
    void read(T*& pointer);

    template <typename T>
    void write(const Array<T>& array)
    {
        writeElements(array);
    }
    template <typename T>
    void read(Array<T>& array)
    {
        readElements(array);
    }
    template <typename T>
    void write(const PODArray<T>& array)
    {
        writeElements(array);
    }
    template <typename T>
    void read(PODArray<T>& array)
    {
        readElements(array);
    }
    template <typename K, typename V>
    void write(const std::pair<K, V>& pair)
    {
        writeValue(pair.first);
        writeValue(pair.second);
    }
    template <typename K, typename V>
    void read(std::pair<K, V>& pair)
    {
        readValue(pair.first);
        readValue(pair.second);
    }
    template <typename K, typename V>
    void write(const MrvMap<K, V>& map);
    template <typename K, typename V>
    void read(MrvMap<K, V>& map);
    /// @}

    /// @{
    /// Any of these, an object by value: what attributes and elements are written and read with.
    template <typename T>
    void writeValue(const T& value)
    {
        if constexpr (internal::IsPersistentClass<T>::value)
            write(value, true);
        else
            write(value);
    }
    template <typename T>
    void readValue(T& value)
    {
        read(value);
    }
    /// @}
    /// A value that is gone when its reader returns: no pointer of the graph reaches an object inside it.
    template <typename T>
    void readLocalValue(T& value)
    {
        if constexpr (internal::HoldsObjects<T>::value)
        {
            _readIdentities.enterLocalValue();
            readValue(value);
            _readIdentities.leaveLocalValue();
        }
        else
        {
            readValue(value);
        }
    }

    /// The least number of bytes of a value. A count that a file claims is held against it.
    template <typename T>
    static constexpr size_t minimumSizeOf()
    {
        return internal::MinimumBinarySize<T>::value;
    }

    /// Both passes over the graph of `object`, which stands first in what is appended to the buffer.
    template <typename T>
    void pack(const T& object);

    /// Both passes from the read position on, which is behind the bytes of the object afterwards.
    template <typename T>
    void unpack(T& object);

    /// Forgets all objects and the error state. The bytes stay.
    void clear();

private:
    struct Bytes;

    template <typename T>
    void writePlain(T value)
    {
        if (!_firstPass)
            putBytes(&value, sizeof(value));
    }
    /// `count` is not 0, here and below.
    void putBytes(const void* bytes, size_t count)
    {
        if (static_cast<size_t>(_writeEnd - _writeNext) < count)
            return putBytesSlowly(bytes, count);
        std::memcpy(_writeNext, bytes, count);
        _writeNext += count;
    }
    /// Values stay as they were where the bytes do not suffice, which is told.
    bool takeBytes(void* bytes, size_t count)
    {
        if (static_cast<size_t>(_readEnd - _readNext) < count && !hasBytes(count))
            return false;
        std::memcpy(bytes, _readNext, count);
        _readNext += count;
        return true;
    }

    template <typename Elements>
    void writeElements(const Elements& elements);
    template <typename Elements>
    void readElements(Elements& elements);

    void putBytesSlowly(const void* bytes, size_t count);
    bool hasBytes(size_t count);
    void acquireBytes();
    void releaseBytes();
    void putImportedIntoStream();
    void setFailed();
    unsigned int readCount(size_t minimumElementSize);
    bool hasBytesForObjects(size_t count, const RTTI& rtti);

    void seekRead(size_t position);

    void writeObject(const void* object, const RTTI& rtti, bool isByValue);
    void packAttributes(const void* object, const RTTI& rtti);
    /// `knownId` is the id under which the object is known already, 0 for none.
    void readObject(void* object, const RTTI& rtti, unsigned int knownId);
    void writePointer(const void* object, const RTTI& rtti);
    /// `pointer` is changed where it is known what it points at.
    void readPointer(void*& pointer, const RTTI& declared);
    /// Id and whether the value follows; `create` makes a value for a new id.
    void writePlainPointer(const void* value, const RTTI& type, bool& isValueNext);
    void readPlainPointer(void*& pointer, const RTTI& type, void* (*create)(), bool& isValueNext);
    bool agreeOnBody(bool isBodyRead);

    internal::WrittenIdentities _writtenIdentities;
    internal::ReadIdentities _readIdentities;
    /// For each pointer of the first pass, whether its body was read. The second pass must do the same:
    /// where a damaged buffer would make it go another way, it ends.
    PODArray<bool> _bodiesRead;
    size_t _nextBody = 0;
    unsigned int _depth = 0; ///< of objects inside objects

    Bytes* _bytes;
    /// The whole buffer while it has only been read since it was imported: a copy for the stream is made
    /// when someone asks for the stream.
    PODArray<char> _imported;
    bool _isImported = false;
    /// The free room and the unread part of the bytes while this class works on them directly; empty after
    /// getStream().
    char* _writeNext = nullptr;
    char* _writeEnd = nullptr;
    const char* _readNext = nullptr;
    const char* _readEnd = nullptr;
    bool _hasFailed = false;
    bool _firstPass = true;
};

template <typename T>
void BinaryStream::write(T* pointer)
{
    if constexpr (internal::IsPersistentClass<T>::value)
    {
        writePointer(pointer, pointer != nullptr ? pointer->getRTTI() : T::getClassRTTI());
    }
    else
    {
        bool isValueNext = false;
        writePlainPointer(pointer, RTTIAccessor<std::remove_const_t<T>>::getClassRTTI(), isValueNext);
        if (isValueNext)
            write(*pointer);
    }
}

template <typename T>
void BinaryStream::read(T*& pointer)
{
    using Bare = std::remove_const_t<T>;
    void* object = const_cast<Bare*>(pointer);
    if constexpr (internal::IsPersistentClass<Bare>::value)
    {
        readPointer(object, Bare::getClassRTTI());
    }
    else
    {
        bool isValueNext = false;
        readPlainPointer(
            object, RTTIAccessor<Bare>::getClassRTTI(), [] { return static_cast<void*>(new Bare()); },
            isValueNext);
        if (isValueNext)
            read(*static_cast<Bare*>(object));
    }
    pointer = static_cast<T*>(object);
}

template <typename Elements>
void BinaryStream::writeElements(const Elements& elements)
{
    using T = typename Elements::value_type;
    write(static_cast<unsigned int>(elements.size()));
    if constexpr (internal::isStoredAsBytes<T>)
    {
        if (!_firstPass && !elements.empty())
            putBytes(elements.begin(), elements.size() * sizeof(T));
    }
    else
    {
        for (const T& element : elements)
            writeValue(element);
    }
}

template <typename Elements>
void BinaryStream::readElements(Elements& elements)
{
    using T = typename Elements::value_type;
    const unsigned int count = readCount(internal::MinimumBinarySize<T>::value);
    if constexpr (internal::IsPersistentClass<T>::value)
        if (!hasBytesForObjects(count, T::getClassRTTI()))
            return;
    if (_firstPass)
    {
        elements.clear();
        if (count > elements.capacity())
            elements.set_capacity(count); // no spare room: nothing will be added
        if constexpr (std::is_trivially_destructible_v<T>)
            elements.resize(count, T());
        else
            elements.resize(count);
    }
    else if (elements.size() != count)
    {
        // The elements' addresses are known by now: they may not move.
        return setFailed();
    }
    if constexpr (internal::isStoredAsBytes<T>)
    {
        if (count != 0)
            takeBytes(elements.begin(), count * sizeof(T));
    }
    else
    {
        for (T& element : elements)
            readValue(element);
    }
}

template <typename K, typename V>
void BinaryStream::write(const MrvMap<K, V>& map)
{
    write(static_cast<unsigned int>(map.size()));
    for (auto entry = map.begin(); entry != map.end(); ++entry)
    {
        writeValue(entry.getKey());
        writeValue(entry.getValue());
    }
}

template <typename K, typename V>
void BinaryStream::read(MrvMap<K, V>& map)
{
    const unsigned int count = readCount(internal::MinimumBinarySize<std::pair<K, V>>::value);
    if (_firstPass)
        map.clear();
    for (unsigned int i = 0; i < count && !hasFailed(); ++i)
    {
        K key = K();
        readLocalValue(key);
        const size_t formerSize = map.size();
        V& value = map[key];
        // Reading a list again would empty it, and objects in it are known by now.
        if (_firstPass && internal::HoldsObjects<V>::value && map.size() == formerSize &&
            !_readIdentities.beginAgain())
            return setFailed();
        readValue(value);
    }
}

template <typename T>
void BinaryStream::pack(const T& object)
{
    write(object, true);
    setFirstPass(false);
    write(object, true);
    setFirstPass(true);
}

template <typename T>
void BinaryStream::unpack(T& object)
{
    const size_t position = getPosition();
    read(object);
    setFirstPass(false);
    seekRead(position);
    read(object);
    setFirstPass(true);
}

} // namespace mrv
