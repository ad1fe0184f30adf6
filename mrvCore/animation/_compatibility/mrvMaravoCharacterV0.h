// mrvCore/animation/_compatibility/mrvMaravoCharacterV0.h
// A character of version 0, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"

namespace mrv {

class AssetManagerV0;
class GenericSpecificConverterMappingV4;

/// A character of a tree of assets that point at one another.
class MRV_CORE_API MaravoCharacterV0
    : public internal::FrozenTreeCharacter<AssetManagerV0, GenericSpecificConverterMappingV4>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV0)

    MaravoCharacterV0();
    ~MaravoCharacterV0();
};

} // namespace mrv
