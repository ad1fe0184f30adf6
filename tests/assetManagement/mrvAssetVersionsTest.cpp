// tests/assetManagement/mrvAssetVersionsTest.cpp
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "tests/support/mrvCoreFixture.h"

#include <fstream>
#include <map>
#include <string>

namespace mrv {
namespace {

std::string typeOf(const AbstractAttribute& attribute)
{
    return attribute.getAttributeRTTI().getTypeName();
}

using FrozenClasses = CoreTest;

/// Builds the XML form of an object in which no two values are equal; arrays have two elements, pointers are
/// null.
class Sample
{
public:
    void fill(DataItem& item, const std::string& type)
    {
        const size_t bracket = type.find('<');
        const std::string inner = type.substr(bracket + 1, type.rfind('>') - bracket - 1);
        if (type.find("Array<") != std::string::npos && type.find("Map<") == std::string::npos)
        {
            fill(addElement(item), inner);
            fill(addElement(item), inner);
        }
        else if (type.find("Map<") != std::string::npos)
        {
            DataItem& entry = addElement(item);
            fill(addElement(entry), inner.substr(0, inner.find(',')));
            fill(addElement(entry), inner.substr(inner.find(',') + 1));
        }
        else if (type.back() == '*')
            item.addAttribute("pointerID", 0);
        else if (const RTTI* rtti = RTTI::getRTTI(RTTI::getTypeID(type.c_str()));
                 rtti->getAttributesCount() != 0)
            fillObject(item, *rtti);
        else if (type == "mrv::Vector3")
            for (const char* axis : { "x", "y", "z" })
                item.addAttribute(axis, ++_last);
        else
            item.addAttribute("value", type == "bool" ? 1 : ++_last);
    }

private:
    void fillObject(DataItem& item, const RTTI& rtti)
    {
        item.addAttribute("pointerID", ++_last);
        for (unsigned int i = 0; i < rtti.getAttributesCount(); ++i)
        {
            DataItem& child = item.addChild();
            child.setName(rtti.getAttribute(i)->getName());
            fill(child, typeOf(*rtti.getAttribute(i)));
        }
    }
    static DataItem& addElement(DataItem& item)
    {
        const int index = static_cast<int>(item.getChildrenCount());
        DataItem& element = item.addChild();
        element.setName("element");
        element.addAttribute("index", index);
        return element;
    }

    int _last = 100;
};

/// Where each value of an object stands, such as "children/1/meshAssetIdx", and the value.
using Values = std::map<std::string, std::string>;

void collectValues(Values& values, const DataItem& item, const std::string& path)
{
    for (const char* name : { "value", "x", "y", "z" })
        if (const char* value = item.getAttribute(name))
            values[path + (*name == 'v' ? "" : std::string("/") + name)] = value;
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        collectValues(
            values, item.getChild(i),
            path + "/" +
                (item.getChild(i).getAttribute("index") ? std::to_string(i) : item.getChild(i).getName()));
}

template <class T>
Values valuesOf(const T& object)
{
    DataItem root;
    XMLStream().pack(root, object);
    Values values;
    collectValues(values, root.getChild(0u), "");
    return values;
}

/// What an old object gave.
struct Stepped
{
    Values before, after;
    Values fresh; ///< of a new object that took no step
    const RTTI* newClass;
};

template <class New, class Old>
Stepped stepUpSample()
{
    DataItem root;
    DataItem& item = root.addChild();
    item.setName("maravoObject");
    item.addAttribute("typeName", Old::getClassRTTI().getTypeName());
    Sample().fill(item, Old::getClassRTTI().getTypeName());
    Old old;
    EXPECT_TRUE(XMLStream().unpack(root, old));
    Stepped stepped;
    stepped.before = valuesOf(old);
    New next;
    stepped.newClass = &New::getClassRTTI();
    stepped.fresh = valuesOf(next);
    stepUp(next, old);
    stepped.after = valuesOf(next);
    return stepped;
}

/// A step and what it does beyond taking over the attributes of the same names.
struct StepCase
{
    const char* name;
    Stepped (*step)();
    Values renamed; ///< name of an attribute before and after
    Values set;     ///< values that do not come from the old object, "" for an empty array
};

#define STEP(New, Old) #New, &stepUpSample < New, Old>

const StepCase stepCases[] = {
    { STEP(AssetUnitV1, AssetUnitV0), {}, {} },
    { STEP(AssetUnitV2, AssetUnitV1), {}, { { "physicsOverrideIdx", "-1" } } },
    { STEP(AssetUnitV3, AssetUnitV2), {}, { { "deepDeformerAssetIdx", "-1" } } },
    { STEP(AssetGroupV1, AssetGroupV0),
      {},
      { { "skeletonOverrideIdx", "-1" }, { "blindDataOverrideIdx", "-1" } } },
    { STEP(AssetGroupV2, AssetGroupV1), {}, { { "physicsOverrideIdx", "-1" } } },
    { STEP(AssetGroupV3, AssetGroupV2), {}, { { "deepDeformerAssetIdx", "-1" } } },
    { STEP(AssetGroupV4, AssetGroupV3), {}, { { "weightType", "0" } } },
    { STEP(MeshAssetV2, MeshAssetV1), {}, {} },
    { STEP(MeshAssetV3, MeshAssetV2), {}, {} },
    { STEP(MeshAssetV4, MeshAssetV3), {}, {} },
    { STEP(MeshAssetV5, MeshAssetV4),
      {},
      { { "skeletonOverrideIdx", "-1" }, { "blindDataOverrideIdx", "-1" }, { "physicsOverrideIdx", "-1" } } },
    { STEP(MeshAssetV6, MeshAssetV5), {}, {} },
    { STEP(MeshAssetV7, MeshAssetV6), {}, { { "lodLevelFlags", "4294967295" } } },
    { STEP(MeshAssetV8, MeshAssetV7),
      {},
      { { "deepDeformerAssetIdx", "-1" }, { "lodLevelFlags", "4294967295" }, { "geometryTags", "" } } },
    { STEP(GeometryAssetV1, GeometryAssetV0), {}, {} },
    { STEP(GeometryAssetV2, GeometryAssetV1), {}, { { "LODMaxDistance", "10000" } } },
    { STEP(GeometryAssetV3, GeometryAssetV2), {}, {} },
    { STEP(GeometryAssetV4, GeometryAssetV3), {}, { { "LODLevel", "4294967295" } } },
    { STEP(ShaderAttributeV1, ShaderAttributeV0),
      { { "fileName", "stringValue" } },
      { { "attributeValueType", "0" } } },
    { STEP(ShaderAttributeV2, ShaderAttributeV1), {}, {} },
    { STEP(ShaderAttributeV3, ShaderAttributeV2), {}, {} },
    { STEP(ShaderAssetV1, ShaderAssetV0), {}, {} },
    { STEP(ShaderAssetV2, ShaderAssetV1), {}, {} },
    { STEP(WeightOverrideV1, WeightOverrideV0),
      { { "groupIdx", "assetIndex" }, { "groupWeights", "weights" } },
      { { "type", "0" } } },
    { STEP(RenderingTypeV1, RenderingTypeV0), {}, {} },
    { STEP(RenderingTypeV3, RenderingTypeV2), {}, { { "parentRenderingType", "-1" } } },
    { STEP(RenderingTypeV4, RenderingTypeV3),
      { { "groupIdx", "assetIndex" }, { "groupWeights", "weights" } },
      { { "type", "0" } } },
    { STEP(BlindDataV1, BlindDataV0), {}, { { "floatCount", "1" } } },
};

class AssetSteps : public CoreTest, public testing::WithParamInterface<StepCase>
{};

TEST_P(AssetSteps, takeOverWhatThereIsAndSetTheRest)
{
    const Stepped stepped = GetParam().step();
    Values expected;
    for (const auto& [formerPath, value] : stepped.before)
    {
        std::string path = formerPath;
        for (const auto& [before, after] : GetParam().renamed)
            if (const size_t place = path.find("/" + before); place != std::string::npos)
                path.replace(place + 1, before.size(), after);
        if (stepped.newClass->getAttribute(path.substr(1, path.find('/', 1) - 1).c_str()) != nullptr)
            expected[path] = value;
    }
    expected.insert(stepped.fresh.begin(), stepped.fresh.end());
    for (const auto& [name, value] : GetParam().set)
        for (const auto& known : value.empty() ? Values(expected) : stepped.after)
        {
            const std::string& path = known.first;
            if (value.empty() && path.rfind("/" + name + "/", 0) == 0)
                expected.erase(path);
            else if (!value.empty() && path.substr(path.rfind('/') + 1) == name)
                expected[path] = value;
        }
    EXPECT_EQ(stepped.after, expected);
    EXPECT_GT(stepped.before.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Table, AssetSteps, testing::ValuesIn(stepCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FrozenClasses, aValueThatIsNotRandomIsThatOfAnAttribute)
{
    ShaderAttributeV0 old;
    ShaderAttributeV1 attribute;
    attribute.createFromV0(old);
    EXPECT_EQ(attribute._valueType, ShaderAttributeValueType::ATTRIBUTE);
}

TEST_F(FrozenClasses, passOnWhatIsNotStored)
{
    ShaderAttributeV2 old;
    old._minValue = "3";
    old._maxValue = "4.5";
    ShaderAttributeV3 attribute;
    attribute.createFromV2(old);
    EXPECT_EQ(attribute.getMinIntValue(), 3);
    EXPECT_EQ(attribute.getMaxFloatValue(), 4.5f);
    EXPECT_STREQ(old._minValue.c_str(), "3") << "an object that is not moved is copied";

    MeshAssetV7 mesh;
    mesh._isFur = MeshAssetV8::IsFurStatus::IS_FUR;
    EXPECT_TRUE(MeshAssetV8(mesh).isFur());
}

TEST_F(FrozenClasses, arraysOfTheSameClassAreMoved)
{
    Array<AssetUnitV3> units(3), taken;
    const AssetUnitV3* block = units.begin();
    stepUp(taken, units);
    EXPECT_EQ(taken.begin(), block);

    MrvMap<short, Array<GeometryAssetV1>> former;
    former[-2].resize(2);
    former[5].resize(1);
    former[5][0]._filename = "a.qmx";
    MrvMap<short, Array<GeometryAssetV2>> latter;
    latter[9].resize(1);
    stepUp(latter, former);
    ASSERT_EQ(latter.size(), 2u);
    EXPECT_EQ(latter[-2].size(), 2u);
    ASSERT_EQ(latter[5].size(), 1u);
    EXPECT_STREQ(latter[5][0]._filename.c_str(), "a.qmx");
}

} // namespace
} // namespace mrv
