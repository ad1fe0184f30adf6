// tests/animation/mrvHierarchicalBoneShapesTest.cpp
#include "mrvCore/animation/mrvHierarchicalBone.h"

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "tests/support/mrvTestSkeleton.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mrv::test {
namespace {

using Bone = HierarchicalBoneV1;
using Bones = MrvSet<const Bone*>;
using Description = HierarchicalSkeletonDescriptionV1;

/// Two arms on a spine, legs below; the right hand has one finger more than the left one.
const char* const body = R"(
    hips      -
    spine     hips
    head      spine
    armL      spine
    armR      spine
    handL     armL
    handR     armR
    fingerL   handL
    fingerR   handR
    thumbR    handR
    legL      hips
    legR      hips
    footL     legL
    footR     legR
)";

TEST(HierarchicalBoneShapes, levelsLeavesAndSignatures)
{
    Description description;
    fillSkeleton(description, body);
    Array<Bones> levels;
    description.getRootBone()->getSubNodes(levels);
    EXPECT_EQ(namesOf(levels), "hips | spine legL legR | head armL armR footL footR | handL handR | "
                               "fingerL fingerR thumbR | ");
    const Bone* const head = findBone(description, "head");
    head->getSubNodes(levels);
    EXPECT_EQ(namesOf(levels), "head | ");

    Bones bones;
    Bone::getLeaves(bones);
    EXPECT_TRUE(bones.empty());
    for (const char* name : { "spine", "handR", "head", "legL" })
        bones.insert(findBone(description, name));
    Bone::getLeaves(bones);
    EXPECT_EQ(namesOf(bones), "head fingerL fingerR thumbR footL ");

    EXPECT_EQ(head->getMorphSignature(), std::multiset<unsigned int>());
    EXPECT_EQ(findBone(description, "handR")->getMorphSignature(), std::multiset<unsigned int>({ 0, 0 }));
    EXPECT_EQ(findBone(description, "spine")->getMorphSignature(), std::multiset<unsigned int>({ 0, 1, 1 }));
}

struct IsomorphicCase
{
    const char* a;
    const char* b;
    bool isomorphic;
};

TEST(HierarchicalBoneShapes, isomorphicComparesHeightsAndTheSignaturesOfEachLevel)
{
    Description description;
    fillSkeleton(description, body);
    const IsomorphicCase cases[] = {
        { "spine", "spine", true }, { "head", "footL", true }, { "legL", "legR", true },
        { "armL", "armR", false },  { "handL", "legR", true }, { "handR", "legR", false },
        { "armL", "handR", false }, { "legL", "head", false },
    };
    for (const IsomorphicCase& row : cases)
        EXPECT_EQ(Bone::isomorphic(findBone(description, row.a), findBone(description, row.b)),
                  row.isomorphic)
            << row.a << " " << row.b;
}

TEST(HierarchicalBoneShapes, theLowestCommonAncestorIsSoughtBelowTheGivenRoot)
{
    Description description;
    fillSkeleton(description, body);
    findBone(description, "footR")->setFather(nullptr);
    const std::vector<std::vector<const char*>> cases = {
        // root, result, bones
        { "", "", "armL" },
        { "", "spine", "armL", "armR" },
        { "hips", "spine", "fingerL", "thumbR", "head" },
        { "", "hips", "fingerL", "legL" },
        { "", "armL", "armL", "fingerL" },
        { "", "armL", "fingerL", "armL" },
        { "", "", "fingerL", "footR" },
        { "armL", "", "fingerL", "fingerR" },
        { "hips", "hips", "legL", "fingerL" },
        { "armL", "", "armL", "fingerL" }, // the way of a bone that is the root goes on above it
    };
    for (const std::vector<const char*>& row : cases)
    {
        const auto find = [&](const char* name) {
            return *name == '\0' ? nullptr : findBone(description, name);
        };
        PODArray<const Bone*> bones;
        for (size_t i = 2; i < row.size(); ++i)
            bones.push_back(find(row[i]));
        const Bone* const found = Bone::findLowestCommonAncester(find(row[0]), bones);
        EXPECT_STREQ(found != nullptr ? found->getName().c_str() : "", row[1]) << testing::PrintToString(row);
    }
}

std::string equalBranches(const Bone* root)
{
    Array<Bones> result(1); // what was there before has to go
    const bool found = Bone::isomorphicSubBranches(root, result);
    EXPECT_EQ(found, result.any());
    return namesOf(result);
}

TEST(HierarchicalBoneShapes, equalBranchesAreNamedByTheirTops)
{
    Description description;
    fillSkeleton(description, "a -\n b a\n c b");
    EXPECT_EQ(equalBranches(description.getRootBone()), "");
    fillSkeleton(description, R"(
        root -
        spine root
        left1 spine
        right1 spine
        left2 left1
        right2 right1
        left3 left2
        right3 right2)");
    EXPECT_EQ(equalBranches(description.getRootBone()), "left1 right1 | ");
    // The thumb keeps the hands from being equal; what finds no partner stays among the leaves.
    fillSkeleton(description, body);
    EXPECT_EQ(equalBranches(description.getRootBone()), "head fingerL fingerR thumbR | legL legR | ");
}

/// The definition of equal branches, pair by pair.
std::string equalBranchesByPairs(const Bone* root)
{
    Array<Bones> levels;
    root->getSubNodes(levels);
    std::vector<Bones> groups(1);
    for (const Bones& level : levels)
        for (const Bone* bone : level)
            if (bone->getNbChildren() == 0)
                groups[0].insert(bone);
    const auto signature = [](const Bones& bones) {
        return bones.empty() ? std::multiset<unsigned int>{ 999 } : (*bones.begin())->getMorphSignature();
    };
    const auto place = [&](std::vector<Bones>& sets, const Bone* a, const Bone* b) {
        size_t i = 0;
        while (i < sets.size() && signature(sets[i]) != a->getMorphSignature())
            ++i;
        sets.resize(std::max(sets.size(), i + 1));
        sets[i].insert(a);
        sets[i].insert(b);
    };
    for (size_t group = 0; group < groups.size(); ++group)
    {
        std::vector<Bones> fathers;
        Bones promoted;
        for (auto x = groups[group].begin(); x != groups[group].end(); ++x)
        {
            for (auto y = x; y != groups[group].end(); ++y)
            {
                const Bone* const a = (*x)->getFather();
                const Bone* const b = (*y)->getFather();
                if (*x == root || *y == root || a == root || b == root || a == b ||
                    a->depth() != b->depth() || a->getMorphSignature() != b->getMorphSignature())
                    continue;
                place(fathers, a, b);
                promoted.insert(*x);
                promoted.insert(*y);
            }
        }
        for (Bones& set : groups)
            for (const Bone* bone : promoted)
                set.erase(bone);
        groups.insert(groups.end(), fathers.begin(), fathers.end());
    }
    std::string result;
    Bones taken;
    for (const Bones& group : groups)
    {
        std::vector<Bones> parts(1, group);
        if (group.size() > 3)
        {
            parts.clear();
            for (const Bone* bone : group)
                place(parts, bone, bone);
        }
        for (const Bones& part : parts)
        {
            if (part.size() < 2 || taken.find(*part.begin()) != taken.end())
                continue;
            result += namesOf(part) + "| ";
            taken.insert(part.begin(), part.end());
        }
    }
    return result;
}

TEST(HierarchicalBoneShapes, equalBranchesOfRandomTreesAgreeWithTheDefinition)
{
    RandomNumberGenerator rng;
    rng.setSeed(5);
    size_t groups = 0;
    for (int tree = 0; tree < 400; ++tree)
    {
        Description description;
        PODArray<Bone*>& bones = description.touchBones();
        const unsigned int count = 2 + rng.rand() % 40;
        const unsigned int bushiness = 1 + rng.rand() % 12; // how far back a bone looks for its father
        for (unsigned int i = 0; i < count; ++i)
        {
            const unsigned int back = 1 + rng.rand() % bushiness;
            Bone* const father = i == 0 ? nullptr : bones[back > i ? 0 : i - back];
            const int index = static_cast<int>(rng.rand() % 64);
            bones.push_back(new Bone(("b" + std::to_string(i)).c_str(), father, index));
        }
        const std::string expected = equalBranchesByPairs(bones[0]);
        ASSERT_EQ(equalBranches(bones[0]), expected) << "tree " << tree;
        groups += static_cast<size_t>(std::count(expected.begin(), expected.end(), '|'));
    }
    EXPECT_GT(groups, 400u);
}

} // namespace
} // namespace mrv::test
