// mrvCore/system/inspection/mrvPersistentClass.cpp
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

namespace {

// The record may exist already: another class's attributes or bases can name a class before its own
// registration comes.
void adoptRegisteredRecord(const PersistentClass& description)
{
    if (*description.rtti == nullptr)
        *description.rtti = RTTI::checkBeforeCreate(Uuid(description.typeID), description.typeName);
}

} // namespace

void PersistentClass::createRTTI(bool withAttributes) const
{
    adoptRegisteredRecord(*this);
    if (*rtti == nullptr)
        *rtti = RTTI::create(Uuid(typeID), typeName, makeCreator != nullptr ? makeCreator() : nullptr);
    if (withAttributes)
        addAttributes();
    (*rtti)->incrementCounter();
}

void PersistentClass::destroyRTTI(bool withAttributes) const
{
    if (*rtti == nullptr)
        return;
    if (withAttributes)
    {
        (*rtti)->isRemoving(true);
        addAttributes();
    }
    const bool isLastUser = (*rtti)->getCounter() == 1;
    (*rtti)->decrementCounter();
    (*rtti)->isRemoving(false);
    if (isLastUser)
    {
        delete *rtti;
        *rtti = nullptr;
    }
}

const RTTI& PersistentClass::getRTTI() const
{
    adoptRegisteredRecord(*this);
    return **rtti;
}

const RTTI& PersistentClass::addUserAsBase() const
{
    adoptRegisteredRecord(*this);
    if (*rtti == nullptr)
        *rtti = RTTI::create(Uuid(typeID), typeName, nullptr);
    (*rtti)->incrementCounter();
    return **rtti;
}

} // namespace mrv
