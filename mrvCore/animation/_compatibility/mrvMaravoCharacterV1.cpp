// mrvCore/animation/_compatibility/mrvMaravoCharacterV1.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV1.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV1, "mrv::MaravoCharacterV1",
                            "0b4b894d-7353-49ac-ac2c-df4ac8ce0429")

void MaravoCharacterV1::addAttributes()
{
    using V1 = MaravoCharacterV1;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<AssetManagerV0*>("assetManager", &V1::_assetManager);
    addAttribute<GenericSpecificConverterMappingV5*>("converterMapping", &V1::_converterMapping);
    addAttribute<CharacterUserDataV0*>("characterUserData", &V1::_characterUserData);
}

MaravoCharacterV1::MaravoCharacterV1() = default;

MaravoCharacterV1::~MaravoCharacterV1() = default;

} // namespace mrv
