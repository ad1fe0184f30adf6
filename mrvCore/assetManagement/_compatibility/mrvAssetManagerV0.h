// mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h
// The assets of a character, as files of versions 0 and 1 hold them.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class AssetsGroupV0;
class GeometryGroupV0;
class RenderingTypeV0;

/// The root of the pointer tree.
/// Owns its groups, their meshes, each distinct one once, its geometry group and its rendering types.
class MRV_CORE_API AssetManagerV0
{
public:
    MRV_PERSISTENT_CLASS(AssetManagerV0)

    AssetManagerV0() = default;
    AssetManagerV0(const AssetManagerV0&) = delete;
    AssetManagerV0& operator=(const AssetManagerV0&) = delete;
    ~AssetManagerV0();

    MrvString _name;
    Array<AssetsGroupV0*> _assetGroups;
    GeometryGroupV0* _geometryGroup = nullptr;
    MrvMap<MrvString, Array<ShaderAssetV0>> _meshesShaders; ///< by an entry of MeshAssetV0::_meshNames
    Array<RenderingTypeV0*> _renderingTypes;
    Array<BlendShapeGroupV0> _blendShapeGroups; ///< not used: those of the mapping count
};

} // namespace mrv
