// mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV2, "MeshAssetV2", "71cd3d9c-af8a-487e-8ed9-29a0285858bb")

void MeshAssetV2::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV2::_name);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV2::_shadingGroups);
    addAttribute<Array<AssetUnitV0>>("excludedAssets", &MeshAssetV2::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV2::_clothAsset);
}

void MeshAssetV2::createFromV1(MeshAssetV1 old)
{
    _name = std::move(old._name);
    _shadingGroups = std::move(old._shadingGroups);
    _excludedAssets = std::move(old._excludedAssets);
}

} // namespace mrv
