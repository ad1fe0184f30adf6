// mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetUnitV2, "AssetUnitV2", "42ee3316-84bd-47de-aeef-819890c84da0")

void AssetUnitV2::addAttributes()
{
    addAttribute<int>("meshAssetIdx", &AssetUnitV2::_meshAssetIdx);
    addAttribute<int>("assetGroupIdx", &AssetUnitV2::_assetGroupIdx);
    addAttribute<int>("skeletonOverrideIdx", &AssetUnitV2::_skeletonOverrideIdx);
    addAttribute<int>("blindDataOverrideIdx", &AssetUnitV2::_blindDataOverrideIdx);
    addAttribute<int>("physicsOverrideIdx", &AssetUnitV2::_physicsOverrideIdx);
}

void AssetUnitV2::createFromV1(AssetUnitV1 old)
{
    _meshAssetIdx = old._meshAssetIdx;
    _assetGroupIdx = old._assetGroupIdx;
    _skeletonOverrideIdx = old._skeletonOverrideIdx;
    _blindDataOverrideIdx = old._blindDataOverrideIdx;
    _physicsOverrideIdx = -1;
}

} // namespace mrv
