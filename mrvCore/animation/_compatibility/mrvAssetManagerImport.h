// mrvCore/animation/_compatibility/mrvAssetManagerImport.h
// Turns the assets of a version-4 character, a tree of pointers, into the arrays of version 6.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"

namespace mrv {

class AssetManagerV3;

/// The members of a version-6 character that the import fills.
struct ImportedAssets
{
    MrvString& name;
    PODArray<int>& mainAssetGroups;
    Array<AssetGroupV0>& allAssetGroups;
    Array<MeshAssetV1>& meshAssets;
    Array<GeometryAssetV1>& geometryAssets;
    Array<ShadingGroupV1>& shadingGroups;
    Array<ShaderAttributeV0>& shaderAttributes;
    Array<ShaderAssetV1>& shaderAssets;
    Array<RenderingTypeV3>& renderingTypes;
};

/// Fills the arrays, which are empty before, and the name. A null manager gives what an empty one gives.
///
/// Shaders, attributes, shading groups and meshes of equal names become one; a mesh also becomes one with
/// the first that differs in a namespace, ended by ":", which either of the names has. No mesh is named as
/// its group. A null in a list becomes an empty record, so that the indices of the others stay; a null mesh
/// is a mesh named "[empty]". What names no group is logged and left out.
MRV_CORE_API void importAssetManager(const AssetManagerV3* manager, const ImportedAssets& to);

} // namespace mrv
