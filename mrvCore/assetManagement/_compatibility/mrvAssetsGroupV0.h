// mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h
// A group of the pointer tree, as files up to version 4 hold it.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class MeshAssetV0;

/// Meshes to choose from. They belong to the manager and may stand in several groups; null is a choice too.
class MRV_CORE_API AssetsGroupV0
{
public:
    MRV_PERSISTENT_CLASS(AssetsGroupV0)

    MrvString _name;
    Array<MeshAssetV0*> _assets;
};

} // namespace mrv
