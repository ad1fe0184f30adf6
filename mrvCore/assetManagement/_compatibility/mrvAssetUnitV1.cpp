// mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetUnitV1, "AssetUnitV1", "56af9f9e-019e-4b4e-b8df-d6227fec9f85")

void AssetUnitV1::addAttributes()
{
    addAttribute<int>("meshAssetIdx", &AssetUnitV1::_meshAssetIdx);
    addAttribute<int>("assetGroupIdx", &AssetUnitV1::_assetGroupIdx);
    addAttribute<int>("skeletonOverrideIdx", &AssetUnitV1::_skeletonOverrideIdx);
    addAttribute<int>("blindDataOverrideIdx", &AssetUnitV1::_blindDataOverrideIdx);
}

void AssetUnitV1::createFromV0(AssetUnitV0 old)
{
    _meshAssetIdx = old._meshAssetIdx;
    _assetGroupIdx = old._assetGroupIdx;
    _skeletonOverrideIdx = -1;
    _blindDataOverrideIdx = -1;
}

} // namespace mrv
