// tests/support/mrvTestRig.cpp
#include "tests/support/mrvTestRig.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "tests/support/mrvTestSkeleton.h"

#include <algorithm>
#include <locale>
#include <map>
#include <random>
#include <sstream>
#include <vector>

namespace mrv::test {

namespace {

using Part = GenericSpecificConverterBoneV1;

struct RigBone
{
    std::string name;
    std::string father;
    Vector3 position;
};

std::string onSide(std::string name, char side)
{
    if (name.back() == '*')
        name.back() = side;
    return name;
}

std::vector<RigBone> readTable(const std::string& table)
{
    std::vector<RigBone> bones;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);)
    {
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        RigBone bone;
        if (!(words >> bone.name >> bone.father))
            continue;
        words >> bone.position.x >> bone.position.y >> bone.position.z;
        for (const char side : { 'R', 'L' })
        {
            const Vector3& at = bone.position;
            bones.push_back({ onSide(bone.name, side), onSide(bone.father, side),
                              Vector3(at.x, side == 'R' ? -at.y : at.y, at.z) });
            if (bone.name.back() != '*')
            {
                bones.back() = bone;
                break;
            }
        }
    }
    return bones;
}

class Describer
{
public:
    explicit Describer(const GenericSpecificConverterMappingV8& mapping) : _mapping(mapping) {}

    std::string describe()
    {
        _text << "pelvis " << nameAt(_mapping.getPelvisBone()) << '\n';
        for (size_t i = 0; i < _mapping.getSpineBonesSize(); ++i)
        {
            _text << "spine";
            addPlace(_mapping.getSpineBones()[i]);
            addPlanes(_mapping.getSpineBones()[i]);
            _text << " ~" << _mapping.getSpineMirrorSources()[i] << '\n';
        }
        for (size_t i = 0; i < _mapping.getLimbBonesSize(); ++i)
            addLimb(i);
        for (size_t i = 0; i < _mapping.getEffectorBonesSize(); ++i)
        {
            const Part& effector = _mapping.getEffectorBones()[i];
            _text << "effector " << _mapping.getEffectorBoneNames()[i].c_str() << ' '
                  << typeNames[effector._type];
            addPlace(effector);
            _text << '\n';
        }
        _text << "excluded";
        for (const int bone : _mapping.getIkExcludedBones())
            _text << ' ' << nameAt(bone);
        _text << '\n';
        return _text.str();
    }

private:
    static constexpr const char* typeNames[] = { "GENERIC", "SPINE", "GRASPER", "LEG" };

    std::string nameAt(int bone) const
    {
        const auto& bones = _mapping.getSkeletonDescription()->getBones();
        return bone < 0 ? "-" : bones[static_cast<size_t>(bone)]->getName().c_str();
    }

    void addPlace(const Part& part)
    {
        _text << ' ';
        if (part._firstBoneOfChain[0] >= 0 || part._lastBoneOfChain[0] >= 0)
            _text << nameAt(part._firstBoneOfChain[0]) << '>';
        _text << nameAt(part._firstBoneOfChain[1]);
        if (part._lastBoneOfChain[0] >= 0 && part._lastBoneOfChain[0] != part._firstBoneOfChain[1])
            _text << "!=" << nameAt(part._lastBoneOfChain[0]);
        _text << '>' << nameAt(part._lastBoneOfChain[1]) << ' ' << "FBC-"[part._coronalLocation]
              << "TBC-"[part._transverseLocation] << "RCL-"[part._sagittalLocation];
    }

    void addPlanes(const Part& part)
    {
        for (int chain = 0; chain < 2; ++chain)
        {
            const Vector3& plane = part._relativeIkNormalPlane[chain];
            if (plane.norm2() > 0.0f)
                _text << (chain == 0 ? " aux" : " ext") << plane;
        }
    }

    void addLimb(size_t i)
    {
        const Part& limb = _mapping.getLimbBones()[i];
        const int mirror = _mapping.getChannelMirrorSources()[i];
        _text << "limb " << _mapping.getLimbBoneNames()[i].c_str() << ' ' << typeNames[limb._type];
        addPlace(limb);
        addPlanes(limb);
        if (mirror >= 0)
            _text << " ~" << _mapping.getLimbBoneNames()[static_cast<size_t>(mirror)].c_str();
        for (const int source : _mapping.getEffectorMirrorSources()[i]._effectorMirrorSourcesIdx)
            _text << " [" << source << ']';
        for (const RollAttributesV0& roll : limb._rollAttributes[1])
            _text << " rolls at " << nameAt(roll._farEndBoneIdx);
        _text << '\n';
    }

    const GenericSpecificConverterMappingV8& _mapping;
    std::ostringstream _text;
};

} // namespace

void fillRig(GenericSpecificConverterMappingV8& mapping, const std::string& table, unsigned int order)
{
    std::vector<RigBone> bones = readTable(table);
    std::map<std::string, Vector3> positions;
    for (const RigBone& bone : bones)
        positions[bone.name] = bone.position;
    if (order != 0)
        std::shuffle(bones.begin(), bones.end(), std::mt19937(order));
    std::ostringstream local;
    local.imbue(std::locale::classic());
    local.precision(9);
    for (const RigBone& bone : bones)
    {
        const Vector3 position = bone.father == "-" ? bone.position : bone.position - positions[bone.father];
        local << bone.name << ' ' << bone.father << ' ' << position.x << ' ' << position.y << ' '
              << position.z << '\n';
    }
    HierarchicalSkeletonDescriptionV1 description;
    fillSkeleton(description, local.str().c_str());
    mapping.duplicateHierarchicalSkeletonDescription(description);
}

std::string describe(const GenericSpecificConverterMappingV8& mapping)
{
    return Describer(mapping).describe();
}

} // namespace mrv::test
