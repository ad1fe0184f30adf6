// mrvCore/animation/mrvMaravoCharacterInterface.h
// The common base of all versions of the character.
#pragma once

#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Holds a character of any version behind one pointer; it has nothing of its own.
class MRV_CORE_API MaravoCharacterInterface
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterInterface)

    MaravoCharacterInterface() = default;
    MaravoCharacterInterface(const MaravoCharacterInterface&) = delete;
    MaravoCharacterInterface& operator=(const MaravoCharacterInterface&) = delete;
    virtual ~MaravoCharacterInterface();
};

} // namespace mrv
