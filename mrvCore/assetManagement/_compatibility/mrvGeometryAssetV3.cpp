// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.cpp
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"

#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryAssetV3, "GeometryAssetV3", "f220e5a4-c79f-4961-8190-a27d2b62d1c2")

void GeometryAssetV3::addAttributes()
{
    addAttribute<MrvString>("filename", &GeometryAssetV3::_filename);
    addAttribute<Vector3>("halfExtents", &GeometryAssetV3::_halfExtentsYUp);
    addAttribute<float>("LODMinDistance", &GeometryAssetV3::_LODMinDistance);
    addAttribute<float>("LODMaxDistance", &GeometryAssetV3::_LODMaxDistance);
    addAttribute<MrvString>("deepFilename", &GeometryAssetV3::_deepFilename);
}

void GeometryAssetV3::createFromV2(GeometryAssetV2 old)
{
    _filename = std::move(old._filename);
    _halfExtentsYUp = old._halfExtentsYUp;
    _LODMinDistance = old._LODMinDistance;
    _LODMaxDistance = old._LODMaxDistance;
}

} // namespace mrv
