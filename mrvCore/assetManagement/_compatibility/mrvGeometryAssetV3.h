// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h
// A geometry file, as files of versions 16 to 21 hold it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GeometryAssetV2;

/// Brought the file of a deformer.
class MRV_CORE_API GeometryAssetV3
{
public:
    MRV_PERSISTENT_CLASS(GeometryAssetV3)

    void createFromV2(GeometryAssetV2 old);

    MrvString _filename;
    Vector3 _halfExtentsYUp{ 0.5f, 0.5f, 0.5f }; ///< of the bounding box, with Y up
    float _LODMinDistance = 0.0f;
    float _LODMaxDistance = 10000.0f;
    MrvString _deepFilename;
};

} // namespace mrv
