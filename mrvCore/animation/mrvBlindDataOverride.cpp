// mrvCore/animation/mrvBlindDataOverride.cpp
#include "mrvCore/animation/mrvBlindDataOverride.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BlindDataOverrideV0, "mrv::BlindDataOverrideV0",
                            "8c38af13-8a82-46b3-84c0-95e0ca75a798")

void BlindDataOverrideV0::addAttributes()
{
    addAttribute<MrvString>("name", &BlindDataOverrideV0::_name);
    addAttribute<PODArray<unsigned int>>("blindDataIndices", &BlindDataOverrideV0::_blindDataIndices);
    addAttribute<Array<float>>("blindDataValues", &BlindDataOverrideV0::_blindDataValues);
    addAttribute<float>("weightMin", &BlindDataOverrideV0::_weightMin);
    addAttribute<float>("weightMax", &BlindDataOverrideV0::_weightMax);
    addAttribute<uint32_t>("randomSeed", &BlindDataOverrideV0::_randomSeed);
}

} // namespace mrv
