// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h
// A look of a character in the pointer tree, as files of versions 3 and 4 hold it.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetManagerV3;
class RenderingTypeV0;

/// Brought the tree of rendering types; parent and children belong to the manager like all others.
class MRV_CORE_API RenderingTypeV1
{
public:
    MRV_PERSISTENT_CLASS(RenderingTypeV1)

    void createFromV0(RenderingTypeV0 old);

    MrvString _name;
    MrvMap<MrvString, PODArray<float>> _assetWeights; ///< by the name of the group
    AssetManagerV3* _assetManager = nullptr;          ///< never followed, see MeshAssetV0
    RenderingTypeV1* _parent = nullptr;
    Array<RenderingTypeV1*> _children;
};

} // namespace mrv
