// mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h
// A mesh, as files of versions 14 to 16 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV3;

/// Brought the export alias.
class MRV_CORE_API MeshAssetV4
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV4)

    void createFromV3(MeshAssetV3 old);

    MrvString _name;
    MrvString _exportAlias;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV0> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
};

} // namespace mrv
