// mrvCore/animation/mrvRollAttributes.cpp
#include "mrvCore/animation/mrvRollAttributes.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RollAttributesV0, "mrv::RollAttributesV0", "02770c08-b3be-47ad-8179-bc03bf04cf21")

void RollAttributesV0::addAttributes()
{
    addAttribute<int>("farEndBoneIdx", &RollAttributesV0::_farEndBoneIdx);
    addAttribute<Array<int>>("rollBonesIdx", &RollAttributesV0::_rollBonesIdx);
    addAttribute<Array<float>>("rollWeights", &RollAttributesV0::_rollWeights);
}

} // namespace mrv
