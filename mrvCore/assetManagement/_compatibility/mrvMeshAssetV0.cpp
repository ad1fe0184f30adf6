// mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV0, "MeshAssetV0", "49459a14-825b-40be-b3bb-7a5b93bc47d5")

void MeshAssetV0::addAttributes()
{
    addAttribute<AssetManagerV3*>("assetManager", &MeshAssetV0::_assetManager);
    addAttribute<MrvString>("name", &MeshAssetV0::_name);
    addAttribute<Array<MrvString>>("meshNames", &MeshAssetV0::_meshNames);
    addAttribute<Array<MeshAssetV0*>>("excludedMeshAssets", &MeshAssetV0::_excludedMeshAssets);
}

} // namespace mrv
