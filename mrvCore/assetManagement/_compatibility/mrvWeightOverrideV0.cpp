// mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(WeightOverrideV0, "WeightOverrideV0", "4cf48230-f856-4d1b-b907-ef17a2005ab4")

void WeightOverrideV0::addAttributes()
{
    addAttribute<int>("groupIdx", &WeightOverrideV0::_groupIdx);
    addAttribute<PODArray<float>>("groupWeights", &WeightOverrideV0::_groupWeights);
}

} // namespace mrv
