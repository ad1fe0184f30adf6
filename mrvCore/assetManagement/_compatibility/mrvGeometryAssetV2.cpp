// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryAssetV2, "GeometryAssetV2", "d19a896e-bbef-469a-bab8-4c608264dec3")

void GeometryAssetV2::addAttributes()
{
    addAttribute<MrvString>("filename", &GeometryAssetV2::_filename);
    addAttribute<Vector3>("halfExtents", &GeometryAssetV2::_halfExtentsYUp);
    addAttribute<float>("LODMinDistance", &GeometryAssetV2::_LODMinDistance);
    addAttribute<float>("LODMaxDistance", &GeometryAssetV2::_LODMaxDistance);
}

void GeometryAssetV2::createFromV1(GeometryAssetV1 old)
{
    _filename = std::move(old._filename);
    _halfExtentsYUp = old._halfExtents;
}

} // namespace mrv
