// mrvCore/assetManagement/mrvAssetOverride.cpp
#include "mrvCore/assetManagement/mrvAssetOverride.h"

#include "mrvCore/system/containers/mrvSet.h"

namespace mrv {

void AssetOverride::overrideMeshAssetList(const PODArray<int>& meshAssets)
{
    _useOverrideList = true;
    _meshAssets = meshAssets;
    _useOverrideAddRemove = false;
    _meshAssetsToAdd.clear();
    _meshAssetsToRemove.clear();
}

void AssetOverride::forceAddMeshAsset(int meshAsset)
{
    _useOverrideAddRemove = true;
    _meshAssetsToAdd.push_back(meshAsset);
}

void AssetOverride::forceRemoveMeshAsset(int meshAsset)
{
    _useOverrideAddRemove = true;
    _meshAssetsToRemove.push_back(meshAsset);
}

void AssetOverride::getMeshAssetWithOverride(const PODArray<int>& meshAssets, PODArray<int>& result) const
{
    MrvSet<int> meshes;
    for (const int mesh : _useOverrideList ? _meshAssets : meshAssets)
        meshes.insert(mesh);
    if (_useOverrideAddRemove)
    {
        for (const int mesh : _meshAssetsToAdd)
            meshes.insert(mesh);
        for (const int mesh : _meshAssetsToRemove)
            meshes.erase(mesh);
    }
    result.clear();
    for (const int mesh : meshes)
        result.push_back(mesh);
}

} // namespace mrv
