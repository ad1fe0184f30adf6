// mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV6, "MeshAssetV6", "3a868aee-eea0-41d2-95b8-d02a465fd7a9")

void MeshAssetV6::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV6::_name);
    addAttribute<MrvString>("exportAlias", &MeshAssetV6::_exportAlias);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV6::_shadingGroups);
    addAttribute<Array<AssetUnitV2>>("excludedAssets", &MeshAssetV6::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV6::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV6::_furAsset);
    addAttribute<MrvString>("deepMeshConfFile", &MeshAssetV6::_deepMeshConfFile);
    addAttribute<MrvString>("deepMeshName", &MeshAssetV6::_deepMeshName);
    addAttribute<MrvString>("deepMeshExportAlias", &MeshAssetV6::_deepMeshExportAlias);
}

void MeshAssetV6::createFromV5(MeshAssetV5 old)
{
    _name = std::move(old._name);
    _exportAlias = std::move(old._exportAlias);
    _shadingGroups = std::move(old._shadingGroups);
    _excludedAssets = std::move(old._excludedAssets);
    _clothAsset = std::move(old._clothAsset);
    _furAsset = std::move(old._furAsset);
}

} // namespace mrv
