// mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetsGroupV0, "AssetsGroupV0", "8f856350-9829-4a84-8445-4663ddb19794")

void AssetsGroupV0::addAttributes()
{
    addAttribute<MrvString>("name", &AssetsGroupV0::_name);
    addAttribute<Array<MeshAssetV0*>>("assets", &AssetsGroupV0::_assets);
}

} // namespace mrv
