// mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h
// A group of assets, as files of version 23 hold it.
#pragma once

#include "mrvCore/assetManagement/mrvAssetGroup.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetGroupV2;

/// Brought the units with a deep deformer.
class MRV_CORE_API AssetGroupV3
{
public:
    MRV_PERSISTENT_CLASS(AssetGroupV3)

    void createFromV2(AssetGroupV2 old);

    MrvString _name;
    Array<AssetUnitV3> _children;
    PODArray<float> _weights; ///< one per child
    Array<AssetUnitV3> _excludedAssets;
};

} // namespace mrv
