// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAttributeV0, "ShaderAttributeV0", "15754490-0544-454a-8010-dff2c652c1a4")

void ShaderAttributeV0::addAttributes()
{
    addAttribute<MrvString>("attributeName", &ShaderAttributeV0::_name);
    addAccessorsAttribute<int>("attributeType", &ShaderAttributeV0::getTypeAsInt,
                               &ShaderAttributeV0::setTypeFromInt);
    addAttribute<MrvString>("minValue", &ShaderAttributeV0::_minValue);
    addAttribute<MrvString>("maxValue", &ShaderAttributeV0::_maxValue);
    addAttribute<MrvString>("fileName", &ShaderAttributeV0::_fileName);
    addAttribute<bool>("useRandomValue", &ShaderAttributeV0::_useRandomValue);
    addAttribute<MrvString>("ppAttr", &ShaderAttributeV0::_ppAttr);
}

} // namespace mrv
