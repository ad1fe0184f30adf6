// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RenderingTypeV0, "RenderingTypeV0", "b5dbdf37-b8d9-4d5c-8779-b541d58649e2")

void RenderingTypeV0::addAttributes()
{
    addAttribute<MrvString>("name", &RenderingTypeV0::_name);
    addAttribute<MrvMap<MrvString, PODArray<float>>>("assetWeights", &RenderingTypeV0::_assetWeights);
    addAttribute<AssetManagerV3*>("assetManager", &RenderingTypeV0::_assetManager);
}

} // namespace mrv
