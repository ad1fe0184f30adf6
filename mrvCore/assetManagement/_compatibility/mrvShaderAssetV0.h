// mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h
// A shader, as files up to version 3 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A shader that has its attributes by itself.
class MRV_CORE_API ShaderAssetV0
{
public:
    MRV_PERSISTENT_CLASS(ShaderAssetV0)

    MrvString _name;
    MrvString _category;
    Array<ShaderAttributeV0> _shaderAttributes;
};

} // namespace mrv
