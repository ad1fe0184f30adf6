// mrvCore/assetManagement/mrvRenderInfo.cpp
#include "mrvCore/assetManagement/mrvRenderInfo.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RenderInfoV0, "RenderInfoV0", "b2f19df0-70a1-405c-850e-7a3f97ef9bc8")

// This list is the file format: order, names and types stay. A change is a RenderInfoV1.
void RenderInfoV0::addAttributes()
{
    addAttribute<int>("entityId", &RenderInfoV0::_entityId);
    addAttribute<int>("characterIdx", &RenderInfoV0::_characterIdx);
    addAttribute<int>("renderingTypeIdx", &RenderInfoV0::_renderingTypeIdx);
}

} // namespace mrv
