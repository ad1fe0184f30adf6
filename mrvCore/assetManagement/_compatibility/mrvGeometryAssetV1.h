// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h
// A geometry file, as files of versions 5 to 11 hold it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GeometryAssetV0;

/// A geometry file without a manager and a name.
class MRV_CORE_API GeometryAssetV1
{
public:
    MRV_PERSISTENT_CLASS(GeometryAssetV1)

    void createFromV0(GeometryAssetV0 old);

    MrvString _filename;
    Vector3 _halfExtents{ 0.5f, 0.5f, 0.5f }; ///< of the bounding box
};

} // namespace mrv
