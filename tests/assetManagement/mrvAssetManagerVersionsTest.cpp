// tests/assetManagement/mrvAssetManagerVersionsTest.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "tests/support/mrvCoreFixture.h"

#include <memory>
#include <sstream>
#include <string>

namespace mrv {
namespace {

/// What a file of one of the versions 0 to 4 has around its manager: a pointer, which comes first.
class Holder
{
public:
    MRV_PERSISTENT_CLASS(Holder)

    Holder() = default;
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder()
    {
        delete _v0;
        delete _v1;
        delete _v2;
        delete _v3;
    }
    AssetManagerV0*& get(const AssetManagerV0*) { return _v0; }
    AssetManagerV1*& get(const AssetManagerV1*) { return _v1; }
    AssetManagerV2*& get(const AssetManagerV2*) { return _v2; }
    AssetManagerV3*& get(const AssetManagerV3*) { return _v3; }

private:
    AssetManagerV0* _v0 = nullptr;
    AssetManagerV1* _v1 = nullptr;
    AssetManagerV2* _v2 = nullptr;
    AssetManagerV3* _v3 = nullptr;
};

MRV_DEFINE_PERSISTENT_CLASS(Holder, "test::Holder", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c10")

void Holder::addAttributes()
{
    addAttribute<AssetManagerV0*>("v0", &Holder::_v0);
    addAttribute<AssetManagerV1*>("v1", &Holder::_v1);
    addAttribute<AssetManagerV2*>("v2", &Holder::_v2);
    addAttribute<AssetManagerV3*>("v3", &Holder::_v3);
}

// A tree with all that there can be: shared and null objects, cycles, back pointers.

void fillShader(ShaderAssetV0& shader)
{
    shader._name = "skin";
    shader._category = "organic";
    shader._shaderAttributes.resize(2);
    shader._shaderAttributes[0]._name = "tint";
    shader._shaderAttributes[1]._name = "shine";
}

void fillShader(ShaderGroupV0& group)
{
    ShaderAssetV0 shader;
    fillShader(shader);
    group._name = shader._name;
    group._shaderAssets.addOne().createFromV0(shader);
    group._shaderAttributes = shader._shaderAttributes;
}

template <class Manager>
auto& touchShaders(Manager& manager)
{
    if constexpr (std::is_same_v<Manager, AssetManagerV3>)
        return manager._meshesShaderGroups;
    else
        return manager._meshesShaders;
}

void link(RenderingTypeV0&, RenderingTypeV0&) {}
void link(RenderingTypeV1& parent, RenderingTypeV1& child)
{
    child._parent = &parent;
    parent._children.push_back(&child);
}

template <class Manager>
void fillTree(Manager& manager)
{
    AssetManagerV3* back = reinterpret_cast<AssetManagerV3*>(&manager); // as files of old versions have it
    manager._name = "walker";
    auto* body = new MeshAssetV0();
    auto* hat = new MeshAssetV0();
    body->_name = "body";
    body->_meshNames.push_back("bodyShape");
    hat->_name = "hat";
    body->_excludedMeshAssets.push_back(hat);
    hat->_excludedMeshAssets.push_back(body);
    hat->_excludedMeshAssets.push_back(nullptr);
    body->_assetManager = hat->_assetManager = back;
    for (const char* name : { "all", "hats" })
    {
        manager._assetGroups.push_back(new AssetsGroupV0());
        manager._assetGroups.back()->_name = name;
        manager._assetGroups.back()->_assets.push_back(hat);
        manager._assetGroups.back()->_assets.push_back(nullptr);
    }
    manager._assetGroups[0]->_assets.push_back(body);
    manager._geometryGroup = new GeometryGroupV0();
    manager._geometryGroup->_assets.push_back(new GeometryAssetV0());
    manager._geometryGroup->_assets[0]->_filename = "walker.qmx";
    manager._geometryGroup->_assets[0]->_assetManager = back;
    touchShaders(manager)["hatShape"];
    fillShader(touchShaders(manager)["bodyShape"].addOne());

    using RenderingType = std::remove_pointer_t<typename decltype(manager._renderingTypes)::value_type>;
    for (const char* name : { "plain", "poor" })
    {
        manager._renderingTypes.push_back(new RenderingType());
        manager._renderingTypes.back()->_name = name;
        manager._renderingTypes.back()->_assetManager = back;
    }
    manager._renderingTypes[1]->_assetWeights["hats"].assign(2, 0.5f);
    link(*manager._renderingTypes[0], *manager._renderingTypes[1]);
}

std::string nameOf(const MrvString& name)
{
    return name.c_str();
}
template <class T>
std::string nameOf(const T& object)
{
    if constexpr (std::is_pointer_v<T>)
        return object != nullptr ? nameOf(*object) : "null";
    else
        return object._name.c_str();
}

template <class Elements>
std::string namesOf(const Elements& elements)
{
    std::string text = "(";
    for (const auto& element : elements)
        text += nameOf(element) + " ";
    return text + ")";
}

std::string describeShader(const ShaderAssetV0& shader)
{
    return nameOf(shader) + "/" + shader._category.c_str() + namesOf(shader._shaderAttributes);
}
std::string describeShader(const ShaderGroupV0& group)
{
    return nameOf(group) + "[" + group._shaderAssets[0]._category.c_str() + namesOf(group._shaderAssets) +
           "]" + namesOf(group._shaderAttributes);
}
std::string describeLinks(const RenderingTypeV0&)
{
    return "";
}
std::string describeLinks(const RenderingTypeV1& type)
{
    return " below " + nameOf(type._parent) + " above " + namesOf(type._children);
}

template <class Manager>
std::string describe(Manager& manager)
{
    std::ostringstream text;
    text << nameOf(manager) << "\n";
    for (const AssetsGroupV0* group : manager._assetGroups)
        text << "group " << nameOf(group) << namesOf(group->_assets) << "\n";
    for (const MeshAssetV0* mesh : manager._assetGroups[0]->_assets)
        if (mesh != nullptr)
            text << "mesh " << nameOf(mesh) << namesOf(mesh->_meshNames) << namesOf(mesh->_excludedMeshAssets)
                 << "\n";
    for (const GeometryAssetV0* asset : manager._geometryGroup->_assets)
        text << "geometry " << asset->_filename.c_str() << "\n";
    auto& shaders = touchShaders(manager);
    for (auto mesh = shaders.begin(); mesh != shaders.end(); ++mesh)
        for (const auto& shader : mesh.getValue())
            text << "shader of " << nameOf(mesh.getKey()) << " " << describeShader(shader) << "\n";
    for (const auto* type : manager._renderingTypes)
    {
        text << "type " << nameOf(type) << describeLinks(*type);
        for (auto entry = type->_assetWeights.begin(); entry != type->_assetWeights.end(); ++entry)
            text << " " << nameOf(entry.getKey()) << "=" << entry.getValue()[1];
        text << "\n";
    }
    return text.str();
}

/// Whether each object knows its manager, and the two groups share their mesh.
void expectLinked(const AssetManagerV3& manager)
{
    const Array<MeshAssetV0*>& meshes = manager._assetGroups[0]->_assets;
    EXPECT_EQ(meshes[0]->_assetManager, &manager);
    EXPECT_EQ(meshes[2]->_assetManager, &manager);
    EXPECT_EQ(meshes[0], manager._assetGroups[1]->_assets[0]);
    EXPECT_EQ(manager._geometryGroup->_assets[0]->_assetManager, &manager);
    for (const RenderingTypeV1* type : manager._renderingTypes)
        EXPECT_EQ(type->_assetManager, &manager);
}
template <class Manager>
void expectLinked(const Manager& manager)
{
    EXPECT_EQ(manager._assetGroups[0]->_assets[0], manager._assetGroups[1]->_assets[0]);
}

template <class Manager>
class AssetManagers : public CoreTest
{
protected:
    AssetManagers() { Holder::createClassRTTI(true); }
    ~AssetManagers() override { Holder::destroyClassRTTI(true); }
};
using ManagerTypes = testing::Types<AssetManagerV0, AssetManagerV1, AssetManagerV2, AssetManagerV3>;
TYPED_TEST_SUITE(AssetManagers, ManagerTypes);

TYPED_TEST(AssetManagers, comeBackFromBothStreams)
{
    TypeParam* const none = nullptr;
    Holder original, fromBytes, fromText;
    original.get(none) = new TypeParam();
    fillTree(*original.get(none));
    const std::string expected = describe(*original.get(none));
    BinaryStream bytes;
    bytes.pack(original);
    bytes.unpack(fromBytes);
    XMLStream text;
    text.pack(text.getRoot(), original);
    ASSERT_TRUE(XMLStream().unpack(text.getRoot(), fromText));
    for (Holder* loaded : { &fromBytes, &fromText })
    {
        ASSERT_NE(loaded->get(none), nullptr);
        EXPECT_EQ(describe(*loaded->get(none)), expected);
        expectLinked(*loaded->get(none));
    }
}

// Deleting twice ends the process.
TYPED_TEST(AssetManagers, deleteEachObjectOnceWhateverAFileHolds)
{
    TypeParam manager;
    fillTree(manager);
    const auto doubleAll = [](auto& objects) {
        for (size_t i = objects.size(); i-- > 0;)
            objects.push_back(objects[i]);
        objects.push_back(nullptr);
    };
    doubleAll(manager._assetGroups[0]->_assets);
    doubleAll(manager._assetGroups);
    doubleAll(manager._geometryGroup->_assets);
    doubleAll(manager._renderingTypes);
}

void createFrom(AssetManagerV3& manager, AssetManagerV0& old)
{
    manager.createFromV0(old);
}
void createFrom(AssetManagerV3& manager, AssetManagerV1& old)
{
    manager.createFromV1(old);
}
void createFrom(AssetManagerV3& manager, AssetManagerV2& old)
{
    manager.createFromV2(old);
}

template <class Manager>
class OldAssetManagers : public CoreTest
{};
using OldManagerTypes = testing::Types<AssetManagerV0, AssetManagerV1, AssetManagerV2>;
TYPED_TEST_SUITE(OldAssetManagers, OldManagerTypes);

TYPED_TEST(OldAssetManagers, giveTheirTreeToTheNewestOne)
{
    AssetManagerV3 manager, wanted;
    fillTree(manager); // to be replaced
    fillTree(wanted);
    if (!std::is_same_v<TypeParam, AssetManagerV2>)
    {
        wanted._renderingTypes[0]->_children.clear();
        wanted._renderingTypes[1]->_parent = nullptr;
    }
    wanted._name = "heir";
    {
        TypeParam old;
        fillTree(old);
        old._name = "heir";
        createFrom(manager, old);
    }
    EXPECT_EQ(describe(manager), describe(wanted));
    expectLinked(manager);
}

TYPED_TEST(OldAssetManagers, mayBeEmptyOrDamaged)
{
    AssetManagerV3 manager;
    TypeParam old;
    createFrom(manager, old);
    EXPECT_TRUE(manager._assetGroups.empty() && manager._geometryGroup == nullptr);
    fillTree(old);
    old._assetGroups.push_back(nullptr);
    old._geometryGroup->_assets.push_back(nullptr);
    old._renderingTypes.push_back(nullptr);
    createFrom(manager, old);
    EXPECT_EQ(manager._renderingTypes.size(), 3u);
    EXPECT_EQ(manager._renderingTypes.back(), nullptr);
}

} // namespace
} // namespace mrv
