// hosts/mrvcharacter/mrvMappingTable.cpp
#include "hosts/mrvcharacter/mrvMappingTable.h"

#include "hosts/mrvcharacter/mrvTextTable.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include <ostream>
#include <string>

namespace mrvcharacter {

namespace {

using Mapping = mrv::GenericSpecificConverterMappingV8;
using Part = mrv::GenericSpecificConverterBoneV1;

constexpr const char* types[] = { "generic", "spine", "grasper", "leg", "root" };
constexpr const char* sides[] = { "right", "", "left" };
constexpr const char* depths[] = { "front", "back", "" };
constexpr const char* heights[] = { "top", "bottom", "" };

template <size_t count>
std::string nameIn(const char* const (&names)[count], int value)
{
    return value >= 0 && static_cast<size_t>(value) < count ? names[value] : "-";
}

class Printer
{
public:
    explicit Printer(const Mapping& mapping)
        : _mapping(mapping)
        , _table({ { "Part" },
                   { "Type" },
                   { "Side" },
                   { "Chain" },
                   { "Effectors", TextTable::Alignment::RIGHT },
                   { "Mirror" },
                   { "Name" } })
    {}

    void print(std::ostream& stream)
    {
        _table.addRow({ "pelvis", "", "", getBoneName(_mapping.getPelvisBone()), "", "", "" });
        for (size_t i = 0; i < _mapping.getSpineBonesSize(); ++i)
            addSpine(i);
        for (size_t i = 0; i < _mapping.getLimbBonesSize(); ++i)
            addLimb(i);
        addEffectors(-1);
        _table.print(stream);
        if (_mapping.getIkExcludedBones().empty())
            return;
        stream << "Left out of IK:";
        for (const int bone : _mapping.getIkExcludedBones())
            stream << ' ' << getBoneName(bone);
        stream << '\n';
    }

private:
    std::string getBoneName(int bone) const
    {
        const auto& bones = _mapping.getSkeletonDescription()->getBones();
        return bone >= 0 && bone < bones.sizeInt() ? bones[static_cast<size_t>(bone)]->getName().c_str()
                                                   : "-";
    }

    static std::string getSide(const Part& part)
    {
        std::string text;
        for (const std::string& word :
             { nameIn(sides, part._sagittalLocation), nameIn(depths, part._coronalLocation),
               nameIn(heights, part._transverseLocation) })
            text += text.empty() || word.empty() ? word : ' ' + word;
        return text == "- - -" ? "-" : text.empty() ? "center" : text;
    }

    std::string getChain(const Part& part) const
    {
        const std::string extension =
            getBoneName(part._firstBoneOfChain[1]) + " > " + getBoneName(part._lastBoneOfChain[1]);
        return part._firstBoneOfChain[0] >= 0 ? getBoneName(part._firstBoneOfChain[0]) + " > " + extension
                                              : extension;
    }

    static std::string getName(const mrv::Array<mrv::MrvString>& names, int index)
    {
        return index >= 0 && index < names.sizeInt() ? names[static_cast<size_t>(index)].c_str() : "";
    }

    static std::string getMirror(const mrv::PODArray<int>& mirrors, size_t index,
                                 const mrv::Array<mrv::MrvString>& names)
    {
        const int mirror = index < mirrors.size() ? mirrors[index] : -1;
        if (mirror == static_cast<int>(index))
            return "itself";
        return mirror < 0 ? "-" : getName(names, mirror);
    }

    /// The limb at whose end an effector hangs, -1 for none.
    int getLimb(const Part& effector) const
    {
        const auto& bones = _mapping.getSkeletonDescription()->getBones();
        const int top = effector.getTopBone();
        const mrv::HierarchicalBoneV1* bone =
            top >= 0 && top < bones.sizeInt() ? bones[static_cast<size_t>(top)]->getFather() : nullptr;
        for (; bone != nullptr; bone = bone->getFather())
            for (size_t i = 0; i < _mapping.getLimbBonesSize(); ++i)
                if (_mapping.getLimbBones()[i]._lastBoneOfChain[1] == bone->getSpecificBoneIndex())
                    return static_cast<int>(i);
        return -1;
    }

    void addSpine(size_t index)
    {
        const Part& spine = _mapping.getSpineBones()[index];
        const auto& names = _mapping.getSpineBoneNames();
        _table.addRow({ "spine", nameIn(types, spine._type), getSide(spine), getChain(spine), "",
                        getMirror(_mapping.getSpineMirrorSources(), index, names),
                        getName(names, static_cast<int>(index)) });
    }

    void addLimb(size_t index)
    {
        const Part& limb = _mapping.getLimbBones()[index];
        const auto& names = _mapping.getLimbBoneNames();
        const int number = static_cast<int>(index);
        size_t effectors = 0;
        for (const Part& effector : _mapping.getEffectorBones())
            effectors += getLimb(effector) == number ? 1 : 0;
        _table.addRow(
            { "limb", nameIn(types, limb._type), getSide(limb), getChain(limb), std::to_string(effectors),
              getMirror(_mapping.getChannelMirrorSources(), index, names), getName(names, number) });
        addEffectors(number);
    }

    /// Those of a limb; -1 for those of none.
    void addEffectors(int limb)
    {
        for (size_t i = 0; i < _mapping.getEffectorBonesSize(); ++i)
        {
            const Part& effector = _mapping.getEffectorBones()[i];
            if (getLimb(effector) == limb)
                _table.addRow({ "  effector", nameIn(types, effector._type), getSide(effector),
                                getChain(effector), "", "",
                                getName(_mapping.getEffectorBoneNames(), static_cast<int>(i)) });
        }
    }

    const Mapping& _mapping;
    TextTable _table;
};

} // namespace

void printMapping(const Mapping& mapping, std::ostream& stream)
{
    if (mapping.getSkeletonDescription() != nullptr)
        Printer(mapping).print(stream);
}

} // namespace mrvcharacter
