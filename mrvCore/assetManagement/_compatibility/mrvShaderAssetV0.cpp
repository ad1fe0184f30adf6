// mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAssetV0, "ShaderAssetV0", "1da9adb3-974e-41ee-8f4a-08e3433babca")

void ShaderAssetV0::addAttributes()
{
    addAttribute<MrvString>("name", &ShaderAssetV0::_name);
    addAttribute<MrvString>("category", &ShaderAssetV0::_category);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &ShaderAssetV0::_shaderAttributes);
}

} // namespace mrv
