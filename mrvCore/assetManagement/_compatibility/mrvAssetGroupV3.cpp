// mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetGroupV3, "AssetGroupV3", "eb4d64a1-ae00-4e23-a036-1ecfbe892d5c")

void AssetGroupV3::addAttributes()
{
    addAttribute<MrvString>("name", &AssetGroupV3::_name);
    addAttribute<Array<AssetUnitV3>>("children", &AssetGroupV3::_children);
    addAttribute<PODArray<float>>("weights", &AssetGroupV3::_weights);
    addAttribute<Array<AssetUnitV3>>("excludedAssets", &AssetGroupV3::_excludedAssets);
}

void AssetGroupV3::createFromV2(AssetGroupV2 old)
{
    _name = std::move(old._name);
    stepUp(_children, old._children);
    _weights = std::move(old._weights);
    stepUp(_excludedAssets, old._excludedAssets);
}

} // namespace mrv
