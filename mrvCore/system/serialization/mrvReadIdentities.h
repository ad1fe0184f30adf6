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
            _container = number;
        return former;
    }
    void leaveCreated(uint32_t former) { _container = former; }

    /// First pass: the value waits for the second one. Until leaveValue its content is read.
    void pushValue(void* value, const AbstractAttribute* attribute);

    /// Second pass: the oldest value, which must be of this attribute; null if it is not, or if there is
    /// none. Until leaveValue its content is read. Owned by the caller.
    void* popValue(const AbstractAttribute* attribute);
    void leaveValue() { _scopes.pop_back(); }

    /// First pass: a container of objects is about to be emptied and read. False, with a warning, if that was
    /// done before: what was registered inside would be gone.
    bool beginContainer(const void* container);

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
        const RTTI* type;
        uint32_t holder;  ///< place in _created plus _firstPlace: of the instance in which a value lies, or,
                          ///< marked by _createdMark, of this instance itself; _nowhere for none
        uint32_t details; ///< place in _details plus 1, 0 for none

        bool isMet() const { return holder != 0; }
        bool isCreated() const { return (holder & _createdMark) != 0; }
    };
    /// Of the few objects that need it.
    struct Details
    {
        uint32_t firstAlias = 0; ///< further types at the same address: place in _aliases plus 1
        uint32_t scope = 0;      ///< waiting value in which a value lies, 0 for none
    };
    struct Alias
    {
        const RTTI* type;
        uint32_t next;
    };
    struct Created
    {
        void* object;
        const RTTI* type;
        bool isReplaced;
    };
    struct WaitingValue
    {
        void* value;
        const AbstractAttribute* attribute;
        uint32_t scope;
    };

    static constexpr uint32_t _nowhere = 1;
    static constexpr uint32_t _firstPlace = 2;
    static constexpr uint32_t _createdMark = uint32_t(1) << 31;
    static constexpr uint32_t _firstBlockBits = 6;

    struct Place
    {
        uint32_t block;
        uint32_t blockSize;
        uint32_t index;
    };
    /// Block 0 has the first ids, and each further one as many as all before it.
    static Place placeOf(uint32_t id)
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
        const Place place = placeOf(id);
        const Object* const block = _blocks[place.block];
        return block != nullptr && block[place.index].isMet() ? block + place.index
                                                              : _strangeObjects.find(id);
    }
    Object& touch(uint32_t id);
    Created& createdOf(const Object& entry) { return _created[(entry.holder & ~_createdMark) - _firstPlace]; }
    Details& touchDetails(Object& entry);
    Details detailsOf(const Object& entry) const
    {
        return entry.details != 0 ? _details[entry.details - 1] : Details();
    }
    const RTTI* findType(const Object& entry, const RTTI& type) const;
    bool isVisible(const Object& entry) const;

    Object* _blocks[33 - _firstBlockBits] = {}; ///< by id, each as large as all before it
    PODArray<Details> _details;
    size_t _touches = 0;
    FlatMap<Object> _strangeObjects; ///< those of ids far beyond the number of objects
    PODArray<Alias> _aliases;
    PODArray<Created> _created;
    PODArray<WaitingValue> _values;
    size_t _nextValue = 0; ///< of _values, in the second pass
    PODArray<uint32_t> _scopes;
    unsigned int _localValues = 0;  ///< of _scopes, those of local values
    FlatMap<bool> _containers;      ///< addresses of those that the first pass has read
    uint32_t _container = _nowhere; ///< as Object::holder
    bool _isDamaged = false;
};

} // namespace internal
} // namespace mrv
