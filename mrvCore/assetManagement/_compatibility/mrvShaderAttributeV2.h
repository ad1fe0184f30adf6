// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h
// A value that feeds a shader, as files of versions 15 to 18 hold it.
#pragma once

#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class ShaderAttributeV1;

/// Brought the weights.
class MRV_CORE_API ShaderAttributeV2
{
public:
    MRV_PERSISTENT_CLASS(ShaderAttributeV2)

    int getTypeAsInt() const { return _type; }
    void setTypeFromInt(int type) { _type = static_cast<ShaderAttributeType::Value>(type); }
    int getValueTypeAsInt() const { return _valueType; }
    void setValueTypeFromInt(int type) { _valueType = static_cast<ShaderAttributeValueType::Value>(type); }

    void createFromV1(ShaderAttributeV1 old);

    MrvString _name;
    ShaderAttributeType::Value _type = ShaderAttributeType::INT;
    MrvString _minValue;
    MrvString _maxValue;
    MrvString _stringValue;
    ShaderAttributeValueType::Value _valueType = ShaderAttributeValueType::RANDOM;
    MrvString _ppAttr;
    PODArray<float> _weights;
};

} // namespace mrv
