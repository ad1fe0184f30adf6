// mrvCore/assetManagement/mrvShaderAttribute.h
// A value that varies from entity to entity and feeds a shader.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class ShaderAttributeV2;

/// Type of the value.
struct ShaderAttributeType
{
    enum Value : int { INT, FLOAT, STRING, VECTOR, END };
};

/// Where the value of an entity comes from.
struct ShaderAttributeValueType
{
    enum Value : int { RANDOM, ATTRIBUTE, CHANNEL, END };
};

/// Its bounds are texts, as they are stored. Each is kept parsed as an `int`, a `float` and a vector,
/// whatever the type is, so that nothing is parsed per entity; a text that holds no such value leaves of it
/// what fromString makes of it.
class MRV_CORE_API ShaderAttributeV3
{
public:
    MRV_PERSISTENT_CLASS(ShaderAttributeV3)

    /// Takes over a version-2 attribute, which had no candidate values.
    void createFromV2(ShaderAttributeV2 old);

    MrvString getMinValue() const { return _minValue; }
    MrvString getMaxValue() const { return _maxValue; }
    void setMinValue(MrvString text);
    void setMaxValue(MrvString text);

    const int& getMinIntValue() const { return _minIntValueCached; }
    const float& getMinFloatValue() const { return _minFloatValueCached; }
    const Vector3& getMinVectorValue() const { return _minVectorValueCached; }
    const int& getMaxIntValue() const { return _maxIntValueCached; }
    const float& getMaxFloatValue() const { return _maxFloatValueCached; }
    const Vector3& getMaxVectorValue() const { return _maxVectorValueCached; }

    int getTypeAsInt() const { return _type; }
    void setTypeFromInt(int type) { _type = static_cast<ShaderAttributeType::Value>(type); }
    int getValueTypeAsInt() const { return _valueType; }
    void setValueTypeFromInt(int type) { _valueType = static_cast<ShaderAttributeValueType::Value>(type); }

    MrvString _name;
    ShaderAttributeType::Value _type = ShaderAttributeType::INT;
    MrvString _stringValue; ///< of a STRING attribute
    ShaderAttributeValueType::Value _valueType = ShaderAttributeValueType::RANDOM;
    MrvString _ppAttr;        ///< the entity's attribute or channel that feeds the value
    PODArray<float> _weights; ///< of the candidate values
    PODArray<float> _values;  ///< candidate values

private:
    MrvString _minValue;
    MrvString _maxValue;
    int _minIntValueCached = 0;
    float _minFloatValueCached = 0.0f;
    Vector3 _minVectorValueCached;
    int _maxIntValueCached = 0;
    float _maxFloatValueCached = 0.0f;
    Vector3 _maxVectorValueCached;
};

} // namespace mrv
