// mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h
// A blend shape, as mappings up to version 5 and the first asset manager hold it.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Became a channel of blind data.
class MRV_CORE_API BlendShapeGroupV0
{
public:
    MRV_PERSISTENT_CLASS(BlendShapeGroupV0)

    MrvString _name;
    PODArray<float> _weights;
};

} // namespace mrv
