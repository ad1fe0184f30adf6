// mrvCore/assetManagement/mrvMeshAsset.cpp
#include "mrvCore/assetManagement/mrvMeshAsset.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MeshAssetV8, "MeshAssetV8", "f40672fa-42e3-43b3-a66e-8ecf6a0b5e32")

// This list is the file format: order, names and types stay. A change is a MeshAssetV9.
void MeshAssetV8::addAttributes()
{
    addAttribute<MrvString>("name", &MeshAssetV8::_name);
    addAttribute<MrvString>("exportAlias", &MeshAssetV8::_exportAlias);
    addAttribute<PODArray<int>>("shadingGroups", &MeshAssetV8::_shadingGroups);
    addAttribute<Array<AssetUnitV3>>("excludedAssets", &MeshAssetV8::_excludedAssets);
    addAttribute<ClothAssetV0>("clothAsset", &MeshAssetV8::_clothAsset);
    addAttribute<FurAssetV0>("furAsset", &MeshAssetV8::_furAsset);
    addAttribute<uint32_t>("lodLevelFlags", &MeshAssetV8::_lodLevelFlags);
    addAttribute<PODArray<short>>("geometryTags", &MeshAssetV8::_geometryTags);
}

bool MeshAssetV8::isFur() const
{
    if (_isFur == IsFurStatus::END)
    {
        MrvString furFile;
        _isFur = getFurProperty("furFile", furFile) ? IsFurStatus::IS_FUR : IsFurStatus::NOT_FUR;
    }
    return _isFur == IsFurStatus::IS_FUR;
}

bool MeshAssetV8::getFurProperty(const MrvString& name, MrvString& value) const
{
    return FurInformationManipulator(_furAsset._furInformation).getFurProperty(name, value);
}

void MeshAssetV8::setFurProperty(const MrvString& name, const MrvString& value)
{
    FurInformationManipulator manipulator(_furAsset._furInformation);
    manipulator.setFurProperty(name, value);
    _furAsset._furInformation = manipulator.getModifiedFurInformation();
}

} // namespace mrv
