// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryAssetV0, "GeometryAssetV0", "2fc22e3c-0367-49eb-9b67-97959325dbae")

void GeometryAssetV0::addAttributes()
{
    addAttribute<AssetManagerV3*>("assetManager", &GeometryAssetV0::_assetManager);
    addAttribute<MrvString>("name", &GeometryAssetV0::_name);
    addAttribute<MrvString>("filename", &GeometryAssetV0::_filename);
    addAttribute<Vector3>("halfExtents", &GeometryAssetV0::_halfExtents);
}

} // namespace mrv
