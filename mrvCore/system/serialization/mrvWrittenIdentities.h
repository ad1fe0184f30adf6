// mrvCore/system/serialization/mrvWrittenIdentities.h
// Which id each object has that a stream writes, and whose content is still to be written.
#pragma once

#include "mrvCore/system/serialization/mrvFlatMap.h"

#include <cstdint>

namespace mrv {

class RTTI;

namespace internal {

/// The identities of one graph while it is written. Null has the id 0, the first object 1.
///
/// An object that was reached through a pointer is pending until its content is written, or until it turns
/// out to be held by value somewhere.
class WrittenIdentities
{
public:
    /// Gives the object the next id, unless it has one. Returns whether it is new.
    bool add(const void* object)
    {
        const size_t count = _objects.size();
        Object& entry = _objects.touch(keyOf(object));
        if (_objects.size() == count)
            return false;
        entry.id = static_cast<uint32_t>(_objects.size());
        return true;
    }

    /// The id of an object, 0 for null and for an object that has none.
    uint32_t getId(const void* object)
    {
        const Object* entry = object != nullptr ? _objects.find(keyOf(object)) : nullptr;
        return entry != nullptr ? entry->id : 0;
    }

    /// Marks the content of an object of this type, which has an id, as still to be written.
    void setPending(const void* object, const RTTI& type) { _objects.touch(keyOf(object)).pending = &type; }

    /// Takes the mark back. Returns whether there was one. A member at the address of its owner has the
    /// owner's id; the type tells the two apart.
    bool takePending(const void* object, const RTTI& type)
    {
        Object* entry = _objects.find(keyOf(object));
        if (entry == nullptr || entry->pending != &type)
            return false;
        entry->pending = nullptr;
        return true;
    }

    /// The same for whatever type is marked at the address.
    bool takePending(const void* object)
    {
        Object* entry = _objects.find(keyOf(object));
        if (entry == nullptr || entry->pending == nullptr)
            return false;
        entry->pending = nullptr;
        return true;
    }

    bool isPending(const void* object)
    {
        const Object* entry = _objects.find(keyOf(object));
        return entry != nullptr && entry->pending != nullptr;
    }

    void clear() { _objects.clear(); }

private:
    struct Object
    {
        uint32_t id = 0;
        const RTTI* pending = nullptr;
    };

    static uint64_t keyOf(const void* object) { return reinterpret_cast<uintptr_t>(object); }

    FlatMap<Object> _objects;
};

} // namespace internal
} // namespace mrv
