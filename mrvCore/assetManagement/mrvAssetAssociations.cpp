// mrvCore/assetManagement/mrvAssetAssociations.cpp
#include "mrvCore/assetManagement/mrvAssetAssociations.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetAssociationsV0, "AssetAssociationsV0",
                            "0e0a1888-492a-49e3-9dcb-398d9fbbe0d8")

// This list is the file format: order, names and types stay. A change is an AssetAssociationsV1.
void AssetAssociationsV0::addAttributes()
{
    addAttribute<unsigned int>("rngSeed", &AssetAssociationsV0::_rngSeed);
    addAttribute<Array<RenderInfoV0>>("entityRenderInfo", &AssetAssociationsV0::_entityRenderInfo);
}

} // namespace mrv
