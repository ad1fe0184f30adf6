// mrvCore/animation/_compatibility/mrvAssetManagerImport.cpp
#include "mrvCore/animation/_compatibility/mrvAssetManagerImport.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <cstdint>

namespace mrv {

namespace {

template <typename Key>
using IndexMap = MrvMap<Key, int>;

template <typename Indices>
int findIndex(const Indices& indices, const typename Indices::key_type& key)
{
    const auto found = indices.find(key);
    return found != indices.end() ? found.getValue() : -1;
}

AssetUnitV0 makeMeshUnit(int meshIndex)
{
    AssetUnitV0 unit;
    unit._meshAssetIdx = meshIndex;
    return unit;
}

/// Lists of indices, told apart by a number, that take each index once.
class OnceLists
{
public:
    template <typename Indices>
    void add(Indices& list, int listNumber, int index)
    {
        const size_t knownCount = _known.size();
        _known.insert((static_cast<uint64_t>(listNumber) << 32) | static_cast<uint32_t>(index));
        if (_known.size() != knownCount)
            list.push_back(index);
    }

private:
    MrvSet<uint64_t> _known;
};

/// An array whose records have different names.
template <typename Asset>
class NamedAssets
{
public:
    explicit NamedAssets(Array<Asset>& assets) : _assets(assets) {}

    int find(const MrvString& name) const { return findIndex(_indices, name); }
    int findOrAppend(const Asset& asset)
    {
        const int index = _indices.insert(asset._name, _assets.sizeInt()).getValue();
        if (index == _assets.sizeInt())
            _assets.push_back(asset);
        return index;
    }

private:
    Array<Asset>& _assets;
    IndexMap<MrvString> _indices;
};

/// The part of a name that ends before `end`, from the colon before it on. `end` becomes the place of that
/// colon, npos where there is none.
MrvString takeLastPart(const MrvString& name, size_t& end)
{
    const size_t colon = end != 0 ? name.rfind(':', end - 1) : MrvString::npos;
    const size_t begin = colon != MrvString::npos ? colon + 1 : 0;
    MrvString part = name.substr(begin, end - begin);
    end = colon;
    return part;
}

/// Finds meshes by the rule of MaravoCharacterV24::findMeshAssetIdx without a walk over all of them.
///
/// The names stand in a tree of their parts, the last part at the top: the names that differ from one in a
/// namespace are those above and below it. A name is only added where none is found, with rising indices, so
/// that no name stands above another one.
class MeshNames
{
public:
    MeshNames() { _nodes.push_back(Node()); }

    int find(const MrvString& name) const
    {
        int node = 0;
        for (size_t end = name.size(); end != MrvString::npos;)
        {
            if (_nodes[static_cast<size_t>(node)].mesh != -1)
                return _nodes[static_cast<size_t>(node)].mesh;
            node = findIndex(_children, { node, takeLastPart(name, end) });
            if (node == -1)
                return -1;
        }
        const Node& found = _nodes[static_cast<size_t>(node)];
        return found.mesh != -1 ? found.mesh : found.firstBelow;
    }

    void add(const MrvString& name, int mesh)
    {
        int node = 0;
        for (size_t end = name.size(); end != MrvString::npos;)
        {
            int& firstBelow = _nodes[static_cast<size_t>(node)].firstBelow;
            if (firstBelow == -1)
                firstBelow = mesh;
            node = _children.insert({ node, takeLastPart(name, end) }, _nodes.sizeInt()).getValue();
            if (node == _nodes.sizeInt())
                _nodes.push_back(Node());
        }
        _nodes[static_cast<size_t>(node)].mesh = mesh;
    }

private:
    struct Node
    {
        int mesh = -1;       ///< of this name
        int firstBelow = -1; ///< the first mesh of a longer name
    };
    struct Edge
    {
        bool operator<(const Edge& other) const
        {
            return parent != other.parent ? parent < other.parent : part < other.part;
        }
        int parent = 0;
        MrvString part;
    };

    PODArray<Node> _nodes; ///< the root first, which is no name
    IndexMap<Edge> _children;
};

/// One import. The steps run in the order in which they stand here.
class AssetManagerImport
{
public:
    AssetManagerImport(const AssetManagerV3& manager, const ImportedAssets& to)
        : _manager(manager)
        , _to(to)
        , _shadingGroups(to.shadingGroups)
        , _shaderAttributes(to.shaderAttributes)
        , _shaderAssets(to.shaderAssets)
    {}

    void importShading();
    void importGroups();
    void importExcludedMeshes();
    void importGeometry();
    void importRenderingTypes();

private:
    void importShaderGroup(const ShaderGroupV0& old);
    void findShaderGroups(MeshAssetV1& mesh, int meshIndex, const MeshAssetV0& old);
    void importGroup(AssetGroupV0& group, const AssetsGroupV0& old);
    int importMesh(const MeshAssetV0* old, const MrvString& groupName);
    void importRenderingType(RenderingTypeV3& renderingType, const RenderingTypeV1& old);

    struct AppendedMesh
    {
        const MeshAssetV0* old;
        int index;
    };

    const AssetManagerV3& _manager;
    const ImportedAssets& _to;
    MeshNames _meshNames;
    NamedAssets<ShadingGroupV1> _shadingGroups;
    NamedAssets<ShaderAttributeV0> _shaderAttributes;
    NamedAssets<ShaderAssetV1> _shaderAssets;
    OnceLists _assetsOfGroups;
    OnceLists _attributesOfGroups;
    OnceLists _groupsOfMeshes;
    PODArray<AppendedMesh> _appendedMeshes;
    IndexMap<const MeshAssetV0*> _meshIndices; ///< where each mesh was entered first
    IndexMap<MrvString> _groupIndices;         ///< by the name in the file
    IndexMap<const RenderingTypeV1*> _renderingTypeIndices;
};

void AssetManagerImport::importShading()
{
    const auto& meshes = _manager._meshesShaderGroups;
    for (auto mesh = meshes.begin(); mesh != meshes.end(); ++mesh)
        for (const ShaderGroupV0& group : mesh.getValue())
            importShaderGroup(group);
}

void AssetManagerImport::importShaderGroup(const ShaderGroupV0& old)
{
    ShadingGroupV1 named;
    named._name = old._name;
    const int index = _shadingGroups.findOrAppend(named);
    ShadingGroupV1& group = _to.shadingGroups[static_cast<size_t>(index)];
    for (const ShaderAssetV1& shader : old._shaderAssets)
        _assetsOfGroups.add(group._shaderAssets, index, _shaderAssets.findOrAppend(shader));
    for (const ShaderAttributeV0& attribute : old._shaderAttributes)
        _attributesOfGroups.add(group._shaderAttributes, index, _shaderAttributes.findOrAppend(attribute));
}

void AssetManagerImport::findShaderGroups(MeshAssetV1& mesh, int meshIndex, const MeshAssetV0& old)
{
    for (const MrvString& meshName : old._meshNames)
    {
        const auto found = _manager._meshesShaderGroups.find(meshName);
        if (found == _manager._meshesShaderGroups.end())
            continue;
        for (const ShaderGroupV0& group : found.getValue())
            _groupsOfMeshes.add(mesh._shadingGroups, meshIndex, _shadingGroups.find(group._name));
    }
}

void AssetManagerImport::importGroups()
{
    const Array<AssetsGroupV0*>& groups = _manager._assetGroups;
    _to.allAssetGroups.resize(groups.size());
    for (int i = 0; i < groups.sizeInt(); ++i)
    {
        const AssetsGroupV0* old = groups[static_cast<size_t>(i)];
        importGroup(_to.allAssetGroups[static_cast<size_t>(i)], old != nullptr ? *old : AssetsGroupV0());
        if (old != nullptr)
            _groupIndices.insert(old->_name, i);
        _to.mainAssetGroups.push_back(i);
    }
}

void AssetManagerImport::importGroup(AssetGroupV0& group, const AssetsGroupV0& old)
{
    group._name = old._name.empty() ? "Asset" : old._name;
    for (const MeshAssetV0* mesh : old._assets)
        group._children.push_back(makeMeshUnit(importMesh(mesh, group._name)));
    group._weights.assign(old._assets.size(), 1.0f);
}

int AssetManagerImport::importMesh(const MeshAssetV0* old, const MrvString& groupName)
{
    MeshAssetV1 mesh;
    mesh._name = old != nullptr ? old->_name : "[empty]";
    if (mesh._name == groupName)
        mesh._name += "Asset";
    int index = _meshNames.find(mesh._name);
    if (index == -1)
    {
        index = _to.meshAssets.sizeInt();
        if (old != nullptr)
            findShaderGroups(mesh, index, *old);
        _to.meshAssets.push_back(mesh);
        _meshNames.add(mesh._name, index);
        _appendedMeshes.push_back({ old, index });
    }
    _meshIndices.insert(old, index);
    return index;
}

void AssetManagerImport::importExcludedMeshes()
{
    for (const AppendedMesh& mesh : _appendedMeshes)
    {
        if (mesh.old == nullptr)
            continue;
        for (const MeshAssetV0* excluded : mesh.old->_excludedMeshAssets)
        {
            const int index = excluded != nullptr ? findIndex(_meshIndices, excluded) : -1;
            if (index != -1) // it stands in a group
                _to.meshAssets[static_cast<size_t>(mesh.index)]._excludedAssets.push_back(
                    makeMeshUnit(index));
        }
    }
}

void AssetManagerImport::importGeometry()
{
    if (_manager._geometryGroup == nullptr)
        return;
    for (const GeometryAssetV0* old : _manager._geometryGroup->_assets)
    {
        GeometryAssetV1& asset = _to.geometryAssets.addOne();
        if (old != nullptr)
            asset.createFromV0(*old);
    }
}

void AssetManagerImport::importRenderingTypes()
{
    const Array<RenderingTypeV1*>& types = _manager._renderingTypes;
    for (int i = 0; i < types.sizeInt(); ++i)
        _renderingTypeIndices.insert(types[static_cast<size_t>(i)], i);
    _to.renderingTypes.resize(types.size());
    for (size_t i = 0; i < types.size(); ++i)
        if (types[i] != nullptr)
            importRenderingType(_to.renderingTypes[i], *types[i]);
}

void AssetManagerImport::importRenderingType(RenderingTypeV3& renderingType, const RenderingTypeV1& old)
{
    renderingType._name = old._name;
    if (old._parent != nullptr)
        renderingType._parentRenderingType = findIndex(_renderingTypeIndices, old._parent);

    const auto addOverride = [&](int groupIndex, const MrvString& groupName, const PODArray<float>& weights) {
        if (groupIndex == -1)
        {
            MRV_LOG(ORVEL, LOG_WARNING,
                    "Error when importing the Rendering Type '"
                        << old._name << "' from Orvel 4 character file. The group '" << groupName
                        << "' was not found!");
            return;
        }
        WeightOverrideV0& weightOverride = renderingType._weightOverrides.addOne();
        weightOverride._groupIdx = groupIndex;
        weightOverride._groupWeights = weights;
    };
    for (auto entry = old._assetWeights.begin(); entry != old._assetWeights.end(); ++entry)
        addOverride(findIndex(_groupIndices, entry.getKey()), entry.getKey(), entry.getValue());

    // A rendering type excludes what it does not mention.
    for (int i = 0; i < _manager._assetGroups.sizeInt(); ++i)
    {
        const AssetsGroupV0* group = _manager._assetGroups[static_cast<size_t>(i)];
        const MrvString name = group != nullptr ? group->_name : "";
        if (old._assetWeights.find(name) == old._assetWeights.end())
            addOverride(group != nullptr ? i : -1, name,
                        PODArray<float>(group != nullptr ? group->_assets.size() : 0, 0.0f));
    }
}

} // namespace

void importAssetManager(const AssetManagerV3* manager, const ImportedAssets& to)
{
    const AssetManagerV3 none;
    const AssetManagerV3& tree = manager != nullptr ? *manager : none;
    AssetManagerImport import(tree, to);
    to.name = tree._name;
    import.importShading();
    import.importGroups();
    import.importExcludedMeshes();
    import.importGeometry();
    import.importRenderingTypes();
}

} // namespace mrv
