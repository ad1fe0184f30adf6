// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"

#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAttributeV2, "ShaderAttributeV2", "01c8d8a5-8457-45ed-b8cc-c3108cfeff70")

void ShaderAttributeV2::addAttributes()
{
    addAttribute<MrvString>("attributeName", &ShaderAttributeV2::_name);
    addAccessorsAttribute<int>("attributeType", &ShaderAttributeV2::getTypeAsInt,
                               &ShaderAttributeV2::setTypeFromInt);
    addAttribute<MrvString>("minValue", &ShaderAttributeV2::_minValue);
    addAttribute<MrvString>("maxValue", &ShaderAttributeV2::_maxValue);
    addAttribute<MrvString>("stringValue", &ShaderAttributeV2::_stringValue);
    addAccessorsAttribute<int>("attributeValueType", &ShaderAttributeV2::getValueTypeAsInt,
                               &ShaderAttributeV2::setValueTypeFromInt);
    addAttribute<MrvString>("ppAttr", &ShaderAttributeV2::_ppAttr);
    addAttribute<PODArray<float>>("weights", &ShaderAttributeV2::_weights);
}

void ShaderAttributeV2::createFromV1(ShaderAttributeV1 old)
{
    _name = std::move(old._name);
    _type = old._type;
    _minValue = std::move(old._minValue);
    _maxValue = std::move(old._maxValue);
    _stringValue = std::move(old._stringValue);
    _valueType = old._valueType;
    _ppAttr = std::move(old._ppAttr);
}

} // namespace mrv
