// mrvCore/assetManagement/mrvAssetOverride.h
// What a user made of the chosen meshes of one entity.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstdint>

namespace mrv {

/// The manual override of the mesh assets of one entity: another list, forced changes, or these on top of
/// that. All are indices into the mesh assets of its character.
class MRV_CORE_API AssetOverride
{
public:
    /// Takes another list, and cancels the forced changes made so far.
    void overrideMeshAssetList(const PODArray<int>& meshAssets);
    /// @{
    /// Forces a mesh in or out. An overriding list set before stays in force.
    void forceAddMeshAsset(int meshAsset);
    void forceRemoveMeshAsset(int meshAsset);
    /// @}

    /// The meshes of an entity for which `meshAssets` were chosen: in rising order, each once, also where
    /// nothing is overridden. What is forced both in and out is out. `result` may be `meshAssets`.
    void getMeshAssetWithOverride(const PODArray<int>& meshAssets, PODArray<int>& result) const;
    const PODArray<int>& getOverrideMeshList() const { return _meshAssets; }

    int64_t _entityId = -1;
    PODArray<int> _meshAssets; ///< the list that replaces the chosen one
    PODArray<int> _meshAssetsToAdd;
    PODArray<int> _meshAssetsToRemove;
    bool _useOverrideList = false;
    bool _useOverrideAddRemove = false;
};

} // namespace mrv
