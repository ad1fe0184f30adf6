// mrvCore/assetManagement/mrvRenderingType.h
// A look of a character: other weights for its groups and shader attributes.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class RenderingTypeV3;
class WeightOverrideV0;

/// What an override is for, and so which array of the character its index is into.
struct WeightOverrideType
{
    enum Value : int { GROUP, SHADER_ATTRIBUTE, END };
};

/// Weights that stand in for the stored ones of a group or a shader attribute.
class MRV_CORE_API WeightOverrideV1
{
public:
    MRV_PERSISTENT_CLASS(WeightOverrideV1)

    /// Takes over a version-0 override, which was for a group.
    void createFromV0(WeightOverrideV0 old);

    int getTypeAsInt() const { return _type; }
    void setTypeFromInt(int type) { _type = static_cast<WeightOverrideType::Value>(type); }

    int _assetIndex = -1;
    PODArray<float> _weights;
    WeightOverrideType::Value _type = WeightOverrideType::GROUP;
};

/// A set of overrides. What it does not override is taken from its parent, see
/// MaravoCharacterV24::findWeightOverride.
class MRV_CORE_API RenderingTypeV4
{
public:
    MRV_PERSISTENT_CLASS(RenderingTypeV4)

    /// Takes over a version-3 rendering type, which had overrides of groups alone.
    void createFromV3(RenderingTypeV3 old);

    /// Puts the indices of the direct children of a rendering type into `children`, in rising order. None is
    /// its own child.
    static void computeChildRenderingTypes(PODArray<int>& children, int renderingTypeIdx,
                                           const Array<RenderingTypeV4>& renderingTypes);

    MrvString _name;
    Array<WeightOverrideV1> _weightOverrides;
    int _parentRenderingType = -1; ///< index into those of the character, -1 for a root
};

} // namespace mrv
