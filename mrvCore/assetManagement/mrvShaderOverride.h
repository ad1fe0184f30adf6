// mrvCore/assetManagement/mrvShaderOverride.h
// What applications find out of the shading of each entity, and keep here.
#pragma once

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"

#include <cstdint>

namespace mrv {

// Plain holders; nothing in the library fills or reads them.

/// Another value for one shader attribute.
struct ShaderOverride
{
    MrvString _name; ///< of the attribute
    MrvString _stringValue;
    Vector3 _value;
    Vector3 _min;
    Vector3 _max;
    RandomNumberGenerator::SP _rng; ///< for the draws between `_min` and `_max`
    int32_t _rngSeed = 0;
    bool _useValue = false; ///< `_value` applies, rather than a draw
};

/// The overrides of one entity.
struct ShaderOverrides
{
    /// By entity, for sorted lists.
    bool operator<(const ShaderOverrides& other) const { return _entityId < other._entityId; }

    int64_t _entityId = -1;
    Array<ShaderOverride> _overrides;
};

/// Other names for the shaders of entities.
struct ShaderNameReplacement
{
    MrvMap<long, PODArray<unsigned short>> _replacementsPerEntityId; ///< indices into both lists
    Array<MrvString> _replacedShaderNames;
    Array<MrvString> _replacementShaderNames;
};

/// Empties all, and gives the memory of the lists back.
MRV_CORE_API void clearShaderNameReplacement(ShaderNameReplacement& replacement);

/// The shader attributes of all entities in columns by type.
struct MRV_CORE_API ShaderAssetDataContainer
{
    /// Frees the columns; the outer arrays keep their storage for the next frame.
    void clear();

    Array<PODArray<int>> intData;
    Array<PODArray<float>> floatData;
    Array<Array<Vector3>> vectorData;
    Array<Array<MrvString>> stringData;
    /// Per character, from the index of a shader attribute to that of the column of its type.
    Array<PODArray<size_t>> globalToSpecificShaderAttrIdxPerChar;
    Array<PODArray<size_t>> specificShaderAttrCountersPerChar; ///< per character, attributes of each type
};

} // namespace mrv
