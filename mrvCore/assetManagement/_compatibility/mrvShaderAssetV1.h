// mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h
// A shader, as files of versions 4 to 15 hold it.
#pragma once

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class ShaderAssetV0;

/// The attributes went over to the group of shaders.
class MRV_CORE_API ShaderAssetV1
{
public:
    MRV_PERSISTENT_CLASS(ShaderAssetV1)

    void createFromV0(ShaderAssetV0 old);

    MrvString _name;
    MrvString _category;
};

} // namespace mrv
