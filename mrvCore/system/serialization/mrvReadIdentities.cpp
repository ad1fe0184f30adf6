// mrvCore/system/serialization/mrvReadIdentities.cpp
#include "mrvCore/system/serialization/mrvReadIdentities.h"

#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvLogMacros.h"

namespace mrv::internal {

namespace {

// Of values that no second pass finds again.
constexpr uint32_t unknownScope = ~uint32_t(0);

} // namespace

ReadIdentities::~ReadIdentities()
{
    for (; _nextValue < _values.size(); ++_nextValue)
        if (_values[_nextValue].attribute != nullptr)
            _values[_nextValue].attribute->deleteValue(_values[_nextValue].value);
}

// The ids of a good file count its objects, so that a table serves nearly all of them. It grows with the
// objects that are there, not with what an id claims.
ReadIdentities::Object& ReadIdentities::touch(uint32_t id)
{
    ++_touches;
    if (id >= _objects.size() && id < 4 * _touches + 64)
        _objects.resize(id < 2 * _objects.size() ? 2 * _objects.size() : id + size_t(1), Object());
    if (id >= _objects.size())
        return _strangeObjects.touch(id);
    if (!_objects[id].isKnown)
        if (const Object* strange = _strangeObjects.find(id)) // met when the table was shorter
            _objects[id] = *strange;
    return _objects[id];
}

const ReadIdentities::Object* ReadIdentities::findObject(uint32_t id)
{
    if (id < _objects.size() && _objects[id].isKnown)
        return &_objects[id];
    return _strangeObjects.find(id);
}

const RTTI* ReadIdentities::findType(const Object& entry, const RTTI& type) const
{
    if (entry.type == &type || entry.type->isDerivedFrom(type))
        return entry.type;
    for (uint32_t alias = entry.firstAlias; alias != 0; alias = _aliases[alias - 1].next)
        if (_aliases[alias - 1].type->isDerivedFrom(type))
            return _aliases[alias - 1].type;
    return nullptr;
}

// A value inside a replaced instance, or inside a waiting value that is not being read now, is no aim for a
// pointer: it will be gone.
bool ReadIdentities::isVisible(const Object& entry) const
{
    if (entry.container != 0 && _created[entry.container - 1].isReplaced)
        return false;
    return entry.scope == 0 || (entry.scope != unknownScope && _scopes.find(entry.scope) != _scopes.end());
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
            _aliases.push_back({ &type, entry.firstAlias });
            entry.firstAlias = static_cast<uint32_t>(_aliases.size());
        }
        return;
    }
    if (entry.created != 0)
        _created[entry.created - 1].isReplaced = true;
    else if (entry.object != nullptr && isVisible(entry))
        _isDamaged = true; // two values under one id
    entry = Object();
    entry.isKnown = true;
    entry.object = object;
    entry.type = &type;
    entry.container = _container;
    entry.scope = _scopes.empty() ? 0 : _scopes.back();
}

void ReadIdentities::addCreated(uint32_t id, void* object, const RTTI* type)
{
    Object& entry = touch(id);
    entry = Object();
    entry.isKnown = true;
    if (object == nullptr)
        return;
    _created.push_back({ object, type, false });
    entry.object = object;
    entry.type = type;
    entry.created = static_cast<uint32_t>(_created.size());
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

uint32_t ReadIdentities::enterCreated(uint32_t id)
{
    const uint32_t former = _container;
    const Object* entry = findObject(id);
    if (entry != nullptr && entry->created != 0)
        _container = entry->created;
    return former;
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
    _objects.clear();
    _strangeObjects.clear();
    _aliases.clear();
    _created.clear();
    _scopes.clear();
    _localValues = 0;
    _containers.clear();
    _container = 0;
    _isDamaged = false;
}

} // namespace mrv::internal
