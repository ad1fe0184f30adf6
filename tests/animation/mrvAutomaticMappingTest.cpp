// tests/animation/mrvAutomaticMappingTest.cpp
#include "mrvCore/animation/mrvBoneGeometry.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "tests/animation/mrvAutomaticMappingRigs.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTestRig.h"
#include "tests/support/mrvTestSkeleton.h"

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

namespace mrv::test {
namespace {

using Bone = HierarchicalBoneV1;
using Mapping = GenericSpecificConverterMappingV8;

class AutomaticMappingTest : public CoreTest
{};

bool mapRig(Mapping& mapping)
{
    return mapping.computeAutomaticMapping(0.5f, AngleUtils::degreeToRadian(5.0f));
}

std::string mapTable(const std::string& table, unsigned int order = 0)
{
    Mapping mapping;
    fillRig(mapping, table, order);
    return mapRig(mapping) ? describe(mapping) : std::string();
}

// Parts in the order of their names, and excluded bones as well.
std::string sorted(const std::string& description)
{
    std::vector<std::string> lines;
    std::istringstream stream(description);
    for (std::string line; std::getline(stream, line);)
    {
        if (line.compare(0, 8, "excluded") == 0)
            std::sort(line.begin(), line.end());
        lines.push_back(line + '\n');
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

TEST_F(AutomaticMappingTest, MapsRigsOfManyShapes)
{
    for (const RigCase& rigCase : rigCases)
        EXPECT_EQ(mapTable(rigCase.rig), rigCase.mapping) << rigCase.name;
}

TEST_F(AutomaticMappingTest, DoesNotDependOnTheOrderInTheFile)
{
    for (const RigCase& rigCase : rigCases)
        for (unsigned int order = 1; order <= 8 && !rigCase.hasTies; ++order)
            EXPECT_EQ(sorted(mapTable(rigCase.rig, order)), sorted(rigCase.mapping)) << rigCase.name << order;
}

TEST_F(AutomaticMappingTest, FollowsTheAxesOfTheCharacter)
{
    // The biped as it looks along -X: left and right change places, and so do the bending planes.
    Mapping mapping;
    fillRig(mapping, rigCases[0].rig);
    mapping.setFrontAxis(Vector3(-1.0f, 0.0f, 0.0f));
    ASSERT_TRUE(mapRig(mapping));
    EXPECT_STREQ(mapping.getLimbBoneNames()[0].c_str(), "LeftArm");
    EXPECT_STREQ(mapping.getLimbBoneNames()[2].c_str(), "LeftLeg");
    EXPECT_EQ(mapping.getLimbBones()[2]._relativeIkNormalPlane[1], Vector3(0.0f, -1.0f, 0.0f));
}

TEST_F(AutomaticMappingTest, EmptiesItsListsAndNoOther)
{
    Mapping mapping;
    fillRig(mapping, rigCases[7].rig);
    mapping.setPelvis("chest");
    ASSERT_TRUE(mapRig(mapping));
    const std::string once = describe(mapping);
    const size_t limbs = mapping.getLimbBonesSize();
    const size_t excluded = mapping.getIkExcludedBones().size();
    ASSERT_GT(excluded, 0u);
    ASSERT_TRUE(mapRig(mapping));
    EXPECT_EQ(mapping.getLimbBonesSize(), limbs);
    EXPECT_EQ(mapping.getIkExcludedBones().size(), 2 * excluded);
    mapping.clearMappingPart();
    mapping.touchIkExcludedBones().clear();
    ASSERT_TRUE(mapRig(mapping));
    EXPECT_EQ(describe(mapping), once);

    Mapping unmapped;
    fillRig(unmapped, "root - 0 0 0\n tip root 0 0 1");
    unmapped.setPelvis("tip");
    unmapped.addSpine(0, 1, false, Vector3());
    EXPECT_FALSE(mapRig(unmapped));
    EXPECT_EQ(unmapped.getPelvisBone(), 1);
    EXPECT_EQ(unmapped.getSpineBonesSize(), 0u);
}

struct ChainCase
{
    const char* name;
    const char* chain; ///< from the first bone, in the order of the table
    const char* middle;
    const char* trimmed;
    Vector3 normal; ///< with X as the hint
};

const ChainCase chainCases[] = {
    { "one bone", "a - 1 2 3", "", "a", { 0.0f, -1.0f, 0.0f } },
    { "two bones", "a - 0 0 1\n b a 0 0 0", "b", "b", { 0.0f, 1.0f, 0.0f } },
    { "straight", "a - 0 0 2\n b a 0 0 1\n c b 0 0 0", "b", "c", { 0.0f, -1.0f, 0.0f } },
    { "bent", "a - 0 0 2\n b a 0.5 0 1\n c b 0 0 0", "b", "c", { 0.0f, 1.0f, 0.0f } },
    { "bent the other way", "a - 0 0 2\n b a -0.5 0 1\n c b 0 0 0", "b", "c", { 0.0f, -1.0f, 0.0f } },
    { "fingers behind",
      "a - 0 0 0\n b a 4 0 0\n c b 8 0.5 0\n d c 9 0 0\n e d 10 0 0",
      "b",
      "c",
      { 0.0f, 0.0f, -1.0f } },
    { "equally near bones",
      "a - 0 0 0\n b a 1 0 0\n c b 3 0 0\n d c 4 0 0",
      "c",
      "c",
      { 0.0f, -1.0f, 0.0f } },
    { "coincident", "a - 0 0 0\n b a 0 0 0\n c b 0 0 0\n d c 0 0 0", "d", "c", { 0.0f, -1.0f, 0.0f } },
};

TEST_F(AutomaticMappingTest, MeasuresChains)
{
    for (const ChainCase& chainCase : chainCases)
    {
        Mapping mapping;
        fillRig(mapping, chainCase.chain);
        PODArray<const Bone*> chain;
        for (const Bone* bone : mapping.getSkeletonDescription()->getBones())
            chain.push_back(bone);
        const Bone* middle = findGeometricMiddleBone(chain.front(), chain.back());
        const Bone* trimmed = trimEndOfChainFromGeometricMiddle(chain.front(), chain.back());
        EXPECT_STREQ(middle != nullptr ? middle->getName().c_str() : "", chainCase.middle) << chainCase.name;
        EXPECT_STREQ(trimmed->getName().c_str(), chainCase.trimmed) << chainCase.name;
        const Vector3 normal = Mapping::computeIkNormalPlane(chain, Vector3(1.0f, 0.0f, 0.0f));
        EXPECT_LT((normal - chainCase.normal).norm(), 1e-5f) << chainCase.name << normal;
    }
}

TEST_F(AutomaticMappingTest, PlanesAreInTheFrameOfTheFirstBone)
{
    HierarchicalSkeletonDescriptionV1 skeleton;
    fillSkeleton(skeleton, "a - 0 0 0\n b a 0 0 -1");
    // A quarter turn about Z: the bone's X is the world's Y.
    const float half = 0.70710678f;
    skeleton.getRootBone()->setLocalOri(Quaternion(0.0f, 0.0f, half, half));
    Mapping mapping;
    mapping.duplicateHierarchicalSkeletonDescription(skeleton);
    const Vector3 forwards(1.0f, 0.125f, 0.0f);
    EXPECT_EQ(mapping.getIkNormalPlaneFromWorldBendingSide(forwards, 0, 1), Vector3(1.0f, 0.0f, 0.0f));
    EXPECT_EQ(mapping.getIkNormalPlaneFromWorldBendingSide(-forwards, 0, 1), Vector3(-1.0f, 0.0f, 0.0f));
    EXPECT_EQ(mapping.getIkNormalPlaneFromWorldBendingSide(forwards, 0, 7), Vector3(1.0f, 0.0f, 0.0f));
    float values[9];
    getPlanesValuesOnHierarchy(values[0], values[1], values[2], values[3], values[4], values[5], values[6],
                               values[7], values[8], mapping.getSkeletonDescription()->getRootBone(),
                               Vector3(0.0f, 0.0f, 2.0f), forwards, Vector3(0.0f, 0.0f, -1.0f));
    EXPECT_EQ(std::vector<float>(values, values + 9), (std::vector<float>{ -1, -2, 0, 0, 0, 0, 0.5f, 0, 1 }));
}

const Bone* childTowards(const Bone* top, const Bone* bone)
{
    while (bone->getFather() != top)
        bone = bone->getFather();
    return bone;
}

// The tops of the effectors of a whole skeleton, pair of leaves by pair of leaves.
std::string topsPairByPair(const Bone& end)
{
    std::vector<const Bone*> leaves;
    std::vector<const Bone*> stack = { &end };
    while (!stack.empty())
    {
        const Bone* bone = stack.back();
        stack.pop_back();
        if (bone->getNbChildren() == 0)
            leaves.push_back(bone);
        stack.insert(stack.end(), bone->getChildren().begin(), bone->getChildren().end());
    }
    std::vector<const Bone*> tops;
    for (const Bone* leaf : leaves)
        tops.push_back(childTowards(&end, leaf));
    for (size_t a = 0; a < leaves.size(); ++a)
    {
        for (size_t b = a + 1; b < leaves.size(); ++b)
        {
            PODArray<const Bone*> pair;
            pair.push_back(leaves[a]);
            pair.push_back(leaves[b]);
            const Bone* common = Bone::findLowestCommonAncester(tops[a], pair);
            if (common == nullptr)
                continue;
            tops[a] = childTowards(common, leaves[a]);
            tops[b] = childTowards(common, leaves[b]);
        }
    }
    std::string text;
    for (size_t i = 0; i < leaves.size(); ++i)
        text += std::string(tops[i]->getName().c_str()) + '>' + leaves[i]->getName().c_str() + ' ';
    return text;
}

TEST_F(AutomaticMappingTest, EffectorsStartWhereTheirBonesPart)
{
    std::mt19937 generator(7);
    const auto random = [&generator](unsigned int below) {
        return static_cast<unsigned int>(generator()) % below;
    };
    for (int round = 0; round < 300; ++round)
    {
        std::string table = "b0 - 0 0 0\n";
        const unsigned int count = 2 + random(30);
        for (unsigned int i = 1; i < count; ++i)
        {
            const unsigned int father = i - 1 - random(std::min(i, 1 + random(6)));
            table += 'b' + std::to_string(i) + " b" + std::to_string(father) + " 0 0 1\n";
        }
        Mapping mapping;
        fillRig(mapping, table);
        GenericSpecificConverterBoneV1 limb;
        limb._type = SkeletonPartType::LEG;
        limb._lastBoneOfChain[1] = 0;
        PODArray<int> indices;
        mapping.addEffectors(limb, indices);
        std::string tops;
        for (const GenericSpecificConverterBoneV1& effector : mapping.getEffectorBones())
        {
            const auto& bones = mapping.getSkeletonDescription()->getBones();
            tops += std::string(bones[static_cast<size_t>(effector.getTopBone())]->getName().c_str()) + '>' +
                    bones[static_cast<size_t>(effector._lastBoneOfChain[1])]->getName().c_str() + ' ';
        }
        ASSERT_EQ(tops, topsPairByPair(*mapping.getSkeletonDescription()->getRootBone())) << table;
        EXPECT_EQ(indices.sizeInt(), mapping.getEffectorBones().sizeInt());
    }
}

// A skeleton in which each bone but the first names its father by a function of its number.
template <class FatherOf>
bool mapTree(int count, FatherOf fatherOf, const Vector3& step, Mapping& mapping)
{
    HierarchicalSkeletonDescriptionV1 skeleton;
    for (int i = 0; i < count; ++i)
    {
        Bone* father = i > 0 ? skeleton.getBones()[static_cast<size_t>(fatherOf(i))] : nullptr;
        skeleton.touchBones().push_back(new Bone("bone", father, step, Quaternion::getIdentity(), i));
    }
    if (count > 0)
        skeleton.setRootBone(skeleton.getBones()[0]);
    mapping.duplicateHierarchicalSkeletonDescription(skeleton);
    return mapRig(mapping);
}

TEST_F(AutomaticMappingTest, AnswersForOddSkeletons)
{
    const auto chain = [](int i) { return i - 1; };
    const auto star = [](int) { return 0; };
    const auto comb = [](int i) { return i % 2 == 0 ? std::max(i - 2, 0) : i - 1; };
    const auto twoChains = [](int i) { return std::max(i - 2, 0); };
    const auto heap = [](int i) { return (i - 1) / 3; };
    const auto brush = [](int i) { return i < 7 ? std::max(i - 2, 0) : 6 - i % 2; };
    const auto twoCombs = [](int i) { return i < 3 ? 0 : i % 4 == 3 || i % 4 == 0 ? i - 2 : i - 4; };
    constexpr int many = 20000;
    const Vector3 step(0.0f, 0.0f, 1.0f);
    struct Odd
    {
        const char* name;
        int count;
        int (*fatherOf)(int);
        Vector3 step;
        bool isMapped;
        size_t limbs;
        size_t effectors;
    };
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const Odd cases[] = {
        { "no bone", 0, chain, step, false, 0, 0 },
        { "one bone", 1, chain, step, false, 0, 0 },
        { "chain", 500, chain, step, false, 0, 0 },
        { "star", 501, star, step, true, 0, 0 },
        { "long chain", many, chain, step, false, 0, 0 },
        { "large star", many, star, step, true, 0, 0 },
        { "two long chains", many + 1, twoChains, step, true, 2, 2 },
        { "two brushes", many + 1, brush, step, true, 2, static_cast<size_t>(many - 6) },
        { "coincident", 121, heap, Vector3(), true, 3, 9 },
        { "not a number", 121, heap, Vector3(nan), true, 3, 9 },
        { "infinite", 121, heap, Vector3(infinity, 0.0f, -infinity), true, 3, 9 },
    };
    for (const Odd& odd : cases)
    {
        Mapping mapping;
        EXPECT_EQ(mapTree(odd.count, odd.fatherOf, odd.step, mapping), odd.isMapped) << odd.name;
        EXPECT_EQ(mapping.getLimbBonesSize(), odd.limbs) << odd.name;
        EXPECT_EQ(mapping.getEffectorBonesSize(), odd.effectors) << odd.name;
    }
    for (const auto shape : { +comb, +twoCombs, +heap })
    {
        Mapping mapping;
        EXPECT_TRUE(mapTree(many, shape, step, mapping));
    }
    Mapping mapping;
    GenericSpecificConverterBoneV1 limb;
    limb._lastBoneOfChain[1] = 0;
    PODArray<int> effectors;
    mapTree(many, comb, step, mapping);
    mapping.addEffectors(limb, effectors);
    EXPECT_EQ(effectors.sizeInt(), many / 2);
}

TEST_F(AutomaticMappingTest, RefusesSkeletonsThatAreNotSound)
{
    Mapping none;
    EXPECT_FALSE(mapRig(none));

    struct Damage
    {
        const char* name;
        void (*apply)(HierarchicalSkeletonDescriptionV1&);
    };
    const Damage damages[] = {
        { "ring of fathers",
          [](auto& skeleton) { skeleton.touchBones()[1]->setFather(skeleton.touchBones()[4]); } },
        { "null bone", [](auto& skeleton) { skeleton.touchBones().push_back(nullptr); } },
        { "index beyond the bones",
          [](auto& skeleton) { skeleton.touchBones()[2]->setSpecificBoneIndex(99); } },
        { "negative index", [](auto& skeleton) { skeleton.touchBones()[2]->setSpecificBoneIndex(-1); } },
        { "no root", [](auto& skeleton) { skeleton.setRootBone(nullptr); } },
    };
    for (const Damage& damage : damages)
    {
        Mapping mapping;
        fillRig(mapping, rigCases[0].rig);
        damage.apply(*mapping.touchSkeletonDescription());
        EXPECT_FALSE(mapRig(mapping)) << damage.name;
    }

    // A second root, which has no place in the body, does no harm.
    std::string twoRoots = rigCases[0].rig;
    twoRoots += "prop - 9 9 9\n propTip prop 9 9 8\n";
    EXPECT_EQ(mapTable(twoRoots), rigCases[0].mapping);
}

} // namespace
} // namespace mrv::test
