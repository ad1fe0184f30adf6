// mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h
// A geometry file of the pointer tree, as files up to version 4 hold it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetManagerV3;

/// Belongs to its geometry group. The back pointer is never followed, see MeshAssetV0.
class MRV_CORE_API GeometryAssetV0
{
public:
    MRV_PERSISTENT_CLASS(GeometryAssetV0)

    AssetManagerV3* _assetManager = nullptr;
    MrvString _name;
    MrvString _filename;
    Vector3 _halfExtents{ 0.5f, 0.5f, 0.5f }; ///< of the bounding box
};

} // namespace mrv
