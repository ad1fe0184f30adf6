// mrvCore/assetManagement/_compatibility/mrvShaderGroupV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderGroupV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderGroupV0, "ShaderGroupV0", "6ae67488-1211-48d4-823d-7fdce4650283")

void ShaderGroupV0::addAttributes()
{
    addAttribute<MrvString>("name", &ShaderGroupV0::_name);
    addAttribute<Array<ShaderAssetV1>>("shaderAssets", &ShaderGroupV0::_shaderAssets);
    addAttribute<Array<ShaderAttributeV0>>("shaderAttributes", &ShaderGroupV0::_shaderAttributes);
}

} // namespace mrv
