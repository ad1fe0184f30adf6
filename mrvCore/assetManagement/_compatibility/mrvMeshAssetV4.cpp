// mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV4, "MeshAssetV4", "cff5d5ea-1353-4dd6-87f7-c45af7c4c853")

void MeshAssetV4::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV4::_name);
    addAttribute<MrvString>("exportAlias", &MeshAssetV4::_exportAlias);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV4::_shadingGroups);
    addAttribute<Array<AssetUnitV0>>("excludedAssets", &MeshAssetV4::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV4::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV4::_furAsset);
}

void MeshAssetV4::createFromV3(MeshAssetV3 old)
{
    _name = std::move(old._name);
    _shadingGroups = std::move(old._shadingGroups);
    _excludedAssets = std::move(old._excludedAssets);
    _clothAsset = std::move(old._clothAsset);
    _furAsset = std::move(old._furAsset);
}

} // namespace mrv
