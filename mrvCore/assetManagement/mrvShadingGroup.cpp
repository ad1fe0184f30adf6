// mrvCore/assetManagement/mrvShadingGroup.cpp
#include "mrvCore/assetManagement/mrvShadingGroup.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(ShadingGroupV1, "ShadingGroupV1", "6a5593cc-91df-419b-b542-a92009deecf2")

// This list is the file format: order, names and types stay. A change is a ShadingGroupV2.
void ShadingGroupV1::addAttributes()
{
    addAttribute<MrvString>("name", &ShadingGroupV1::_name);
    addAttribute<Array<int>>("shaderAssets", &ShadingGroupV1::_shaderAssets);
    addAttribute<Array<int>>("shaderAttributes", &ShadingGroupV1::_shaderAttributes);
}

} // namespace mrv
