// mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h
// One entry of a group, as files of versions 13 to 16 hold it.
#pragma once

#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetUnitV0;

/// Brought the overrides of skeleton and blind data.
class MRV_CORE_API AssetUnitV1
{
public:
    MRV_PERSISTENT_CLASS(AssetUnitV1)

    void createFromV0(AssetUnitV0 old);

    int _meshAssetIdx = -1;
    int _assetGroupIdx = -1;
    int _skeletonOverrideIdx = -1;
    int _blindDataOverrideIdx = -1;
};

} // namespace mrv
