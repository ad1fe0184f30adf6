// mrvCore/animation/mrvCharacterVersions.h
// The versions of the character and the way from each one to the current one.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class MaravoCharacterInterface;

/// A new character of the class of that version, owned by the caller; null for a version that does not exist.
MRV_CORE_API MaravoCharacterInterface* createCharacter(int version);

/// Makes a character of the current version of one of an older version, step by step. `oldCharacter` is
/// consumed, the caller owns `newCharacter`; a current one is handed on as it is.
///
/// A character that is not of the class of `version`, and a version that does not exist, are fatal.
MRV_CORE_API void convertFrom(MaravoCharacterInterface* oldCharacter, MaravoCharacterInterface*& newCharacter,
                              int version);

} // namespace mrv
