// mrvCore/assetManagement/mrvShadingGroup.h
// The shaders of a mesh and the attributes that feed them.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Indices into the shader assets and the shader attributes of the character.
class MRV_CORE_API ShadingGroupV1
{
public:
    MRV_PERSISTENT_CLASS(ShadingGroupV1)

    MrvString _name = "shadingGroup";
    Array<int> _shaderAssets;
    Array<int> _shaderAttributes;
};

} // namespace mrv
