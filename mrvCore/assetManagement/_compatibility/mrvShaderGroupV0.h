// mrvCore/assetManagement/_compatibility/mrvShaderGroupV0.h
// The shaders of a mesh in the pointer tree, as files of version 4 hold them.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Became ShadingGroupV1, whose shaders and attributes are indices.
class MRV_CORE_API ShaderGroupV0
{
public:
    MRV_PERSISTENT_CLASS(ShaderGroupV0)

    MrvString _name = "shadingGroup";
    Array<ShaderAssetV1> _shaderAssets;
    Array<ShaderAttributeV0> _shaderAttributes;
};

} // namespace mrv
