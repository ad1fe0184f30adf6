// mrvCore/system/inspection/mrvCompositeRTTIAccessor.cpp
#include "mrvCore/system/inspection/mrvCompositeRTTIAccessor.h"

#include "mrvCore/system/utils/mrvCharOperators.h"

#include <cstring>

namespace mrv {

// The formats come from the table of composite types alone.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

CompositeType::CompositeType(const char* seed, const char* nameFormat, const RTTI& element)
    : typeID(Uuid(seed) + element.getTypeID())
{
    sprintfSafe(typeName, sizeof(typeName), nameFormat, element.getTypeName());
}

CompositeType::CompositeType(const char* seed, const char* nameFormat, const RTTI& first, const RTTI& second)
    : typeID(Uuid(seed) + first.getTypeID() + second.getTypeID())
{
    sprintfSafe(typeName, sizeof(typeName), nameFormat, first.getTypeName(), second.getTypeName());
}

#pragma GCC diagnostic pop

RTTI* CompositeType::find() const
{
    const RTTI* record = RTTI::getRTTI(typeID);
    // The registry's own check costs space in the name arena, and look-ups happen at any time: it is left
    // for the mismatch, where it ends the process.
    if (record == nullptr || std::strcmp(record->getTypeName(), typeName) == 0)
        return const_cast<RTTI*>(record);
    return RTTI::checkBeforeCreate(typeID, typeName);
}

} // namespace mrv
