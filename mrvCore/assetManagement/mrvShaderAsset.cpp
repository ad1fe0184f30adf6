// mrvCore/assetManagement/mrvShaderAsset.cpp
#include "mrvCore/assetManagement/mrvShaderAsset.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAssetV2, "ShaderAssetV2", "7d75d516-a703-43f6-bd1f-47bc9706330d")

// This list is the file format: order, names and types stay. A change is a ShaderAssetV3.
void ShaderAssetV2::addAttributes()
{
    addAttribute<MrvString>("name", &ShaderAssetV2::_name);
    addAttribute<MrvString>("category", &ShaderAssetV2::_category);
    addAttribute<MrvString>("previewName", &ShaderAssetV2::_previewName);
}

bool ShaderAssetV2::hasCategory(const MrvString& category) const
{
    return category.empty() || toLower(_category).find(toLower(category)) != MrvString::npos;
}

} // namespace mrv
