// mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h
// A mesh of the pointer tree, as files up to version 4 hold it.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetManagerV3;

/// A mesh asset made of meshes of the geometry, whose names lead to their shaders in the manager.
/// It owns nothing and belongs to the manager. The back pointer is never followed: up to version 3 the class
/// of what it leads to is an older manager.
class MRV_CORE_API MeshAssetV0
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV0)

    AssetManagerV3* _assetManager = nullptr;
    MrvString _name;
    Array<MrvString> _meshNames;
    Array<MeshAssetV0*> _excludedMeshAssets;
};

} // namespace mrv
