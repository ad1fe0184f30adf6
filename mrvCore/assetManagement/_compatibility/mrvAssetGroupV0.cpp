// mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetGroupV0, "AssetGroupV0", "2d9f936e-9230-4521-9d6d-2bad415fcf12")

void AssetGroupV0::addAttributes()
{
    addAttribute<MrvString>("name", &AssetGroupV0::_name);
    addAttribute<Array<AssetUnitV0>>("children", &AssetGroupV0::_children);
    addAttribute<PODArray<float>>("weights", &AssetGroupV0::_weights);
    addAttribute<Array<AssetUnitV0>>("excludedAssets", &AssetGroupV0::_excludedAssets);
}

} // namespace mrv
