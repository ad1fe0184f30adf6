// mrvCore/system/inspection/mrvAttributeIndex.cpp
#include "mrvCore/system/inspection/mrvAttributeIndex.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <cstdint>
#include <cstring>

namespace mrv {

namespace {

// FNV-1a of 32 bits (Fowler, Noll, Vo, 1991).
uint32_t hashOf(const char* text)
{
    uint32_t hash = 2166136261u;
    for (; *text != '\0'; ++text)
        hash = (hash ^ static_cast<unsigned char>(*text)) * 16777619u;
    return hash;
}

void appendBasesFirst(const RTTI& record, PODArray<const AbstractAttribute*>& attributes)
{
    for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
        appendBasesFirst(record.getBaseClassRTTI(i), attributes);
    for (const AbstractAttribute* own : record.getOwnAttributes())
        attributes.push_back(own);
}

void appendOwnFirst(const RTTI& record, PODArray<const AbstractAttribute*>& attributes)
{
    for (const AbstractAttribute* own : record.getOwnAttributes())
        attributes.push_back(own);
    for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
        appendOwnFirst(record.getBaseClassRTTI(i), attributes);
}

} // namespace

AttributeIndex::AttributeIndex(const RTTI& record)
{
    appendBasesFirst(record, _attributes);
    size_t slotCount = 4;
    while (slotCount < 2 * _attributes.size())
        slotCount *= 2;
    _slots.resize(slotCount, _none);
    _isFoundByName.resize(_attributes.size(), 0);

    // Names are entered in the order in which a walk over the class and its bases would meet them, so that
    // the first of a name wins.
    PODArray<const AbstractAttribute*> walk;
    appendOwnFirst(record, walk);
    for (const AbstractAttribute* attribute : walk)
        insert(static_cast<unsigned int>(_attributes.find(attribute) - _attributes.begin()));
}

void AttributeIndex::insert(unsigned int index)
{
    const char* name = _attributes[index]->getName();
    const size_t mask = _slots.size() - 1;
    size_t slot = hashOf(name) & mask;
    for (; _slots[slot] != _none; slot = (slot + 1) & mask)
        if (std::strcmp(_attributes[_slots[slot]]->getName(), name) == 0)
        {
            _hasUniqueNames = false;
            return;
        }
    _slots[slot] = index;
    // A character that a blank kept alive is not kept a second time: such a name does not find itself.
    MrvString identifier(name);
    alphaNumerizeName(identifier);
    _isFoundByName[index] = identifier == name;
}

const AbstractAttribute* AttributeIndex::find(const char* name, unsigned int& hint) const
{
    if (hint < getCount() && _isFoundByName[hint] && std::strcmp(_attributes[hint]->getName(), name) == 0)
        return _attributes[hint++];
    char identifier[128];
    const size_t length = std::strlen(name);
    if (length < sizeof(identifier))
    {
        alphaNumerizeNameWithCopy(name, identifier);
        return findByHash(identifier, hint);
    }
    MrvString longIdentifier(name);
    alphaNumerizeName(longIdentifier);
    return findByHash(longIdentifier.c_str(), hint);
}

const AbstractAttribute* AttributeIndex::findByHash(const char* identifier, unsigned int& hint) const
{
    const size_t mask = _slots.size() - 1;
    for (size_t slot = hashOf(identifier) & mask; _slots[slot] != _none; slot = (slot + 1) & mask)
    {
        const AbstractAttribute* attribute = _attributes[_slots[slot]];
        if (std::strcmp(attribute->getName(), identifier) == 0)
        {
            hint = _slots[slot] + 1;
            return attribute;
        }
    }
    return nullptr;
}

} // namespace mrv
