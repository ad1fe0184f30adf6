// mrvCore/animation/_compatibility/mrvMaravoCharacterV0.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV0.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV0, "mrv::MaravoCharacterV0",
                            "37018dba-4974-4a42-b3b6-1353e313753d")

void MaravoCharacterV0::addAttributes()
{
    using V0 = MaravoCharacterV0;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<AssetManagerV0*>("assetManager", &V0::_assetManager);
    addAttribute<GenericSpecificConverterMappingV4*>("converterMapping", &V0::_converterMapping);
    addAttribute<CharacterUserDataV0*>("characterUserData", &V0::_characterUserData);
}

MaravoCharacterV0::MaravoCharacterV0() = default;

MaravoCharacterV0::~MaravoCharacterV0() = default;

} // namespace mrv
