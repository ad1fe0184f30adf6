// mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV5, "MeshAssetV5", "291a9942-ae24-464a-819c-2d5dbfb12f69")

void MeshAssetV5::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV5::_name);
    addAttribute<MrvString>("exportAlias", &MeshAssetV5::_exportAlias);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV5::_shadingGroups);
    addAttribute<Array<AssetUnitV2>>("excludedAssets", &MeshAssetV5::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV5::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV5::_furAsset);
}

void MeshAssetV5::createFromV4(MeshAssetV4 old)
{
    _name = std::move(old._name);
    _exportAlias = std::move(old._exportAlias);
    _shadingGroups = std::move(old._shadingGroups);
    Array<AssetUnitV1> units; // no mesh was ever stored with these
    stepUp(units, old._excludedAssets);
    stepUp(_excludedAssets, units);
    _clothAsset = std::move(old._clothAsset);
    _furAsset = std::move(old._furAsset);
}

} // namespace mrv
