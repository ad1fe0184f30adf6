// mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h
// A mesh, as files of versions 5 and 6 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A mesh asset with indices in place of pointers.
class MRV_CORE_API MeshAssetV1
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV1)

    MrvString _name;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV0> _excludedAssets;
};

} // namespace mrv
