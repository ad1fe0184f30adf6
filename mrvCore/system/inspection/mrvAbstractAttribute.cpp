// mrvCore/system/inspection/mrvAbstractAttribute.cpp
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

AbstractAttribute::AbstractAttribute(const char* name, const RTTI& owner)
    : _name(alphaNumerizeNameStr(name))
    , _ownerRTTI(&owner)
{}

void AbstractAttribute::deleteValue(void*) const
{
    endNotImplemented();
}

void AbstractAttribute::endNotImplemented() const
{
    MRV_UNREACHABLE(
        "Not implemented in AbstractAttributeT derived class, for the attribute %s of type %s from "
        "an object of type %s",
        _name, getAttributeRTTI().getTypeName(), getOwnerRTTI().getTypeName());
}

} // namespace mrv
