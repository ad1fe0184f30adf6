// mrvCore/assetManagement/mrvAssetAssociations.h
// Which character and rendering type each entity of a population has.
#pragma once

#include "mrvCore/assetManagement/mrvRenderInfo.h"
#include "mrvCore/system/containers/mrvArray.h"

namespace mrv {

/// The content of an association file.
class MRV_CORE_API AssetAssociationsV0
{
public:
    MRV_PERSISTENT_CLASS(AssetAssociationsV0)

    unsigned int _rngSeed = 0; ///< of the population, for the application; nothing in the library uses it
    Array<RenderInfoV0> _entityRenderInfo;
};

} // namespace mrv
