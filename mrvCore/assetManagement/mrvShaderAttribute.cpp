// mrvCore/assetManagement/mrvShaderAttribute.cpp
#include "mrvCore/assetManagement/mrvShaderAttribute.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShaderAttributeV3, "ShaderAttributeV3", "aaf98808-7356-42d6-aded-5548c8174a7a")

// This list is the file format: order, names and types stay. A change is a ShaderAttributeV4.
void ShaderAttributeV3::addAttributes()
{
    addAttribute<MrvString>("attributeName", &ShaderAttributeV3::_name);
    addAccessorsAttribute<int>("attributeType", &ShaderAttributeV3::getTypeAsInt,
                               &ShaderAttributeV3::setTypeFromInt);
    addAccessorsAttribute<MrvString>("minValue", &ShaderAttributeV3::getMinValue,
                                     &ShaderAttributeV3::setMinValue);
    addAccessorsAttribute<MrvString>("maxValue", &ShaderAttributeV3::getMaxValue,
                                     &ShaderAttributeV3::setMaxValue);
    addAttribute<MrvString>("stringValue", &ShaderAttributeV3::_stringValue);
    addAccessorsAttribute<int>("attributeValueType", &ShaderAttributeV3::getValueTypeAsInt,
                               &ShaderAttributeV3::setValueTypeFromInt);
    addAttribute<MrvString>("ppAttr", &ShaderAttributeV3::_ppAttr);
    addAttribute<PODArray<float>>("weights", &ShaderAttributeV3::_weights);
    addAttribute<PODArray<float>>("values", &ShaderAttributeV3::_values);
}

void ShaderAttributeV3::setMinValue(MrvString text)
{
    _minValue = std::move(text);
    fromString(_minValue, _minIntValueCached);
    fromString(_minValue, _minFloatValueCached);
    fromString(_minValue, _minVectorValueCached);
}

void ShaderAttributeV3::setMaxValue(MrvString text)
{
    _maxValue = std::move(text);
    fromString(_maxValue, _maxIntValueCached);
    fromString(_maxValue, _maxFloatValueCached);
    fromString(_maxValue, _maxVectorValueCached);
}

} // namespace mrv
