// mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h
// A mesh, as files of versions 17 to 20 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV4;

/// Brought the units with overrides of skeleton, blind data and physics.
class MRV_CORE_API MeshAssetV5
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV5)

    void createFromV4(MeshAssetV4 old);

    MrvString _name;
    MrvString _exportAlias;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV2> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
};

} // namespace mrv
