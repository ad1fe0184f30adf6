// mrvCore/system/serialization/mrvReadIdentities.cpp
#include "mrvCore/system/serialization/mrvReadIdentities.h"

#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <cstdlib>
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
    const Place place = placeOf(id);
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

ReadIdentities::Details& ReadIdentities::touchDetails(Object& entry)
{
    if (entry.details == 0)
    {
        _details.push_back(Details());
        entry.details = static_cast<uint32_t>(_details.size());
    }
    return _details[entry.details - 1];
}

const RTTI* ReadIdentities::findType(const Object& entry, const RTTI& type) const
{
    if (entry.type == &type || entry.type->isDerivedFrom(type))
        return entry.type;
    for (uint32_t alias = detailsOf(entry).firstAlias; alias != 0; alias = _aliases[alias - 1].next)
        if (_aliases[alias - 1].type->isDerivedFrom(type))
            return _aliases[alias - 1].type;
    return nullptr;
}

// A value inside a replaced instance, or inside a waiting value that is not being read now, is no aim for a
// pointer: it will be gone.
bool ReadIdentities::isVisible(const Object& entry) const
{
    if (entry.holder >= _firstPlace && !entry.isCreated() && _created[entry.holder - _firstPlace].isReplaced)
        return false;
    const uint32_t scope = detailsOf(entry).scope;
    return scope == 0 || (scope != unknownScope && _scopes.find(scope) != _scopes.end());
}

void ReadIdentities::addValue(uint32_t id, void* object, const RTTI& type)
{
    if (id == 0)
        return; // null's
    Object& entry = touch(id);
    if (entry.object == object)
    {
        // An object and its first member share their address and so their id.
        if (findType(entry, type) == nullptr)
        {
            Details& details = touchDetails(entry);
            _aliases.push_back({ &type, details.firstAlias });
            details.firstAlias = static_cast<uint32_t>(_aliases.size());
        }
        return;
    }
    if (entry.isCreated())
        createdOf(entry).isReplaced = true;
    else if (entry.object != nullptr && isVisible(entry))
        _isDamaged = true; // two values under one id
    entry = { object, &type, _container, 0 };
    if (!_scopes.empty())
        touchDetails(entry).scope = _scopes.back();
}

uint32_t ReadIdentities::addCreated(uint32_t id, void* object, const RTTI* type)
{
    Object& entry = touch(id);
    entry = { nullptr, nullptr, _nowhere, 0 };
    if (object == nullptr)
        return 0;
    const uint32_t number = static_cast<uint32_t>(_created.size()) + _firstPlace;
    entry = { object, type, number | _createdMark, 0 };
    _created.push_back({ object, type, false });
    return number;
}

ReadIdentities::Found ReadIdentities::find(uint32_t id, const RTTI& type)
{
    const Object* entry = id != 0 ? findObject(id) : nullptr;
    if (entry == nullptr || entry->object == nullptr)
        return Found();
    const RTTI* found = isVisible(*entry) ? findType(*entry, type) : nullptr;
    if (found != nullptr)
        return { entry->object, found };
    _isDamaged = true;
    return Found();
}

void ReadIdentities::pushValue(void* value, const AbstractAttribute* attribute)
{
    const uint32_t scope = static_cast<uint32_t>(_values.size() + 1);
    _values.push_back({ value, attribute, scope });
    _scopes.push_back(scope);
}

void* ReadIdentities::popValue(const AbstractAttribute* attribute)
{
    if (_nextValue < _values.size() && _values[_nextValue].attribute == attribute)
    {
        const WaitingValue& waiting = _values[_nextValue++];
        _scopes.push_back(waiting.scope);
        return waiting.value;
    }
    MRV_LOG_LIMITED(SDK, LOG_WARNING,
                    "The second reading of attribute " << (attribute != nullptr ? attribute->getName() : "")
                                                       << " met what the first one did not");
    _isDamaged = true;
    _scopes.push_back(unknownScope);
    return nullptr;
}

bool ReadIdentities::beginContainer(const void* container)
{
    // Whatever lies in a local value has an address that others get later.
    if (_localValues != 0)
        return true;
    bool& isRead = _containers.touch(reinterpret_cast<uintptr_t>(container));
    if (isRead)
    {
        MRV_LOG_LIMITED(SDK, LOG_WARNING, "A list of objects is stored twice at one place");
        _isDamaged = true;
        return false;
    }
    isRead = true;
    return true;
}

void ReadIdentities::enterLocalValue()
{
    _scopes.push_back(unknownScope);
    ++_localValues;
}

void ReadIdentities::leaveLocalValue()
{
    _scopes.pop_back();
    --_localValues;
}

void ReadIdentities::finish()
{
    if (_isDamaged)
        return;
    for (Created& created : _created)
    {
        if (!created.isReplaced)
            continue;
        created.type->destroyInstance(created.object);
        created.isReplaced = false;
    }
}

void ReadIdentities::clear()
{
    for (Object*& block : _blocks)
    {
        std::free(block);
        block = nullptr;
    }
    _details.clear();
    _touches = 0;
    _strangeObjects.clear();
    _aliases.clear();
    _created.clear();
    _scopes.clear();
    _localValues = 0;
    _containers.clear();
    _container = _nowhere;
    _isDamaged = false;
}

} // namespace mrv::internal
