// mrvCore/assetManagement/_compatibility/mrvBlindDataV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BlindDataV0, "mrv::BlindDataV0", "b435308e-76f4-4289-9e46-93e0947f5037")

void BlindDataV0::addAttributes()
{
    addAttribute<MrvString>("groupName", &BlindDataV0::_groupName);
    addAttribute<MrvString>("name", &BlindDataV0::_name);
    addAccessorsAttribute<unsigned int>("type", &BlindDataV0::getTypeUInt, &BlindDataV0::setTypeUInt);
}

} // namespace mrv
