// mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV3, "MeshAssetV3", "016f0089-3770-43fd-ac07-003b174fdea9")

void MeshAssetV3::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV3::_name);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV3::_shadingGroups);
    addAttribute<Array<AssetUnitV0>>("excludedAssets", &MeshAssetV3::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV3::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV3::_furAsset);
}

void MeshAssetV3::createFromV2(MeshAssetV2 old)
{
    _name = std::move(old._name);
    _shadingGroups = std::move(old._shadingGroups);
    _excludedAssets = std::move(old._excludedAssets);
    _clothAsset = std::move(old._clothAsset);
}

} // namespace mrv
