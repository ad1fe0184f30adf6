// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h
// A look of a character, as files of versions 6 to 14 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class RenderingTypeV2;

/// Brought the parent back, as an index.
class MRV_CORE_API RenderingTypeV3
{
public:
    MRV_PERSISTENT_CLASS(RenderingTypeV3)

    void createFromV2(RenderingTypeV2 old);

    MrvString _name;
    Array<WeightOverrideV0> _weightOverrides;
    int _parentRenderingType = -1; ///< into those of the character, -1 for a root
};

} // namespace mrv
