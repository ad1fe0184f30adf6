// mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h
// A mesh, as files of versions 11 to 13 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV2;

/// Brought the fur.
class MRV_CORE_API MeshAssetV3
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV3)

    void createFromV2(MeshAssetV2 old);

    MrvString _name;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV0> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
};

} // namespace mrv
