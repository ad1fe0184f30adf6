// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RenderingTypeV1, "RenderingTypeV1", "88cebf75-c657-419f-b159-5e6b78b53943")

void RenderingTypeV1::addAttributes()
{
    addAttribute<MrvString>("name", &RenderingTypeV1::_name);
    addAttribute<MrvMap<MrvString, PODArray<float>>>("assetWeights", &RenderingTypeV1::_assetWeights);
    addAttribute<AssetManagerV3*>("assetManager", &RenderingTypeV1::_assetManager);
    addAttribute<RenderingTypeV1*>("parent", &RenderingTypeV1::_parent);
    addAttribute<Array<RenderingTypeV1*>>("children", &RenderingTypeV1::_children);
}

void RenderingTypeV1::createFromV0(RenderingTypeV0 old)
{
    _name = std::move(old._name);
    _assetWeights = old._assetWeights;
    _assetManager = old._assetManager;
}

} // namespace mrv
