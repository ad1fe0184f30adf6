// mrvCore/assetManagement/mrvShaderOverride.cpp
#include "mrvCore/assetManagement/mrvShaderOverride.h"

namespace mrv {

void clearShaderNameReplacement(ShaderNameReplacement& replacement)
{
    replacement._replacedShaderNames.set_capacity(0);
    replacement._replacementShaderNames.set_capacity(0);
    replacement._replacementsPerEntityId.clear();
}

void ShaderAssetDataContainer::clear()
{
    intData.clear();
    floatData.clear();
    vectorData.clear();
    stringData.clear();
    globalToSpecificShaderAttrIdxPerChar.clear();
    specificShaderAttrCountersPerChar.clear();
}

} // namespace mrv
