// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h
// A look of a character in the pointer tree, as files up to version 2 hold it.
#pragma once

#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetManagerV3;

/// Belongs to the manager.
class MRV_CORE_API RenderingTypeV0
{
public:
    MRV_PERSISTENT_CLASS(RenderingTypeV0)

    MrvString _name;
    MrvMap<MrvString, PODArray<float>> _assetWeights; ///< by the name of the group
    AssetManagerV3* _assetManager = nullptr;          ///< never followed, see MeshAssetV0
};

} // namespace mrv
