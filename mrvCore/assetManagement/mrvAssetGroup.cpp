// mrvCore/assetManagement/mrvAssetGroup.cpp
#include "mrvCore/assetManagement/mrvAssetGroup.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetUnitV3, "AssetUnitV3", "0ff8b69b-c393-4729-83fb-8319a00fc24b")
MRV_DEFINE_PERSISTENT_CLASS(AssetGroupV4, "AssetGroupV4", "eb022dbd-570e-4546-96bc-de8a639fa0df")

// This list is the file format: order, names and types stay. A change is an AssetUnitV4.
void AssetUnitV3::addAttributes()
{
    addAttribute<int>("meshAssetIdx", &AssetUnitV3::_meshAssetIdx);
    addAttribute<int>("assetGroupIdx", &AssetUnitV3::_assetGroupIdx);
    addAttribute<int>("skeletonOverrideIdx", &AssetUnitV3::_skeletonOverrideIdx);
    addAttribute<int>("blindDataOverrideIdx", &AssetUnitV3::_blindDataOverrideIdx);
    addAttribute<int>("physicsOverrideIdx", &AssetUnitV3::_physicsOverrideIdx);
    addAttribute<int>("deepDeformerAssetIdx", &AssetUnitV3::_deepDeformerAssetIdx);
}

// This list is the file format: order, names and types stay. A change is an AssetGroupV5.
void AssetGroupV4::addAttributes()
{
    addAttribute<MrvString>("name", &AssetGroupV4::_name);
    addAttribute<Array<AssetUnitV3>>("children", &AssetGroupV4::_children);
    addAccessorsAttribute<int>("weightType", &AssetGroupV4::getWeightTypeAsInt,
                               &AssetGroupV4::setWeightTypeFromInt);
    addAttribute<MrvString>("weightAttributeName", &AssetGroupV4::_weightAttributeName);
    addAttribute<PODArray<float>>("weights", &AssetGroupV4::_weights);
    addAttribute<Array<AssetUnitV3>>("excludedAssets", &AssetGroupV4::_excludedAssets);
}

namespace {

/// Meshes in the order in which they are found, each once.
class FoundMeshes
{
public:
    explicit FoundMeshes(PODArray<int>& meshes) : _meshes(meshes)
    {
        for (const int mesh : meshes)
            _known.insert(mesh);
    }
    void add(int mesh)
    {
        const size_t knownCount = _known.size();
        _known.insert(mesh);
        if (_known.size() != knownCount)
            _meshes.push_back(mesh);
    }

private:
    PODArray<int>& _meshes;
    MrvSet<int> _known;
};

/// A group on the way from the first one, and its child that is next.
struct GroupVisit
{
    const AssetGroupV4* group;
    size_t nextChild;
};

} // namespace

void AssetGroupV4::eraseChild(unsigned int index)
{
    if (index < _children.size())
        _children.eraseAt(index);
}

// A group that was entered already has nothing to add: not entering it again ends rings, and keeps groups
// that share their children from multiplying the work. The way is a list of its own, as long as a file makes
// it.
void AssetGroupV4::getAllMeshAssets(PODArray<int>& meshAssets, const MaravoCharacterV24& character) const
{
    const Array<AssetGroupV4>& groups = character._allAssetGroups;
    FoundMeshes found(meshAssets);
    PODArray<bool> isEntered(groups.size(), false);
    if (this >= groups.begin() && this < groups.end())
        isEntered[static_cast<size_t>(this - groups.begin())] = true;
    PODArray<GroupVisit> way;
    way.push_back({ this, 0 });
    while (!way.empty())
    {
        GroupVisit& visit = way.back();
        if (visit.nextChild == visit.group->_children.size())
        {
            way.pop_back();
            continue;
        }
        const AssetUnitV3& child = visit.group->_children[visit.nextChild++];
        const size_t groupIndex = static_cast<size_t>(child._assetGroupIdx);
        if (child._assetGroupIdx == -1)
        {
            if (child._meshAssetIdx != -1)
                found.add(child._meshAssetIdx);
        }
        else if (groupIndex < groups.size() && !isEntered[groupIndex])
        {
            isEntered[groupIndex] = true;
            way.push_back({ &groups[groupIndex], 0 });
        }
    }
}

} // namespace mrv
