// mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h
// Weights of a group in a rendering type, as files of versions 5 to 14 hold them.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Weights that stand in for the stored ones of a group.
class MRV_CORE_API WeightOverrideV0
{
public:
    MRV_PERSISTENT_CLASS(WeightOverrideV0)

    int _groupIdx = 0;             ///< into the groups of the character
    PODArray<float> _groupWeights; ///< one per child
};

} // namespace mrv
