// mrvCore/system/inspection/mrvRTTI.cpp
#include "mrvCore/system/inspection/mrvRTTI.h"

#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvStaticString.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/debug/mrvDebugging.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvAttributeIndex.h"
#include "mrvCore/system/inspection/mrvRTTIConcat.h"
#include "mrvCore/system/inspection/mrvRTTICreator.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <cstring>

namespace mrv {

TypeIDToIRTTICreator* RTTI::_rttiFactory = nullptr;
TypeNameToTypeIDMAP* RTTI::_typeNameToTypeID = nullptr;
TypeIDToRTTIMap* RTTI::_typeIDToRTTI = nullptr;

namespace {

// While classes are registered there are no indices, and a change has nothing to drop.
std::atomic<bool> s_hasAttributeIndices{ false };

[[noreturn]] void endOnTwoNames(const TypeID& typeID, const char* name, const char* registeredName)
{
    const MrvString text = MrvString("Type ID ") + typeID.getString() +
                           " trying to register with the TypeName : " + name +
                           " is already registered with a different TypeName : " + registeredName;
    printErrorMessage(text.c_str());
    if (getLog() != nullptr && getLog()->mustLog(Log::SDK, Log::LOG_ERROR))
        getLog()->trace(Log::SDK, Log::LOG_ERROR, text.c_str(), __FILE__, __LINE__, __func__);
    fatalEnd();
}

} // namespace

RTTI* RTTI::checkBeforeCreate(const TypeID& typeID, const char* name)
{
    const auto found = _typeIDToRTTI->find(typeID);
    if (found == _typeIDToRTTI->end())
        return nullptr;
    const RTTI* record = found.getValue();
    const char* storedName = RTTIConcat(name);
    if (std::strcmp(storedName, record->_typeName) != 0)
        endOnTwoNames(typeID, storedName, record->_typeName);
    return const_cast<RTTI*>(record);
}

RTTI* RTTI::create(const TypeID& typeID, const char* name, IRTTICreator* creator)
{
    MRV_ASSERT(!typeID.isNull(), "TypeID is NULL for RTTI %s", name != nullptr ? name : "");
    MRV_ASSERT(name != 0, "Name is NULL for RTTI %s", typeID.getString().c_str());

    RTTI* record = new RTTI();
    record->_typeID = typeID;
    record->_typeName = RTTIConcat(name);
    // Two identities under one name are let through: look-ups by name answer with the first.
    _typeNameToTypeID->insert(MrvStaticString(record->_typeName), typeID);
    _typeIDToRTTI->insert(typeID, record);
    (*_rttiFactory)[typeID] = creator;
    record->_creator = creator;
    return record;
}

void RTTI::allocateStaticRTTIs()
{
    _rttiFactory = new TypeIDToIRTTICreator();
    _typeNameToTypeID = new TypeNameToTypeIDMAP();
    _typeIDToRTTI = new TypeIDToRTTIMap();
}

void RTTI::deallocateStaticRTTIs()
{
    delete _rttiFactory;
    delete _typeNameToTypeID;
    delete _typeIDToRTTI;
    _rttiFactory = nullptr;
    _typeNameToTypeID = nullptr;
    _typeIDToRTTI = nullptr;
}

const TypeID& RTTI::getTypeID(const char* name)
{
    static const TypeID unknown;
    const auto found = _typeNameToTypeID->find(MrvStaticString(name));
    return found == _typeNameToTypeID->end() ? unknown : found.getValue();
}

const char* RTTI::getTypeName(const TypeID& typeID)
{
    const RTTI* record = getRTTI(typeID);
    return record != nullptr ? record->_typeName : nullptr;
}

const RTTI* RTTI::getRTTI(const TypeID& typeID)
{
    const auto found = _typeIDToRTTI->find(typeID);
    return found == _typeIDToRTTI->end() ? nullptr : found.getValue();
}

PODArray<const RTTI*> RTTI::getRTTIs(const TypeID& typeID)
{
    PODArray<const RTTI*> derived;
    if (const RTTI* base = getRTTI(typeID))
    {
        for (const RTTI* record : getRTTIs())
            if (record->isDerivedFrom(*base))
                derived.push_back(record);
    }
    return derived;
}

PODArray<const RTTI*> RTTI::getRTTIs()
{
    PODArray<const RTTI*> records;
    records.reserve(_typeIDToRTTI->size());
    for (auto entry = _typeIDToRTTI->begin(); entry != _typeIDToRTTI->end(); ++entry)
        records.push_back(entry.getValue());
    return records;
}

void* RTTI::createInstance(const TypeID& typeID)
{
    const auto found = _rttiFactory->find(typeID);
    const bool canCreate = found != _rttiFactory->end() && found.getValue() != nullptr;
    return canCreate ? found.getValue()->create() : nullptr;
}

void* RTTI::createInstance() const
{
    return _creator != nullptr ? _creator->create() : nullptr;
}

void RTTI::destroyInstance(void* instance) const
{
    if (_creator != nullptr)
        _creator->destroy(instance);
}

RTTI::RTTI() : _attributeIndex(nullptr) {}

RTTI::~RTTI()
{
    delete _attributeIndex.load();
    const auto factory = _rttiFactory->find(_typeID);
    if (factory != _rttiFactory->end())
    {
        IRTTICreator* creator = factory.getValue();
        _rttiFactory->erase(_typeID);
        bool isShared = false;
        for (auto entry = _rttiFactory->begin(); entry != _rttiFactory->end() && !isShared; ++entry)
            isShared = entry.getValue() == creator;
        if (!isShared)
            delete creator;
    }
    _typeNameToTypeID->erase(MrvStaticString(_typeName));
    _typeIDToRTTI->erase(_typeID);
    for (AbstractAttribute* attribute : _attributes)
        delete attribute;
}

bool RTTI::isDerivedFrom(const RTTI& other) const
{
    if (_typeID == other._typeID)
        return true;
    for (const RTTI* base : _baseClassesRTTI)
        if (base->isDerivedFrom(other))
            return true;
    return false;
}

const AttributeIndex& RTTI::makeAttributeIndex() const
{
    // Look-ups run on any thread: whoever comes second drops his own.
    AttributeIndex* index = nullptr;
    AttributeIndex* made = new AttributeIndex(*this);
    s_hasAttributeIndices = true;
    if (_attributeIndex.compare_exchange_strong(index, made, std::memory_order_acq_rel))
        return *made;
    delete made;
    return *index;
}

// A change of one class changes the index of every class derived from it; changes happen only while the
// registry is built or torn down.
void RTTI::dropAttributeIndices()
{
    if (!s_hasAttributeIndices.exchange(false))
        return;
    for (auto entry = _typeIDToRTTI->begin(); entry != _typeIDToRTTI->end(); ++entry)
        delete entry.getValue()->_attributeIndex.exchange(nullptr);
}

unsigned int RTTI::getAttributesCount() const
{
    return getAttributeIndex().getCount();
}

bool RTTI::hasAttribute(const AbstractAttribute& attribute) const
{
    const AttributeIndex& index = getAttributeIndex();
    for (unsigned int i = 0; i < index.getCount(); ++i)
        if (index.get(i) == &attribute)
            return true;
    return false;
}

const AbstractAttribute* RTTI::getAttribute(unsigned int index) const
{
    const AttributeIndex& attributes = getAttributeIndex();
    return index < attributes.getCount() ? attributes.get(index) : nullptr;
}

const AbstractAttribute* RTTI::getAttribute(const char* name) const
{
    unsigned int anywhere = 0;
    return getAttributeIndex().find(name, anywhere);
}

void RTTI::appendBaseClass(const RTTI& base) const
{
    _baseClassesRTTI.push_back(&base);
    dropAttributeIndices();
}

void RTTI::appendAttribute(AbstractAttribute* attribute) const
{
    _attributes.push_back(attribute);
    dropAttributeIndices();
}

void RTTI::removeAttribute(const char* name) const
{
    for (size_t i = 0; i < _attributes.size(); ++i)
    {
        if (std::strcmp(_attributes[i]->getName(), name) == 0)
        {
            delete _attributes[i];
            _attributes.eraseAt(i);
            dropAttributeIndices();
            return;
        }
    }
}

} // namespace mrv
