// mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BlendShapeGroupV0, "mrv::BlendShapeGroupV0",
                            "b11e063b-7be4-4f98-bc3c-4d521809f975")

void BlendShapeGroupV0::addAttributes()
{
    addAttribute<MrvString>("name", &BlendShapeGroupV0::_name);
    addAttribute<PODArray<float>>("weights", &BlendShapeGroupV0::_weights);
}

} // namespace mrv
