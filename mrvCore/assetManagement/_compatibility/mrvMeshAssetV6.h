// mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h
// A mesh, as files of version 21 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV5;

/// Brought the deformer of the mesh.
class MRV_CORE_API MeshAssetV6
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV6)

    void createFromV5(MeshAssetV5 old);

    MrvString _name;
    MrvString _exportAlias;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV2> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
    MrvString _deepMeshConfFile;
    MrvString _deepMeshName;
    MrvString _deepMeshExportAlias;
};

} // namespace mrv
