// mrvCore/assetManagement/_compatibility/mrvAssetTree.h
// What the old asset managers have in common: the tree of objects that each of them owns.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"

#include <algorithm>
#include <functional>

namespace mrv {

/// Deletes the distinct objects of a list and empties it. A damaged file may list an object twice, or null.
template <class T>
void deleteEachOnce(Array<T*>& objects)
{
    std::sort(objects.begin(), objects.end(), std::less<T*>());
    T** const end = std::unique(objects.begin(), objects.end());
    std::for_each(objects.begin(), end, [](T* object) { delete object; });
    objects.clear();
}

/// Deletes what a manager owns.
template <class AssetManager>
void deleteAssetTree(AssetManager& manager)
{
    // A mesh may stand in several groups, and so belongs to none of them.
    Array<MeshAssetV0*> meshes;
    for (const AssetsGroupV0* group : manager._assetGroups)
        if (group != nullptr)
            meshes.insert(meshes.end(), group->_assets.begin(), group->_assets.end());
    deleteEachOnce(manager._assetGroups);
    deleteEachOnce(meshes);
    deleteEachOnce(manager._renderingTypes);
    delete manager._geometryGroup;
}

} // namespace mrv
