// mrvCore/animation/_compatibility/mrvMaravoCharacterV3.h
// A character of version 3, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"

namespace mrv {

class AssetManagerV2;
class GenericSpecificConverterMappingV5;

/// Of product version 4.0.2. New: rendering types may have parents.
class MRV_CORE_API MaravoCharacterV3
    : public internal::FrozenTreeCharacter<AssetManagerV2, GenericSpecificConverterMappingV5>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV3)

    MaravoCharacterV3();
    ~MaravoCharacterV3();
};

} // namespace mrv
