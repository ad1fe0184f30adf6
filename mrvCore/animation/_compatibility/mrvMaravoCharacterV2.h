// mrvCore/animation/_compatibility/mrvMaravoCharacterV2.h
// A character of version 2, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"

namespace mrv {

class AssetManagerV1;
class GenericSpecificConverterMappingV5;

/// New: blend shapes are left to the mapping.
class MRV_CORE_API MaravoCharacterV2
    : public internal::FrozenTreeCharacter<AssetManagerV1, GenericSpecificConverterMappingV5>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV2)

    MaravoCharacterV2();
    ~MaravoCharacterV2();
};

} // namespace mrv
