// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryAssetV1, "GeometryAssetV1", "89dccfcd-2f66-4204-af67-80f05da6ee68")

void GeometryAssetV1::addAttributes()
{
    addAttribute<MrvString>("filename", &GeometryAssetV1::_filename);
    addAttribute<Vector3>("halfExtents", &GeometryAssetV1::_halfExtents);
}

void GeometryAssetV1::createFromV0(GeometryAssetV0 old)
{
    _filename = std::move(old._filename);
    _halfExtents = old._halfExtents;
}

} // namespace mrv
