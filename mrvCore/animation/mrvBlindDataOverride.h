// mrvCore/animation/mrvBlindDataOverride.h
// A random alteration of blind data, as a character stores it.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <cstdint>

namespace mrv {

/// Stored and handed on, not evaluated here; see SkeletonOverrideV0.
class MRV_CORE_API BlindDataOverrideV0
{
public:
    MRV_PERSISTENT_CLASS(BlindDataOverrideV0)

    MrvString _name;
    PODArray<unsigned int> _blindDataIndices;
    Array<float> _blindDataValues; ///< one per index
    float _weightMin = 0.0f;
    float _weightMax = 0.0f;
    uint32_t _randomSeed = 0;
};

} // namespace mrv
