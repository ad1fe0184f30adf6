// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h
// A look of a character, as files of version 5 hold it.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A rendering type with indices in place of names, and without a parent.
class MRV_CORE_API RenderingTypeV2
{
public:
    MRV_PERSISTENT_CLASS(RenderingTypeV2)

    MrvString _name;
    Array<WeightOverrideV0> _weightOverrides;
};

} // namespace mrv
