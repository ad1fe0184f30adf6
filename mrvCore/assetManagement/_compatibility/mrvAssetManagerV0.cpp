// mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetTree.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetManagerV0, "AssetManagerV0", "79fd84b0-91a6-43eb-84bb-7b43cf2fb0fb")

void AssetManagerV0::addAttributes()
{
    addAttribute<MrvString>("name", &AssetManagerV0::_name);
    addAttribute<Array<AssetsGroupV0*>>("assetGroups", &AssetManagerV0::_assetGroups);
    addAttribute<GeometryGroupV0*>("geometryGroup", &AssetManagerV0::_geometryGroup);
    addAttribute<MrvMap<MrvString, Array<ShaderAssetV0>>>("meshesShaders", &AssetManagerV0::_meshesShaders);
    addAttribute<Array<RenderingTypeV0*>>("renderingTypes", &AssetManagerV0::_renderingTypes);
    addAttribute<Array<BlendShapeGroupV0>>("blendShapeGroups", &AssetManagerV0::_blendShapeGroups);
}

AssetManagerV0::~AssetManagerV0()
{
    deleteAssetTree(*this);
}

} // namespace mrv
