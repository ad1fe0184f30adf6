// mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h
// A mesh, as files of version 22 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/assetManagement/mrvMeshAsset.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV6;

/// Brought levels of detail and geometry tags.
class MRV_CORE_API MeshAssetV7
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV7)

    void createFromV6(MeshAssetV6 old);

    MrvString _name;
    MrvString _exportAlias;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV2> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
    MrvString _deepMeshConfFile;
    MrvString _deepMeshName;
    MrvString _deepMeshExportAlias;
    unsigned int _lodLevelFlags = 0xFFFFFFFF; ///< see LODLevelFlags
    PODArray<short> _geometryTags;
    MeshAssetV8::IsFurStatus::Value _isFur =
        MeshAssetV8::IsFurStatus::END; ///< not stored; the next version has it
};

} // namespace mrv
