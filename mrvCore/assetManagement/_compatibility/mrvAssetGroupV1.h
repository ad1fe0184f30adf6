// mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h
// A group of assets, as files of versions 13 to 16 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetGroupV0;

/// Brought the units with overrides of skeleton and blind data.
class MRV_CORE_API AssetGroupV1
{
public:
    MRV_PERSISTENT_CLASS(AssetGroupV1)

    void createFromV0(AssetGroupV0 old);

    MrvString _name;
    Array<AssetUnitV1> _children;
    PODArray<float> _weights; ///< one per child
    Array<AssetUnitV1> _excludedAssets;
};

} // namespace mrv
