// mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV7, "MeshAssetV7", "e87c63b0-1c41-4c5b-a2b7-63e20d79a6be")

void MeshAssetV7::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV7::_name);
    addAttribute<MrvString>("exportAlias", &MeshAssetV7::_exportAlias);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV7::_shadingGroups);
    addAttribute<Array<AssetUnitV2>>("excludedAssets", &MeshAssetV7::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV7::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV7::_furAsset);
    addAttribute<MrvString>("deepMeshConfFile", &MeshAssetV7::_deepMeshConfFile);
    addAttribute<MrvString>("deepMeshName", &MeshAssetV7::_deepMeshName);
    addAttribute<MrvString>("deepMeshExportAlias", &MeshAssetV7::_deepMeshExportAlias);
    addAttribute<unsigned int>("lodLevelFlags", &MeshAssetV7::_lodLevelFlags);
    addAttribute<PODArray<short>>("geometryTags", &MeshAssetV7::_geometryTags);
}

void MeshAssetV7::createFromV6(MeshAssetV6 old)
{
    _name = std::move(old._name);
    _exportAlias = std::move(old._exportAlias);
    _shadingGroups = std::move(old._shadingGroups);
    _excludedAssets = std::move(old._excludedAssets);
    _clothAsset = std::move(old._clothAsset);
    _furAsset = std::move(old._furAsset);
    _deepMeshConfFile = std::move(old._deepMeshConfFile);
    _deepMeshName = std::move(old._deepMeshName);
    _deepMeshExportAlias = std::move(old._deepMeshExportAlias);
}

} // namespace mrv
