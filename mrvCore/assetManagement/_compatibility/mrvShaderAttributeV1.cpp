// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.cpp
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"

#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAttributeV1, "ShaderAttributeV1", "3f2d0f23-263f-4773-802e-22aaba7ce462")

void ShaderAttributeV1::addAttributes()
{
    addAttribute<MrvString>("attributeName", &ShaderAttributeV1::_name);
    addAccessorsAttribute<int>("attributeType", &ShaderAttributeV1::getTypeAsInt,
                               &ShaderAttributeV1::setTypeFromInt);
    addAttribute<MrvString>("minValue", &ShaderAttributeV1::_minValue);
    addAttribute<MrvString>("maxValue", &ShaderAttributeV1::_maxValue);
    addAttribute<MrvString>("stringValue", &ShaderAttributeV1::_stringValue);
    addAccessorsAttribute<int>("attributeValueType", &ShaderAttributeV1::getValueTypeAsInt,
                               &ShaderAttributeV1::setValueTypeFromInt);
    addAttribute<MrvString>("ppAttr", &ShaderAttributeV1::_ppAttr);
}

void ShaderAttributeV1::createFromV0(ShaderAttributeV0 old)
{
    _name = std::move(old._name);
    _type = old._type;
    _minValue = std::move(old._minValue);
    _maxValue = std::move(old._maxValue);
    _stringValue = std::move(old._fileName);
    _valueType = old._useRandomValue ? ShaderAttributeValueType::RANDOM : ShaderAttributeValueType::ATTRIBUTE;
    _ppAttr = std::move(old._ppAttr);
}

} // namespace mrv
