// mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetTree.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetManagerV2, "AssetManagerV2", "cad33b1e-3fae-4417-ba4f-f52ba9f770d5")

void AssetManagerV2::addAttributes()
{
    addAttribute<MrvString>("name", &AssetManagerV2::_name);
    addAttribute<Array<AssetsGroupV0*>>("assetGroups", &AssetManagerV2::_assetGroups);
    addAttribute<GeometryGroupV0*>("geometryGroup", &AssetManagerV2::_geometryGroup);
    addAttribute<MrvMap<MrvString, Array<ShaderAssetV0>>>("meshesShaders", &AssetManagerV2::_meshesShaders);
    addAttribute<Array<RenderingTypeV1*>>("renderingTypes", &AssetManagerV2::_renderingTypes);
}

AssetManagerV2::~AssetManagerV2()
{
    deleteAssetTree(*this);
}

} // namespace mrv
