// mrvCore/animation/_compatibility/mrvMaravoCharacterV2.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV2.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV2, "mrv::MaravoCharacterV2",
                            "86420f0a-8e76-40df-99bf-bbcb5382803f")

void MaravoCharacterV2::addAttributes()
{
    using V2 = MaravoCharacterV2;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<AssetManagerV1*>("assetManager", &V2::_assetManager);
    addAttribute<GenericSpecificConverterMappingV5*>("converterMapping", &V2::_converterMapping);
    addAttribute<CharacterUserDataV0*>("characterUserData", &V2::_characterUserData);
}

MaravoCharacterV2::MaravoCharacterV2() = default;

MaravoCharacterV2::~MaravoCharacterV2() = default;

} // namespace mrv
