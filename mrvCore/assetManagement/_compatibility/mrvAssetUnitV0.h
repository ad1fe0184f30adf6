// mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h
// One entry of a group, as files of versions 5 to 12 and the meshes up to version 16 hold it.
#pragma once

#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Indices into the arrays of the character, -1 for none.
class MRV_CORE_API AssetUnitV0
{
public:
    MRV_PERSISTENT_CLASS(AssetUnitV0)

    int _meshAssetIdx = -1;
    int _assetGroupIdx = -1;
};

} // namespace mrv
