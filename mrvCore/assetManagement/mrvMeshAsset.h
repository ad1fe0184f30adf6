// mrvCore/assetManagement/mrvMeshAsset.h
// One mesh that a character can wear, with its shading, cloth and fur.
#pragma once

#include "mrvCore/assetManagement/mrvAssetGroup.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"

#include <cstdint>

namespace mrv {

class MeshAssetV7;

/// A mesh asset. Its geometry lies in files of the character, told by tag and level of detail.
/// Threads: isFur() writes its answer into the object at the first call.
class MRV_CORE_API MeshAssetV8
{
public:
    MRV_PERSISTENT_CLASS(MeshAssetV8)

    /// What isFur() has found out.
    struct IsFurStatus
    {
        enum Value : int { IS_FUR, NOT_FUR, END /* not computed yet */ };
    };

    MeshAssetV8() = default;
    /// Takes over a version-7 mesh but for its deformer, its levels of detail and its tags, see the source.
    explicit MeshAssetV8(MeshAssetV7 old);

    /// Whether the fur text names a fur file. The answer is kept: later changes of the text do not count.
    bool isFur() const;

    /// False, with `value` untouched, if the fur text has no such property.
    bool getFurProperty(const MrvString& name, MrvString& value) const;
    /// Rewrites the whole fur text in normal form, also for a name that is no property.
    void setFurProperty(const MrvString& name, const MrvString& value);

    MrvString _name;
    MrvString _exportAlias;
    PODArray<int> _shadingGroups; ///< indices into those of the character
    Array<AssetUnitV3> _excludedAssets;
    ClothAssetV0 _clothAsset;
    FurAssetV0 _furAsset;
    mutable IsFurStatus::Value _isFur = IsFurStatus::END;
    uint32_t _lodLevelFlags = 0xFFFFFFFF; ///< see LODLevelFlags
    PODArray<short> _geometryTags;        ///< keys of the character's geometry; empty for every tag
};

} // namespace mrv
