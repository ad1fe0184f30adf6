// mrvCore/animation/mrvSkeletonOverride.h
// A random alteration of a skeleton, as a character stores it.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <cstdint>

namespace mrv {

/// Stored and handed on, not evaluated here: the application draws a weight in each range, from the seed, for
/// each entity. Index lists name bones by specific index and go in step with the values behind them.
class MRV_CORE_API SkeletonOverrideV0
{
public:
    MRV_PERSISTENT_CLASS(SkeletonOverrideV0)

    MrvString _name;
    PODArray<unsigned int> _skeletonBonesLocalPosIndices;
    Array<Vector3> _skeletonBonesLocalPosScales;
    float _skeletonBonesLocalPosWeightMin = 0.0f;
    float _skeletonBonesLocalPosWeightMax = 0.0f;
    PODArray<unsigned int> _skeletonBonesLocalOriIndices;
    Array<Vector3> _skeletonBonesLocalOriOffsets; ///< vectors, unlike the offsets of an OverrideScales
    float _skeletonBonesLocalOriWeightMin = 0.0f;
    float _skeletonBonesLocalOriWeightMax = 0.0f;
    PODArray<unsigned int> _skeletonBonesSkinScalesIndices;
    Array<Vector3> _skeletonBonesSkinScales;
    float _skeletonBonesSkinScalesWeightMin = 0.0f;
    float _skeletonBonesSkinScalesWeightMax = 0.0f;
    uint32_t _randomSeed = 0;
};

} // namespace mrv
