// mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetGroupV1, "AssetGroupV1", "a44eca36-ea7d-4c6e-b050-a4ab30fdd370")

void AssetGroupV1::addAttributes()
{
    addAttribute<MrvString>("name", &AssetGroupV1::_name);
    addAttribute<Array<AssetUnitV1>>("children", &AssetGroupV1::_children);
    addAttribute<PODArray<float>>("weights", &AssetGroupV1::_weights);
    addAttribute<Array<AssetUnitV1>>("excludedAssets", &AssetGroupV1::_excludedAssets);
}

void AssetGroupV1::createFromV0(AssetGroupV0 old)
{
    _name = std::move(old._name);
    stepUp(_children, old._children);
    _weights = std::move(old._weights);
    stepUp(_excludedAssets, old._excludedAssets);
}

} // namespace mrv
