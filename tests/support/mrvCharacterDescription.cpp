// tests/support/mrvCharacterDescription.cpp
#include "tests/support/mrvCharacterDescription.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

namespace mrv {

namespace {

using Json = nlohmann::json;

/// Walks a description along the items that a character packs into. An item tells no types: what an element
/// has to be is told by the description.
class Comparison
{
public:
    Comparison(const HierarchicalSkeletonDescriptionV1* skeleton, double tolerance)
        : _skeleton(skeleton)
        , _tolerance(tolerance)
    {}

    void compare(const std::string& path, const DataItem& item, const Json& expected) const
    {
        if (expected.is_object())
            compareObject(path, item, expected);
        else if (!expected.is_array())
            compareValue(path, item.getAttribute("value"), expected);
        else if (item.getAttribute("x") != nullptr)
            compareVector(path, item, expected);
        else
            compareElements(path, item, expected);
    }

private:
    void compareObject(const std::string& path, const DataItem& item, const Json& expected) const
    {
        EXPECT_EQ(item.getChildrenCount(), expected.size()) << path;
        for (const auto& [name, value] : expected.items())
        {
            const DataItem* child = item.getChild(name.c_str());
            if (child == nullptr)
                ADD_FAILURE() << path << '.' << name << " is missing";
            else if (name == "skeletonDescription")
                compareSkeleton(value);
            else
                compare(path + '.' + name, *child, value);
        }
    }

    void compareElements(const std::string& path, const DataItem& item, const Json& expected) const
    {
        ASSERT_EQ(item.getChildrenCount(), expected.size()) << path;
        for (unsigned int i = 0; i < expected.size(); ++i)
        {
            const std::string place = path + '[' + std::to_string(i) + ']';
            const DataItem& element = item.getChild(i);
            if (!expected[i].contains("key"))
            {
                compare(place, element, expected[i]);
                continue;
            }
            ASSERT_EQ(element.getChildrenCount(), 2u) << place;
            compare(place + ".key", element.getChild(0u), expected[i]["key"]);
            compare(place + ".value", element.getChild(1u), expected[i]["value"]);
        }
    }

    void compareVector(const std::string& path, const DataItem& item, const Json& expected) const
    {
        const unsigned int idCount = item.getAttribute("index") != nullptr ? 1 : 0;
        ASSERT_EQ(item.getAttributesCount() - idCount, expected.size()) << path;
        for (size_t i = 0; i < expected.size(); ++i)
            compareValue(path, item.getAttribute(XMLStream::dimensionName[i]), expected[i]);
    }

    void compareValue(const std::string& path, const char* actual, const Json& expected) const
    {
        ASSERT_NE(actual, nullptr) << path;
        if (expected.is_string())
            EXPECT_EQ(actual, expected.get<std::string>()) << path;
        else if (expected.is_boolean())
            EXPECT_STREQ(actual, expected.get<bool>() ? "1" : "0") << path;
        else
            compareNumbers(path, std::stod(actual), expected);
    }

    void compareNumbers(const std::string& path, double actual, const Json& expected) const
    {
        if (expected.is_number_integer())
            EXPECT_EQ(actual, expected.get<double>()) << path;
        else
            EXPECT_NEAR(actual, expected.get<double>(),
                        _tolerance * std::max(1.0, std::abs(expected.get<double>())))
                << path;
    }

    template <typename Numbers>
    void compareNumbers(const std::string& path, const Numbers& actual, const Json& expected) const
    {
        ASSERT_EQ(static_cast<size_t>(std::distance(actual.begin(), actual.end())), expected.size()) << path;
        for (size_t i = 0; i < expected.size(); ++i)
            compareNumbers(path, static_cast<double>(actual.begin()[i]), expected[i]);
    }

    int positionOf(const HierarchicalBoneV1* bone) const
    {
        const auto& bones = _skeleton->getBones();
        const auto place = std::find(bones.begin(), bones.end(), bone);
        return place != bones.end() ? static_cast<int>(place - bones.begin()) : -1;
    }

    void compareSkeleton(const Json& expected) const
    {
        ASSERT_NE(_skeleton, nullptr);
        EXPECT_EQ(_skeleton->getName().c_str(), expected["name"].get<std::string>());
        EXPECT_EQ(positionOf(_skeleton->getRootBone()), expected["rootBone"].get<int>());
        compareNumbers("sortedBones", _skeleton->getSortedBones(), expected["sortedBones"]);
        ASSERT_EQ(_skeleton->getBones().size(), expected["bones"].size());
        for (size_t i = 0; i < _skeleton->getBones().size(); ++i)
            compareBone(*_skeleton->getBones()[i], expected["bones"][i]);
    }

    void compareBone(const HierarchicalBoneV1& bone, const Json& expected) const
    {
        const std::string name = expected["name"].get<std::string>();
        EXPECT_EQ(bone.getName().c_str(), name);
        EXPECT_EQ(positionOf(bone.getFather()), expected["father"].get<int>()) << name;
        EXPECT_EQ(bone.getSpecificBoneIndex(), expected["specificBoneIndex"].get<int>()) << name;
        const Vector3& position = bone.getLocalPosUnscaled();
        const Quaternion& orientation = bone.getLocalOri();
        compareNumbers(name, std::initializer_list<float>{ position.x, position.y, position.z },
                       expected["relativePos"]);
        compareNumbers(
            name, std::initializer_list<float>{ orientation.x, orientation.y, orientation.z, orientation.w },
            expected["localOri"]);
        for (const HierarchicalBoneV1* child : bone.getChildren())
            EXPECT_EQ(child->getFather(), &bone) << name;
    }

    const HierarchicalSkeletonDescriptionV1* _skeleton;
    double _tolerance;
};

} // namespace

CharacterDescription::CharacterDescription(const std::string& fileName)
{
    std::ifstream stream(fileName);
    text.assign(std::istreambuf_iterator<char>(stream), {});
    const Json description = Json::parse(text);
    result = description["result"].get<std::string>();
    versionRead = description["versionRead"].get<int>();
}

namespace {

template <typename T>
void expectObject(const char* kind, const T& object, const HierarchicalSkeletonDescriptionV1* skeleton,
                  const CharacterDescription& description)
{
    const Json expected = Json::parse(description.text);
    DataItem root("root");
    XMLStream().pack(root, object);
    const Comparison comparison(skeleton, expected["tolerance"].get<double>());
    comparison.compare(kind, root.getChild(0u), expected[kind]);
}

} // namespace

void expectDescribed(const MaravoCharacterV24& character, const CharacterDescription& description)
{
    expectObject("character", character, character.getConverterMapping().getSkeletonDescription(),
                 description);
}

void expectDescribed(const GenericSpecificConverterMappingV8& mapping,
                     const CharacterDescription& description)
{
    expectObject("mapping", mapping, mapping.getSkeletonDescription(), description);
}

} // namespace mrv
