// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h
// A geometry file, as files of versions 12 to 15 hold it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GeometryAssetV1;

/// Brought the range of camera distances. The box was taken with Y up ever since.
class MRV_CORE_API GeometryAssetV2
{
public:
    MRV_PERSISTENT_CLASS(GeometryAssetV2)

    void createFromV1(GeometryAssetV1 old);

    MrvString _filename;
    Vector3 _halfExtentsYUp{ 0.5f, 0.5f, 0.5f }; ///< of the bounding box, with Y up
    float _LODMinDistance = 0.0f;
    float _LODMaxDistance = 10000.0f;
};

} // namespace mrv
