// mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h
// A group of assets, as files of versions 5 to 12 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A group of alternatives, found by its index in the character.
class MRV_CORE_API AssetGroupV0
{
public:
    MRV_PERSISTENT_CLASS(AssetGroupV0)

    MrvString _name;
    Array<AssetUnitV0> _children;
    PODArray<float> _weights; ///< one per child
    Array<AssetUnitV0> _excludedAssets;
};

} // namespace mrv
