// mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h
// A mesh, as files of versions 7 to 10 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV1;

/// Brought the cloth.
class MRV_CORE_API MeshAssetV2
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV2)

    void createFromV1(MeshAssetV1 old);

    MrvString _name;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV0> _excludedAssets;
    ClothAssetV0 _clothAsset;
};

} // namespace mrv
