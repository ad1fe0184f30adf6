// hosts/mrvcharacter/mrvErrorCodeNames.h
// The names of the library's error codes, as they are printed.
#pragma once

#include "mrvCore/animation/mrvMaravoCharacter.h"

namespace mrvcharacter {

/// The name of the enumerator; "END" for a number that is none.
const char* getLoadCharacterFileErrorCodeName(mrv::LoadCharacterFileErrorCode::Value code);
const char* getSaveCharacterFileErrorCodeName(mrv::SaveCharacterFileErrorCode::Value code);
const char* getLoadSkeletonMappingErrorCodeName(mrv::LoadSkeletonMappingErrorCode::Value code);
const char* getSaveSkeletonMappingErrorCodeName(mrv::SaveSkeletonMappingErrorCode::Value code);

} // namespace mrvcharacter
