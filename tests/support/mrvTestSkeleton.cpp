// tests/support/mrvTestSkeleton.cpp
#include "tests/support/mrvTestSkeleton.h"

#include <gtest/gtest.h>

#include <locale>
#include <sstream>
#include <vector>

namespace mrv::test {

void fillSkeleton(HierarchicalSkeletonDescriptionV1& description, const char* table)
{
    description.clear();
    std::vector<std::string> fathers;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);)
    {
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        std::string name, father;
        if (!(words >> name >> father))
            continue;
        Vector3 position;
        words >> position.x >> position.y >> position.z;
        fathers.push_back(father);
        PODArray<HierarchicalBoneV1*>& bones = description.touchBones();
        bones.push_back(new HierarchicalBoneV1(name.c_str(), nullptr, position, Quaternion::getIdentity(),
                                               bones.sizeInt()));
    }
    for (size_t i = 0; i < fathers.size(); ++i)
    {
        HierarchicalBoneV1* const bone = description.touchBones()[i];
        if (fathers[i] != "-")
            bone->setFather(findBone(description, fathers[i]));
        else if (description.getRootBone() == nullptr)
            description.setRootBone(bone);
    }
    description.initSortedBones();
}

HierarchicalBoneV1* findBone(const HierarchicalSkeletonDescriptionV1& description, const std::string& name)
{
    for (HierarchicalBoneV1* bone : description.getBones())
        if (bone->getName() == name.c_str())
            return bone;
    ADD_FAILURE() << "no bone " << name;
    return nullptr;
}

std::string namesOf(const MrvSet<const HierarchicalBoneV1*>& bones)
{
    std::string names;
    for (const HierarchicalBoneV1* bone : bones)
        names += std::string(bone->getName().c_str()) + " ";
    return names;
}

std::string namesOf(const Array<MrvSet<const HierarchicalBoneV1*>>& sets)
{
    std::string names;
    for (const MrvSet<const HierarchicalBoneV1*>& bones : sets)
        names += namesOf(bones) + "| ";
    return names;
}

} // namespace mrv::test
