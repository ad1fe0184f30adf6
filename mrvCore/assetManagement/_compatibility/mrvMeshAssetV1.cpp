// mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV1, "MeshAssetV1", "d7967f20-befd-47a5-a818-d614957d0d3b")

void MeshAssetV1::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV1::_name);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV1::_shadingGroups);
    addAttribute<Array<AssetUnitV0>>("excludedAssets", &MeshAssetV1::_excludedAssets);
}

} // namespace mrv
