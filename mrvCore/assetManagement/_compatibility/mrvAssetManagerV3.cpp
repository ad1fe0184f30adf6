// mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetTree.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetManagerV3, "AssetManagerV3", "c907d87c-c176-4e2e-9a99-5ca99ade5e3d")

void AssetManagerV3::addAttributes()
{
    addAttribute<MrvString>("name", &AssetManagerV3::_name);
    addAttribute<Array<AssetsGroupV0*>>("assetGroups", &AssetManagerV3::_assetGroups);
    addAttribute<GeometryGroupV0*>("geometryGroup", &AssetManagerV3::_geometryGroup);
    addAttribute<MrvMap<MrvString, Array<ShaderGroupV0>>>("meshesShaders",
                                                          &AssetManagerV3::_meshesShaderGroups);
    addAttribute<Array<RenderingTypeV1*>>("renderingTypes", &AssetManagerV3::_renderingTypes);
}

AssetManagerV3::~AssetManagerV3()
{
    deleteAssetTree(*this);
}

namespace {

/// Each shader became a group with that one shader and the attributes that it had.
void stepUpShaders(Array<ShaderGroupV0>& groups, Array<ShaderAssetV0>& shaders)
{
    groups.clear();
    groups.resize(shaders.size());
    for (size_t i = 0; i < shaders.size(); ++i)
    {
        groups[i]._name = shaders[i]._name;
        groups[i]._shaderAttributes.swap(shaders[i]._shaderAttributes);
        stepUp(groups[i]._shaderAssets.addOne(), shaders[i]);
    }
}

void stepUpRenderingTypes(Array<RenderingTypeV1*>& to, Array<RenderingTypeV1*>& from)
{
    to.swap(from);
}

void stepUpRenderingTypes(Array<RenderingTypeV1*>& to, const Array<RenderingTypeV0*>& from)
{
    deleteEachOnce(to);
    for (const RenderingTypeV0* old : from)
    {
        to.push_back(old != nullptr ? new RenderingTypeV1() : nullptr);
        if (old != nullptr)
            to.back()->createFromV0(*old);
    }
}

template <class T>
void setManager(const Array<T*>& objects, AssetManagerV3* manager)
{
    for (T* object : objects)
        if (object != nullptr)
            object->_assetManager = manager;
}

/// What `to` had before goes to `from`, which deletes it.
template <class OldManager>
void stepUpManager(AssetManagerV3& to, OldManager& from)
{
    to._name = std::move(from._name);
    to._assetGroups.swap(from._assetGroups);
    std::swap(to._geometryGroup, from._geometryGroup);
    to._meshesShaderGroups.clear();
    for (auto mesh = from._meshesShaders.begin(); mesh != from._meshesShaders.end(); ++mesh)
        stepUpShaders(to._meshesShaderGroups[mesh.getKey()], mesh.getValue());
    stepUpRenderingTypes(to._renderingTypes, from._renderingTypes);

    for (const AssetsGroupV0* group : to._assetGroups)
        if (group != nullptr)
            setManager(group->_assets, &to);
    if (to._geometryGroup != nullptr)
        setManager(to._geometryGroup->_assets, &to);
    setManager(to._renderingTypes, &to);
}

} // namespace

void AssetManagerV3::createFromV0(AssetManagerV0& old)
{
    stepUpManager(*this, old);
}

void AssetManagerV3::createFromV1(AssetManagerV1& old)
{
    stepUpManager(*this, old);
}

void AssetManagerV3::createFromV2(AssetManagerV2& old)
{
    stepUpManager(*this, old);
}

} // namespace mrv
