// mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h
// One entry of a group, as files of versions 17 to 22 hold it.
#pragma once

#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetUnitV1;

/// Brought the physics override.
class MRV_CORE_API AssetUnitV2
{
public:
    MRV_PERSISTENT_CLASS(AssetUnitV2)

    void createFromV1(AssetUnitV1 old);

    int _meshAssetIdx = -1;
    int _assetGroupIdx = -1;
    int _skeletonOverrideIdx = -1;
    int _blindDataOverrideIdx = -1;
    int _physicsOverrideIdx = -1;
};

} // namespace mrv
