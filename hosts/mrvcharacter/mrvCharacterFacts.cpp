// hosts/mrvcharacter/mrvCharacterFacts.cpp
#include "hosts/mrvcharacter/mrvCharacterFacts.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"

#include <charconv>
#include <cstring>
#include <string_view>
#include <unordered_map>

namespace mrvcharacter {

namespace {

constexpr const char* element = "element";
constexpr const char* identity = "pointerID";

bool isNamed(const mrv::DataItem& item, const char* name)
{
    return std::strcmp(item.getName(), name) == 0;
}

// Files have all digits of a float; people want those that matter.
std::string shorten(const char* text)
{
    const std::string_view digits = text;
    float value = 0.0f;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() ||
        digits.find('.') == std::string_view::npos)
        return text;
    char shortest[32];
    return std::string(shortest, std::to_chars(shortest, shortest + sizeof(shortest), value).ptr);
}

/// Walks the items that an XML stream has packed a character into: these follow the attribute lists.
class Flattener
{
public:
    explicit Flattener(std::vector<Fact>& facts) : _facts(facts) {}

    void addCharacter(const mrv::DataItem& item)
    {
        for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
            isMap(item.getChild(i).getName()) ? addMap(item.getChild(i))
                                              : add(item.getChild(i), item.getChild(i).getName());
    }

private:
    static bool isMap(const char* attribute)
    {
        const mrv::RTTI& type =
            mrv::MaravoCharacterV24::getClassRTTI().getAttribute(attribute)->getAttributeRTTI();
        return std::strncmp(type.getTypeName(), "MrvMap<", 7) == 0;
    }

    // Each entry has its key and its value below it.
    void addMap(const mrv::DataItem& item)
    {
        const std::string path = item.getName();
        _facts.push_back({ path + ".count", std::to_string(item.getChildrenCount()) });
        for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        {
            const mrv::DataItem& entry = item.getChild(i);
            add(entry.getChild(1u), path + '{' + getValue(entry.getChild(0u)) + '}');
        }
    }

    void addMembers(const mrv::DataItem& item, const std::string& path)
    {
        for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        {
            const mrv::DataItem& member = item.getChild(i);
            add(member, path + '.' + member.getName());
        }
    }

    void add(const mrv::DataItem& item, const std::string& path)
    {
        if (isNamed(item, "skeletonDescription"))
            addSkeleton(item, path);
        else if (const char* value = item.getAttribute("value"))
            _facts.push_back({ path, shorten(value) });
        else if (item.getAttribute("x") != nullptr)
            _facts.push_back({ path, joinComponents(item) });
        else if (item.getChildrenCount() == 0 || isNamed(item.getChild(0u), element))
            addContainer(item, path);
        else
            addMembers(item, path);
    }

    static std::string joinComponents(const mrv::DataItem& item)
    {
        std::string text;
        for (unsigned int i = 0; i < item.getAttributesCount(); ++i)
            text += (i == 0 ? "(" : ", ") + shorten(item.getAttribute(i).second);
        return text + ')';
    }

    void addContainer(const mrv::DataItem& item, const std::string& path)
    {
        _facts.push_back({ path + ".count", std::to_string(item.getChildrenCount()) });
        for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        {
            const mrv::DataItem& entry = item.getChild(i);
            add(entry, path + '[' + std::to_string(i) + ']');
        }
    }

    // The tree of bones is packed where the first pointer to each bone stands, one inside the other.
    void addSkeleton(const mrv::DataItem& item, const std::string& path)
    {
        std::unordered_map<std::string, int> countOfName;
        forEachBone(item, [&](const mrv::DataItem& bone) { ++countOfName[getText(bone, "name")]; });
        forEachBone(item, [&](const mrv::DataItem& bone) {
            std::string name = getText(bone, "name");
            if (countOfName[name] > 1)
                name += '#' + getText(bone, "specificBoneIndex");
            _boneNames[bone.getAttribute(identity)] = name;
        });
        _facts.push_back({ path + ".name", getText(item, "name") });
        _facts.push_back({ path + ".rootBone", getBoneName(*item.getChild("rootBone")) });
        _facts.push_back({ path + ".bones", joinBoneNames(*item.getChild("bones")) });
        forEachBone(item, [&](const mrv::DataItem& bone) { addBone(bone, path); });
    }

    void addBone(const mrv::DataItem& bone, const std::string& path)
    {
        const std::string bonePath = path + ".bones[" + getBoneName(bone) + ']';
        for (unsigned int i = 0; i < bone.getChildrenCount(); ++i)
        {
            const mrv::DataItem& member = bone.getChild(i);
            const std::string memberPath = bonePath + '.' + member.getName();
            if (isNamed(member, "father"))
                _facts.push_back({ memberPath, getBoneName(member) });
            else if (isNamed(member, "children"))
                _facts.push_back({ memberPath, joinBoneNames(member) });
            else
                add(member, memberPath);
        }
    }

    /// Every item below that holds the content of a bone, fathers first.
    template <typename Visit>
    static void forEachBone(const mrv::DataItem& item, const Visit& visit)
    {
        for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        {
            const mrv::DataItem& child = item.getChild(i);
            if (child.getAttribute(identity) != nullptr && child.getChild("localOri") != nullptr)
                visit(child);
            forEachBone(child, visit);
        }
    }

    static std::string getText(const mrv::DataItem& item, const char* member)
    {
        const mrv::DataItem* found = item.getChild(member);
        return found != nullptr ? getValue(*found) : "";
    }

    static std::string getValue(const mrv::DataItem& item)
    {
        const char* value = item.getAttribute("value");
        return value != nullptr ? value : "";
    }

    std::string getBoneName(const mrv::DataItem& pointer) const
    {
        const char* id = pointer.getAttribute(identity);
        const auto found = _boneNames.find(id != nullptr ? id : "");
        return found != _boneNames.end() ? found->second : "none";
    }

    std::string joinBoneNames(const mrv::DataItem& pointers) const
    {
        std::string names;
        for (unsigned int i = 0; i < pointers.getChildrenCount(); ++i)
            names += (i == 0 ? "" : " ") + getBoneName(pointers.getChild(i));
        return names;
    }

    std::vector<Fact>& _facts;
    std::unordered_map<std::string, std::string> _boneNames; ///< by the identity in the packed items
};

} // namespace

std::vector<Fact> listFacts(const mrv::MaravoCharacterV24& character)
{
    mrv::DataItem root("character");
    mrv::XMLStream().pack(root, character);
    std::vector<Fact> facts;
    Flattener(facts).addCharacter(root.getChild(0u));
    return facts;
}

} // namespace mrvcharacter
