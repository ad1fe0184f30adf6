// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h
// A value that feeds a shader, as files of versions 10 to 14 hold it.
#pragma once

#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class ShaderAttributeV0;

/// Brought texts other than file names, and values from channels.
class MRV_CORE_API ShaderAttributeV1
{
public:
    MRV_PERSISTENT_CLASS(ShaderAttributeV1)

    int getTypeAsInt() const { return _type; }
    void setTypeFromInt(int type) { _type = static_cast<ShaderAttributeType::Value>(type); }
    int getValueTypeAsInt() const { return _valueType; }
    void setValueTypeFromInt(int type) { _valueType = static_cast<ShaderAttributeValueType::Value>(type); }

    void createFromV0(ShaderAttributeV0 old);

    MrvString _name;
    ShaderAttributeType::Value _type = ShaderAttributeType::INT;
    MrvString _minValue;
    MrvString _maxValue;
    MrvString _stringValue;
    ShaderAttributeValueType::Value _valueType = ShaderAttributeValueType::RANDOM;
    MrvString _ppAttr;
};

} // namespace mrv
