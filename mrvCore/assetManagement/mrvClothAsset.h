// mrvCore/assetManagement/mrvClothAsset.h
// The cloth of a mesh asset.
#pragma once

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Reference to the cloth file of a mesh asset; a mesh without cloth has an empty name.
class MRV_CORE_API ClothAssetV0
{
public:
    MRV_PERSISTENT_CLASS(ClothAssetV0)

    MrvString _filename;
};

} // namespace mrv
