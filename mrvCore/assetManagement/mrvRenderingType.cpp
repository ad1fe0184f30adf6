// mrvCore/assetManagement/mrvRenderingType.cpp
#include "mrvCore/assetManagement/mrvRenderingType.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(WeightOverrideV1, "WeightOverrideV1", "3a6ddc4e-5793-4677-9578-e48098aa4c9c")
MRV_DEFINE_PERSISTENT_CLASS(RenderingTypeV4, "RenderingTypeV4", "cd244854-c55f-407f-8a7d-567b5825f62d")

// This list is the file format: order, names and types stay. A change is a WeightOverrideV2.
void WeightOverrideV1::addAttributes()
{
    addAttribute<int>("assetIndex", &WeightOverrideV1::_assetIndex);
    addAttribute<PODArray<float>>("weights", &WeightOverrideV1::_weights);
    addAccessorsAttribute<int>("type", &WeightOverrideV1::getTypeAsInt, &WeightOverrideV1::setTypeFromInt);
}

// This list is the file format: order, names and types stay. A change is a RenderingTypeV5.
void RenderingTypeV4::addAttributes()
{
    addAttribute<MrvString>("name", &RenderingTypeV4::_name);
    addAttribute<Array<WeightOverrideV1>>("weightOverrides", &RenderingTypeV4::_weightOverrides);
    addAttribute<int>("parentRenderingType", &RenderingTypeV4::_parentRenderingType);
}

void RenderingTypeV4::computeChildRenderingTypes(PODArray<int>& children, int renderingTypeIdx,
                                                 const Array<RenderingTypeV4>& renderingTypes)
{
    children.clear();
    for (int i = 0; i < renderingTypes.sizeInt(); ++i)
        if (i != renderingTypeIdx &&
            renderingTypes[static_cast<size_t>(i)]._parentRenderingType == renderingTypeIdx)
            children.push_back(i);
}

} // namespace mrv
