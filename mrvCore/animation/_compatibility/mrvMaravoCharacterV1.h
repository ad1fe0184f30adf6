// mrvCore/animation/_compatibility/mrvMaravoCharacterV1.h
// A character of version 1, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"

namespace mrv {

class AssetManagerV0;
class GenericSpecificConverterMappingV5;

/// New: bones are told by index.
class MRV_CORE_API MaravoCharacterV1
    : public internal::FrozenTreeCharacter<AssetManagerV0, GenericSpecificConverterMappingV5>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV1)

    MaravoCharacterV1();
    ~MaravoCharacterV1();
};

} // namespace mrv
