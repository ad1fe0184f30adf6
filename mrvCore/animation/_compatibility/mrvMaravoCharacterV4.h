// mrvCore/animation/_compatibility/mrvMaravoCharacterV4.h
// A character of version 4, as files hold it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvFrozenCharacter.h"

namespace mrv {

class AssetManagerV3;
class GenericSpecificConverterMappingV5;
class MaravoCharacterV0;
class MaravoCharacterV1;
class MaravoCharacterV2;
class MaravoCharacterV3;

/// Of product version 4.0.3. New: shaders are in groups.
class MRV_CORE_API MaravoCharacterV4
    : public internal::FrozenTreeCharacter<AssetManagerV3, GenericSpecificConverterMappingV5>
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV4)

    MaravoCharacterV4();
    ~MaravoCharacterV4();

    // Each is called on a new character. It converts what changed, of which nothing is left in the old one,
    // and takes over the rest.

    void createFromV0(MaravoCharacterV0& old);
    void createFromV1(MaravoCharacterV1& old);
    void createFromV2(MaravoCharacterV2& old);
    void createFromV3(MaravoCharacterV3& old);
};

} // namespace mrv
