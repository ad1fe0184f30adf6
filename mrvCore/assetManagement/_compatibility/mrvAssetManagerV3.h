// mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h
// The assets of a character, as files of version 4 hold them.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvShaderGroupV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetManagerV0;
class AssetManagerV1;
class AssetManagerV2;
class AssetsGroupV0;
class GeometryGroupV0;
class RenderingTypeV1;

/// Brought groups of shaders.
/// Owns its groups, their meshes, each distinct one once, its geometry group and its rendering types.
class MRV_CORE_API AssetManagerV3
{
public:
    MRV_PERSISTENT_CLASS(AssetManagerV3)

    AssetManagerV3() = default;
    AssetManagerV3(const AssetManagerV3&) = delete;
    AssetManagerV3& operator=(const AssetManagerV3&) = delete;
    ~AssetManagerV3();

    /// Each takes over the tree of an older manager and makes its back pointers lead here.
    void createFromV0(AssetManagerV0& old);
    void createFromV1(AssetManagerV1& old);
    void createFromV2(AssetManagerV2& old);

    MrvString _name;
    Array<AssetsGroupV0*> _assetGroups;
    GeometryGroupV0* _geometryGroup = nullptr;
    MrvMap<MrvString, Array<ShaderGroupV0>> _meshesShaderGroups; ///< by an entry of MeshAssetV0::_meshNames
    Array<RenderingTypeV1*> _renderingTypes;
};

} // namespace mrv
