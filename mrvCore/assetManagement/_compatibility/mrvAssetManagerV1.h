// mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h
// The assets of a character, as files of version 2 hold them.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetsGroupV0;
class GeometryGroupV0;
class RenderingTypeV0;

/// Gave the blend shapes up to the mapping.
/// Owns its groups, their meshes, each distinct one once, its geometry group and its rendering types.
class MRV_CORE_API AssetManagerV1
{
public:
    MRV_PERSISTENT_CLASS(AssetManagerV1)

    AssetManagerV1() = default;
    AssetManagerV1(const AssetManagerV1&) = delete;
    AssetManagerV1& operator=(const AssetManagerV1&) = delete;
    ~AssetManagerV1();

    MrvString _name;
    Array<AssetsGroupV0*> _assetGroups;
    GeometryGroupV0* _geometryGroup = nullptr;
    MrvMap<MrvString, Array<ShaderAssetV0>> _meshesShaders; ///< by an entry of MeshAssetV0::_meshNames
    Array<RenderingTypeV0*> _renderingTypes;
};

} // namespace mrv
