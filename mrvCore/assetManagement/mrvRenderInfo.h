// mrvCore/assetManagement/mrvRenderInfo.h
// What one entity of a population is drawn as.
#pragma once

#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// One record of an association file. -1 stands for none.
class MRV_CORE_API RenderInfoV0
{
public:
    MRV_PERSISTENT_CLASS(RenderInfoV0)

    int _entityId = -1;
    int _characterIdx = -1;     ///< in the list of characters of the population
    int _renderingTypeIdx = -1; ///< in the rendering types of that character
};

} // namespace mrv
