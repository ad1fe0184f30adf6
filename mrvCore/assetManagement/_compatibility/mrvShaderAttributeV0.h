// mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h
// A value that feeds a shader, as files up to version 9 hold it.
#pragma once

#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// The value is random between its bounds, or that of an attribute of the entity.
class MRV_CORE_API ShaderAttributeV0
{
public:
    MRV_PERSISTENT_CLASS(ShaderAttributeV0)

    int getTypeAsInt() const { return _type; }
    void setTypeFromInt(int type) { _type = static_cast<ShaderAttributeType::Value>(type); }

    MrvString _name;
    ShaderAttributeType::Value _type = ShaderAttributeType::INT;
    MrvString _minValue;
    MrvString _maxValue;
    MrvString _fileName;
    bool _useRandomValue = false;
    MrvString _ppAttr;
};

} // namespace mrv
