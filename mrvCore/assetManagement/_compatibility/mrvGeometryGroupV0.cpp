// mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetTree.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryGroupV0, "GeometryGroupV0", "e1a63232-85ca-4551-a1e6-5462f8366c50")

void GeometryGroupV0::addAttributes()
{
    addAttribute<MrvString>("name", &GeometryGroupV0::_name);
    addAttribute<Array<GeometryAssetV0*>>("assets", &GeometryGroupV0::_assets);
}

GeometryGroupV0::~GeometryGroupV0()
{
    deleteEachOnce(_assets);
}

} // namespace mrv
