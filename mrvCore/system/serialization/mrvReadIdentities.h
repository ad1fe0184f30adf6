// mrvCore/system/serialization/mrvReadIdentities.h
// Which object stands behind each id that a stream reads, safe on whatever the file claims.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/serialization/mrvFlatMap.h"

#include <cstdint>

namespace mrv {

class AbstractAttribute;
class RTTI;

namespace internal {

/// The identities of one graph while it is read, and the values that wait between the two passes.
///
/// The first pass registers objects under their ids, the second one finds them. An id only gives an object
/// whose type derives from the one asked for, so that a damaged file cannot make a pointer of one type
/// point at an object of another.
///
/// An instance that was made for a pointer, and then turns out to be held by value, is replaced by the
/// value. It is deleted at the end of the second pass, when every pointer has been set anew; after a damage
/// it is left alone, as it may be pointed at.
class MRV_CORE_API ReadIdentities
{
public:
    ReadIdentities() = default;
    ~ReadIdentities();
    ReadIdentities(const ReadIdentities&) = delete;
    ReadIdentities& operator=(const ReadIdentities&) = delete;

    /// True for null's id 0 and for every id registered, be it as a null.
    bool contains(uint32_t id) { return id == 0 || findObject(id) != nullptr; }

    /// Registers an object that is held by value.
    void addValue(uint32_t id, void* object, const RTTI& type);

    /// Registers an instance made for a pointer, or null where none could be made. Returns the instance's
    /// number, 0 for null.
    uint32_t addCreated(uint32_t id, void* object, const RTTI* type);

    /// What stands behind an id.
    struct Found
    {
        void* object = nullptr;
        const RTTI* type = nullptr; ///< the object's own type, which derives from the one asked for
    };

    /// The object behind an id, null if there is none of this type.
    Found find(uint32_t id, const RTTI& type);

    /// First pass: between these two the body of the instance of that number is read.
    uint32_t enterCreated(uint32_t number)
    {
        const uint32_t former = _container;
        if (number != 0)
            leaveCreated(number);
        return former;
    }
    void leaveCreated(uint32_t former)
    {
        if (former != _container)
            _place = 0;
        _container = former;
    }

    /// First pass: the value waits for the second one. Until leaveValue its content is read.
    void pushValue(void* value, const AbstractAttribute* attribute);

    /// Second pass: the oldest value, which must be of this attribute; null if it is not, or if there is
    /// none. Until leaveValue its content is read. Owned by the caller.
    void* popValue(const AbstractAttribute* attribute);
    void leaveValue()
    {
        _place = _scopes.back().formerPlace;
        _scopes.pop_back();
    }

    /// The same for values without objects inside, which wait as their bytes. Without bytes of the attribute
    /// the value stays as it was.
    void pushBytes(const void* value, size_t size, const AbstractAttribute* attribute);
    void popBytes(void* value, size_t size, const AbstractAttribute* attribute);

    /// First pass: a container of objects is about to be emptied and read. False, with a warning, if that was
    /// done before: what was registered inside would be gone.
    bool beginContainer(const void* container);

    /// The same for a reader that knows by itself that it is at one place again.
    bool beginAgain();

    /// Between these two a value is read that is gone afterwards. No pointer reaches an object inside it.
    void enterLocalValue();
    void leaveLocalValue();

    /// Notes that the file contradicts itself.
    void setDamaged() { _isDamaged = true; }

    /// Ends the second pass.
    void finish();

    void clear();

private:
    /// Small, since a file has as many as objects, and they are most of what a load needs beside the result.
    /// All 0 for an id that was not met.
    struct Object
    {
        void* object;
        uint32_t place; ///< where a value lies: _nowhere, or place in _places plus _firstPlace; of an
                        ///< instance made for a pointer its number, marked by _createdMark
        uint32_t type;  ///< place in _types plus 1; marked by _aliasMark if there are further types

        bool isMet() const { return place != 0; }
        bool isCreated() const { return (place & _createdMark) != 0; }
        bool hasAliases() const { return (type & _aliasMark) != 0; }
    };
    /// In what values lie.
    struct Surroundings
    {
        uint32_t container; ///< number of the instance, 0 for none
        uint32_t scope;     ///< the waiting value, 0 for none
    };
    struct Alias
    {
        const RTTI* type;
        uint32_t next;
    };
    struct Replaced
    {
        void* object;
        const RTTI* type;
    };
    struct WaitingValue
    {
        void* value;
        const AbstractAttribute* attribute;
    };
    struct Scope
    {
        uint32_t scope;
        uint32_t formerPlace;
    };

    static constexpr uint32_t _nowhere = 1;
    static constexpr uint32_t _firstPlace = 2;
    static constexpr uint32_t _createdMark = uint32_t(1) << 31;
    static constexpr uint32_t _aliasMark = uint32_t(1) << 31;
    static constexpr uint32_t _firstBlockBits = 6;

    struct BlockPlace
    {
        uint32_t block;
        uint32_t blockSize;
        uint32_t index;
    };
    /// Block 0 has the first ids, and each further one as many as all before it.
    static BlockPlace placeOf(uint32_t id)
    {
        if (id >> _firstBlockBits == 0)
            return { 0, uint32_t(1) << _firstBlockBits, id };
        const uint32_t bits = 31 - static_cast<uint32_t>(__builtin_clz(id));
        const uint32_t blockSize = uint32_t(1) << bits;
        return { bits - _firstBlockBits + 1, blockSize, id - blockSize };
    }

    /// Null for an id that was not met.
    const Object* findObject(uint32_t id)
    {
        const BlockPlace place = placeOf(id);
        const Object* const block = _blocks[place.block];
        return block != nullptr && block[place.index].isMet() ? block + place.index
                                                              : _strangeObjects.find(id);
    }
    Object& touch(uint32_t id);
    const RTTI* typeOf(const Object& entry) const { return _types[(entry.type & ~_aliasMark) - 1]; }
    uint32_t numberOf(const RTTI& type);
    uint32_t getPlace();
    void enterScope(uint32_t scope);
    void noteUnmet(const AbstractAttribute* attribute);
    const RTTI* findType(uint32_t id, const Object& entry, const RTTI& type);
    bool isVisible(const Object& entry);

    Object* _blocks[33 - _firstBlockBits] = {}; ///< by id, each as large as all before it
    size_t _touches = 0;
    FlatMap<Object> _strangeObjects; ///< those of ids far beyond the number of objects
    PODArray<const RTTI*> _types;
    FlatMap<uint32_t> _typeNumbers; ///< from their addresses to Object::type
    uint32_t _lastType = 0;         ///< the number asked for last, 0 for none
    PODArray<Alias> _aliases;
    FlatMap<uint32_t> _firstAliases; ///< by id, place in _aliases plus 1
    PODArray<Surroundings> _places;
    uint32_t _place = 0;            ///< as Object::place, of what is read now; 0 until it is needed
    uint32_t _container = 0;        ///< as Surroundings::container
    PODArray<bool> _isReplaced;     ///< by number of instance, from 1
    PODArray<Replaced> _replaced;   ///< until they are deleted
    PODArray<WaitingValue> _values; ///< the scope of each is its place plus 1
    size_t _nextValue = 0;          ///< of _values, in the second pass
    PODArray<char> _bytes;          ///< of the values without objects, each behind its attribute's address
    size_t _nextByte = 0;           ///< of _bytes, in the second pass
    PODArray<Scope> _scopes;
    unsigned int _localValues = 0; ///< of _scopes, those of local values
    FlatMap<bool> _containers;     ///< addresses of those that the first pass has read
    bool _isDamaged = false;
};

} // namespace internal
} // namespace mrv
