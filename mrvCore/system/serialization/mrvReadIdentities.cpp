// mrvCore/system/serialization/mrvReadIdentities.cpp
#include "mrvCore/system/serialization/mrvReadIdentities.h"

#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace mrv::internal {

namespace {

// Of values that no second pass finds again.
constexpr uint32_t unknownScope = ~uint32_t(0);

} // namespace

ReadIdentities::~ReadIdentities()
{
    clear();
    for (; _nextValue < _values.size(); ++_nextValue)
        if (_values[_nextValue].attribute != nullptr)
            _values[_nextValue].attribute->deleteValue(_values[_nextValue].value);
}

// The ids of a good file count its objects, so that a table serves nearly all of them. It grows with the
// objects that are there, not with what an id claims.
ReadIdentities::Object& ReadIdentities::touch(uint32_t id)
{
    ++_touches;
    const BlockPlace place = placeOf(id);
    Object*& block = _blocks[place.block];
    if (block == nullptr)
    {
        if (id >= 4 * _touches + 64)
            return _strangeObjects.touch(id);
        // Cleared by the system as it is used: half of the last block may never be.
        block = static_cast<Object*>(std::calloc(place.blockSize, sizeof(Object)));
        if (block == nullptr)
            throw std::bad_alloc();
    }
    Object& entry = block[place.index];
    if (!entry.isMet())
        if (const Object* strange = _strangeObjects.find(id)) // met when there was no block for it
            entry = *strange;
    return entry;
}

uint32_t ReadIdentities::numberOf(const RTTI& type)
{
    if (_lastType != 0 && _types[_lastType - 1] == &type)
        return _lastType;
    uint32_t& number = _typeNumbers.touch(reinterpret_cast<uintptr_t>(&type));
    if (number == 0)
    {
        _types.push_back(&type);
        number = static_cast<uint32_t>(_types.size());
    }
    return _lastType = number;
}

uint32_t ReadIdentities::getPlace()
{
    if (_place != 0)
        return _place;
    const uint32_t scope = _scopes.any() ? _scopes.back().scope : 0;
    if (_container == 0 && scope == 0)
        return _place = _nowhere;
    _places.push_back({ _container, scope });
    return _place = static_cast<uint32_t>(_places.size()) - 1 + _firstPlace;
}

const RTTI* ReadIdentities::findType(uint32_t id, const Object& entry, const RTTI& type)
{
    const RTTI* const own = typeOf(entry);
    if (own == &type || own->isDerivedFrom(type))
        return own;
    for (uint32_t alias = entry.hasAliases() ? _firstAliases.touch(id) : 0; alias != 0;
         alias = _aliases[alias - 1].next)
        if (_aliases[alias - 1].type->isDerivedFrom(type))
            return _aliases[alias - 1].type;
    return nullptr;
}

// A value inside a replaced instance, or inside a waiting value that is not being read now, is no aim for a
// pointer: it will be gone.
bool ReadIdentities::isVisible(const Object& entry)
{
    if (entry.isCreated() || entry.place == _nowhere)
        return true;
    const Surroundings around = _places[entry.place - _firstPlace];
    if (around.container != 0 && _isReplaced[around.container - 1])
        return false;
    if (around.scope == 0 || around.scope == unknownScope)
        return around.scope == 0;
    for (const Scope& open : _scopes)
        if (open.scope == around.scope)
            return true;
    return false;
}

void ReadIdentities::addValue(uint32_t id, void* object, const RTTI& type)
{
    if (id == 0)
        return; // null's
    Object& entry = touch(id);
    if (entry.object == object)
    {
        // An object and its first member share their address and so their id.
        if (findType(id, entry, type) == nullptr)
        {
            uint32_t& first = _firstAliases.touch(id);
            _aliases.push_back({ &type, entry.hasAliases() ? first : 0 });
            first = static_cast<uint32_t>(_aliases.size());
            entry.type |= _aliasMark;
        }
        return;
    }
    if (entry.isCreated())
    {
        _isReplaced[(entry.place & ~_createdMark) - 1] = true;
        _replaced.push_back({ entry.object, typeOf(entry) });
    }
    else if (entry.object != nullptr && isVisible(entry))
        _isDamaged = true; // two values under one id
    entry = { object, getPlace(), numberOf(type) };
}

uint32_t ReadIdentities::addCreated(uint32_t id, void* object, const RTTI* type)
{
    Object& entry = touch(id);
    entry = { nullptr, _nowhere, 0 };
    if (object == nullptr)
        return 0;
    _isReplaced.push_back(false);
    const uint32_t number = static_cast<uint32_t>(_isReplaced.size());
    entry = { object, number | _createdMark, numberOf(*type) };
    return number;
}

ReadIdentities::Found ReadIdentities::find(uint32_t id, const RTTI& type)
{
    const Object* entry = id != 0 ? findObject(id) : nullptr;
    if (entry == nullptr || entry->object == nullptr)
        return Found();
    const RTTI* found = isVisible(*entry) ? findType(id, *entry, type) : nullptr;
    if (found != nullptr)
        return { entry->object, found };
    _isDamaged = true;
    return Found();
}

void ReadIdentities::pushValue(void* value, const AbstractAttribute* attribute)
{
    _values.push_back({ value, attribute });
    enterScope(static_cast<uint32_t>(_values.size()));
}

void ReadIdentities::enterScope(uint32_t scope)
{
    _scopes.push_back({ scope, _place });
    _place = 0;
}

void* ReadIdentities::popValue(const AbstractAttribute* attribute)
{
    if (_nextValue < _values.size() && _values[_nextValue].attribute == attribute)
    {
        void* const value = _values[_nextValue++].value;
        enterScope(static_cast<uint32_t>(_nextValue));
        return value;
    }
    noteUnmet(attribute);
    enterScope(unknownScope);
    return nullptr;
}

void ReadIdentities::noteUnmet(const AbstractAttribute* attribute)
{
    MRV_LOG_LIMITED(SDK, LOG_WARNING,
                    "The second reading of attribute " << (attribute != nullptr ? attribute->getName() : "")
                                                       << " met what the first one did not");
    _isDamaged = true;
}

void ReadIdentities::pushBytes(const void* value, size_t size, const AbstractAttribute* attribute)
{
    const char* const name = reinterpret_cast<const char*>(&attribute);
    _bytes.insert(_bytes.end(), name, name + sizeof(attribute));
    const char* const bytes = static_cast<const char*>(value);
    _bytes.insert(_bytes.end(), bytes, bytes + size);
}

void ReadIdentities::popBytes(void* value, size_t size, const AbstractAttribute* attribute)
{
    const AbstractAttribute* owner = nullptr;
    const bool isThere = _bytes.size() - _nextByte >= sizeof(owner) + size;
    if (isThere)
        std::memcpy(&owner, _bytes.begin() + _nextByte, sizeof(owner));
    if (!isThere || owner != attribute)
        return noteUnmet(attribute);
    std::memcpy(value, _bytes.begin() + _nextByte + sizeof(owner), size);
    _nextByte += sizeof(owner) + size;
}

bool ReadIdentities::beginContainer(const void* container)
{
    // Whatever lies in a local value has an address that others get later.
    if (_localValues != 0)
        return true;
    bool& isRead = _containers.touch(reinterpret_cast<uintptr_t>(container));
    if (isRead)
        return beginAgain();
    isRead = true;
    return true;
}

bool ReadIdentities::beginAgain()
{
    if (_localValues != 0)
        return true;
    MRV_LOG_LIMITED(SDK, LOG_WARNING, "A list of objects is stored twice at one place");
    _isDamaged = true;
    return false;
}

void ReadIdentities::enterLocalValue()
{
    enterScope(unknownScope);
    ++_localValues;
}

void ReadIdentities::leaveLocalValue()
{
    leaveValue();
    --_localValues;
}

void ReadIdentities::finish()
{
    if (_isDamaged)
        return;
    for (const Replaced& replaced : _replaced)
        replaced.type->destroyInstance(replaced.object);
    _replaced.clear();
}

void ReadIdentities::clear()
{
    for (Object*& block : _blocks)
    {
        std::free(block);
        block = nullptr;
    }
    _touches = 0;
    _strangeObjects.clear();
    _types.clear();
    _typeNumbers.clear();
    _lastType = 0;
    _aliases.clear();
    _firstAliases.clear();
    _places.clear();
    _place = 0;
    _container = 0;
    _isReplaced.clear();
    _replaced.clear();
    _bytes.clear();
    _nextByte = 0;
    _scopes.clear();
    _localValues = 0;
    _containers.clear();
    _isDamaged = false;
}

} // namespace mrv::internal
