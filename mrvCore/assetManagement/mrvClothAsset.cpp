// mrvCore/assetManagement/mrvClothAsset.cpp
#include "mrvCore/assetManagement/mrvClothAsset.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ClothAssetV0, "ClothAssetV0", "4bfdedcc-c615-4405-871c-d5b342c7f9b7")

// This list is the file format: order, names and types stay. A change is a ClothAssetV1.
void ClothAssetV0::addAttributes()
{
    addAttribute<MrvString>("filename", &ClothAssetV0::_filename);
}

} // namespace mrv
