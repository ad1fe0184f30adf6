// mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.cpp
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"

#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(RenderingTypeV3, "RenderingTypeV3", "0dd50043-551e-43e5-99e9-a67a0e83e9f2")

void RenderingTypeV3::addAttributes()
{
    addAttribute<MrvString>("name", &RenderingTypeV3::_name);
    addAttribute<Array<WeightOverrideV0>>("weightOverrides", &RenderingTypeV3::_weightOverrides);
    addAttribute<int>("parentRenderingType", &RenderingTypeV3::_parentRenderingType);
}

void RenderingTypeV3::createFromV2(RenderingTypeV2 old)
{
    _name = std::move(old._name);
    _weightOverrides = std::move(old._weightOverrides);
}

} // namespace mrv
