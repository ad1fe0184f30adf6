// mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetTree.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetManagerV1, "AssetManagerV1", "9c588ca5-86fa-44fa-b487-64e49142c40e")

void AssetManagerV1::addAttributes()
{
    addAttribute<MrvString>("name", &AssetManagerV1::_name);
    addAttribute<Array<AssetsGroupV0*>>("assetGroups", &AssetManagerV1::_assetGroups);
    addAttribute<GeometryGroupV0*>("geometryGroup", &AssetManagerV1::_geometryGroup);
    addAttribute<MrvMap<MrvString, Array<ShaderAssetV0>>>("meshesShaders", &AssetManagerV1::_meshesShaders);
    addAttribute<Array<RenderingTypeV0*>>("renderingTypes", &AssetManagerV1::_renderingTypes);
}

AssetManagerV1::~AssetManagerV1()
{
    deleteAssetTree(*this);
}

} // namespace mrv
