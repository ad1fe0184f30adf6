// hosts/mrvcharacter/mrvErrorCodeNames.cpp
#include "hosts/mrvcharacter/mrvErrorCodeNames.h"

#include <cstddef>

namespace mrvcharacter {

namespace {

constexpr const char* loadNames[] = { "SUCCESS", "FILE_NOT_FOUND", "INCORRECT_VERSION", "INVALID_FILE",
                                      "INVALID_SKELETON_DESCRIPTION" };
constexpr const char* saveNames[] = { "SUCCESS", "FILE_CREATION_FAILED" };

template <size_t count>
constexpr const char* getName(const char* const (&names)[count], int code)
{
    return code >= 0 && static_cast<size_t>(code) < count ? names[code] : "END";
}

// Mapping files have the same codes.
static_assert(sizeof(loadNames) / sizeof(loadNames[0]) == mrv::LoadCharacterFileErrorCode::END);
static_assert(sizeof(saveNames) / sizeof(saveNames[0]) == mrv::SaveCharacterFileErrorCode::END);
static_assert(sizeof(loadNames) / sizeof(loadNames[0]) == mrv::LoadSkeletonMappingErrorCode::END);
static_assert(sizeof(saveNames) / sizeof(saveNames[0]) == mrv::SaveSkeletonMappingErrorCode::END);

} // namespace

const char* getLoadCharacterFileErrorCodeName(mrv::LoadCharacterFileErrorCode::Value code)
{
    return getName(loadNames, code);
}

const char* getSaveCharacterFileErrorCodeName(mrv::SaveCharacterFileErrorCode::Value code)
{
    return getName(saveNames, code);
}

const char* getLoadSkeletonMappingErrorCodeName(mrv::LoadSkeletonMappingErrorCode::Value code)
{
    return getName(loadNames, code);
}

const char* getSaveSkeletonMappingErrorCodeName(mrv::SaveSkeletonMappingErrorCode::Value code)
{
    return getName(saveNames, code);
}

} // namespace mrvcharacter
