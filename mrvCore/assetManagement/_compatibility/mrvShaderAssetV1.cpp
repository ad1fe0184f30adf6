// mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAssetV1, "ShaderAssetV1", "4ac6ba03-981d-4aa4-b7a2-4f3eceb00d03")

void ShaderAssetV1::addAttributes()
{
    addAttribute<MrvString>("name", &ShaderAssetV1::_name);
    addAttribute<MrvString>("category", &ShaderAssetV1::_category);
}

void ShaderAssetV1::createFromV0(ShaderAssetV0 old)
{
    _name = std::move(old._name);
    _category = std::move(old._category);
}

} // namespace mrv
