// mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetGroupV2, "AssetGroupV2", "990672e8-77cf-4875-84ba-f377a799ace4")

void AssetGroupV2::addAttributes()
{
    addAttribute<MrvString>("name", &AssetGroupV2::_name);
    addAttribute<Array<AssetUnitV2>>("children", &AssetGroupV2::_children);
    addAttribute<PODArray<float>>("weights", &AssetGroupV2::_weights);
    addAttribute<Array<AssetUnitV2>>("excludedAssets", &AssetGroupV2::_excludedAssets);
}

void AssetGroupV2::createFromV1(AssetGroupV1 old)
{
    _name = std::move(old._name);
    stepUp(_children, old._children);
    _weights = std::move(old._weights);
    stepUp(_excludedAssets, old._excludedAssets);
}

} // namespace mrv
