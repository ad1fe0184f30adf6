// mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h
// The assets of a character, as files of version 3 hold them.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetsGroupV0;
class GeometryGroupV0;
class RenderingTypeV1;

/// Brought the tree of rendering types.
/// Owns its groups, their meshes, each distinct one once, its geometry group and its rendering types.
class MRV_CORE_API AssetManagerV2
{
public:
    MRV_PERSISTENT_CLASS(AssetManagerV2)

    AssetManagerV2() = default;
    AssetManagerV2(const AssetManagerV2&) = delete;
    AssetManagerV2& operator=(const AssetManagerV2&) = delete;
    ~AssetManagerV2();

    MrvString _name;
    Array<AssetsGroupV0*> _assetGroups;
    GeometryGroupV0* _geometryGroup = nullptr;
    MrvMap<MrvString, Array<ShaderAssetV0>> _meshesShaders; ///< by an entry of MeshAssetV0::_meshNames
    Array<RenderingTypeV1*> _renderingTypes;
};

} // namespace mrv
