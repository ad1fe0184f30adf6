// mrvCore/assetManagement/mrvAssetGroup.h
// The catalogue from which an entity gets its look: a tree of weighted groups with mesh assets as leaves.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetGroupV3;
class AssetUnitV2;
class MaravoCharacterV24;

/// What selects one child of a group.
struct AssetGroupWeightType
{
    enum Value : int { RANDOM, ATTRIBUTE, END };
};

/// One entry of a group: indices into the arrays of the character, -1 for none.
class MRV_CORE_API AssetUnitV3
{
public:
    MRV_PERSISTENT_CLASS(AssetUnitV3)

    /// Takes over a version-2 unit, which had no deep deformer.
    void createFromV2(AssetUnitV2 old);

    int _meshAssetIdx = -1;
    int _assetGroupIdx = -1;
    int _skeletonOverrideIdx = -1;
    int _blindDataOverrideIdx = -1;
    int _physicsOverrideIdx = -1;
    int _deepDeformerAssetIdx = -1;
};

/// A group of alternatives.
class MRV_CORE_API AssetGroupV4
{
public:
    MRV_PERSISTENT_CLASS(AssetGroupV4)

    /// Takes over a version-3 group, whose child was always chosen at random.
    void createFromV3(AssetGroupV3 old);

    /// Removes a child; an index out of range does nothing. The weights stay, so that who erases a child
    /// keeps the two arrays in step.
    void eraseChild(unsigned int index);

    /// Appends the meshes that can be reached, depth first, each once: those that `meshAssets` has already
    /// are left out, so that calls accumulate. An entry with a group stands for that group alone.
    ///
    /// Groups out of range are passed over, and so is a group inside itself.
    void getAllMeshAssets(PODArray<int>& meshAssets, const MaravoCharacterV24& character) const;

    int getWeightTypeAsInt() const { return _weightType; }
    void setWeightTypeFromInt(int type) { _weightType = static_cast<AssetGroupWeightType::Value>(type); }

    MrvString _name;
    Array<AssetUnitV3> _children;
    AssetGroupWeightType::Value _weightType = AssetGroupWeightType::RANDOM;
    MrvString _weightAttributeName; ///< selects the child where the weight type is ATTRIBUTE
    PODArray<float> _weights;       ///< one per child
    Array<AssetUnitV3> _excludedAssets;
};

} // namespace mrv
