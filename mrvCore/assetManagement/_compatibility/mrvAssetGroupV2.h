// mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h
// A group of assets, as files of versions 17 to 22 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetGroupV1;

/// Brought the units with a physics override.
class MRV_CORE_API AssetGroupV2
{
public:
    MRV_PERSISTENT_CLASS(AssetGroupV2)

    void createFromV1(AssetGroupV1 old);

    MrvString _name;
    Array<AssetUnitV2> _children;
    PODArray<float> _weights; ///< one per child
    Array<AssetUnitV2> _excludedAssets;
};

} // namespace mrv
