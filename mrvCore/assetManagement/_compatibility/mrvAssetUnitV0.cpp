// mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetUnitV0, "AssetUnitV0", "20582eb3-50e1-4dde-8148-da5f9e05d5eb")

void AssetUnitV0::addAttributes()
{
    addAttribute<int>("meshAssetIdx", &AssetUnitV0::_meshAssetIdx);
    addAttribute<int>("assetGroupIdx", &AssetUnitV0::_assetGroupIdx);
}

} // namespace mrv
