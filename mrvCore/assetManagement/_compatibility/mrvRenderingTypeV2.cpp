// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RenderingTypeV2, "RenderingTypeV2", "f3944489-8ba7-49c5-aa4a-8795b59ea129")

void RenderingTypeV2::addAttributes()
{
    addAttribute<MrvString>("name", &RenderingTypeV2::_name);
    addAttribute<Array<WeightOverrideV0>>("weightOverrides", &RenderingTypeV2::_weightOverrides);
}

} // namespace mrv
