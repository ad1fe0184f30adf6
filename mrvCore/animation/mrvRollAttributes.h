// mrvCore/animation/mrvRollAttributes.h
// Bones that share the twist of a chain.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// One group of roll bones on a chain. Bones are specific bone indices.
class MRV_CORE_API RollAttributesV0
{
public:
    MRV_PERSISTENT_CLASS(RollAttributesV0)

    int _farEndBoneIdx = -1;   ///< the bone whose twist is shared out, -1 for none
    Array<int> _rollBonesIdx;  ///< the bones that take a share
    Array<float> _rollWeights; ///< their shares, one per roll bone
};

} // namespace mrv
