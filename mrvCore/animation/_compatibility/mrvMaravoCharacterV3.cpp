// mrvCore/animation/_compatibility/mrvMaravoCharacterV3.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV3.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV3, "mrv::MaravoCharacterV3",
                            "41afbd35-0c01-4cf1-bc7e-92004ed9b3e0")

void MaravoCharacterV3::addAttributes()
{
    using V3 = MaravoCharacterV3;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<AssetManagerV2*>("assetManager", &V3::_assetManager);
    addAttribute<GenericSpecificConverterMappingV5*>("converterMapping", &V3::_converterMapping);
    addAttribute<CharacterUserDataV0*>("characterUserData", &V3::_characterUserData);
}

MaravoCharacterV3::MaravoCharacterV3() = default;

MaravoCharacterV3::~MaravoCharacterV3() = default;

} // namespace mrv
