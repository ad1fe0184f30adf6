// tests/animation/mrvHierarchicalBoneTest.cpp
#include "mrvCore/animation/mrvHierarchicalBone.h"

#include "tests/math/types/mrvMathTesting.h"
#include "tests/support/mrvTestSkeleton.h"

#include <memory>

namespace mrv::test {
namespace {

using Bone = HierarchicalBoneV1;
using Bones = MrvSet<const Bone*>;
using Description = HierarchicalSkeletonDescriptionV1;

const Quaternion quarterTurnZ(0.0f, 0.0f, std::sqrt(0.5f), std::sqrt(0.5f));
const Quaternion quarterTurnX(std::sqrt(0.5f), 0.0f, 0.0f, std::sqrt(0.5f));

/// Three bones: a quarter turn about Z, then one about X, each child one unit along X or Y.
struct Arm
{
    Bone shoulder{ "shoulder", nullptr, Vector3(0.0f, 0.0f, 1.0f), quarterTurnZ, 0 };
    Bone elbow{ "elbow", &shoulder, Vector3(1.0f, 0.0f, 0.0f), quarterTurnX, 1 };
    Bone wrist{ "wrist", &elbow, Vector3(0.0f, 1.0f, 0.0f), Quaternion::getIdentity(), 2 };
};

std::string childrenOf(const Bone& bone)
{
    std::string names;
    for (const Bone* child : bone.getChildren())
    {
        EXPECT_TRUE(bone.isParentOf(child));
        names += child->getName().c_str();
    }
    return names;
}

TEST(HierarchicalBone, worldTransformsFollowTheChain)
{
    const Arm arm;
    EXPECT_TRUE(isNear(arm.elbow.getWorldPosUnscaled(), Vector3(0.0f, 1.0f, 1.0f)));
    EXPECT_TRUE(isNear(arm.wrist.getWorldPosUnscaled(), Vector3(0.0f, 1.0f, 2.0f)));
    EXPECT_TRUE(isNear(arm.wrist.getWorldOri(), quarterTurnZ * quarterTurnX));
}

TEST(HierarchicalBone, posedPositionsApplyScalesOffsetsAndOverridesWhereTheyBelong)
{
    const Arm arm;
    Array<Vector3> scales(3, Vector3(1.0f));
    scales[1] = Vector3(2.0f, 5.0f, 5.0f);
    scales[2] = Vector3(5.0f, 3.0f, 5.0f);
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithScales(scales), Vector3(0.0f, 2.0f, 4.0f)));

    // The shoulder's offset turns the elbow's position, not the wrist's.
    Array<Quaternion> offsets(3, Quaternion::getIdentity());
    offsets[0] = quarterTurnZ;
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithScalesAndOriOffsets(scales, offsets),
                       Vector3(-2.0f, 0.0f, 4.0f)));

    Array<Vector3> positions(3, Vector3(0.0f, 2.0f, 0.0f));
    Array<Quaternion> orientations(3, quarterTurnX);
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithLocalOverrides(positions, orientations),
                       Vector3(0.0f, 0.0f, 2.0f)));
    EXPECT_TRUE(isNear(arm.elbow.computeWorldOriWithLocalOverrides(orientations),
                       Quaternion(1.0f, 0.0f, 0.0f, 0.0f)));
}

TEST(HierarchicalBone, bonesOutsideThePosedArraysKeepTheirBindPose)
{
    Arm arm;
    arm.elbow.setSpecificBoneIndex(-1);
    const Vector3 expected = arm.wrist.getWorldPosUnscaled();
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithScales({}), expected));
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithScalesAndOriOffsets({}, {}), expected));
    EXPECT_TRUE(isNear(arm.wrist.computeWorldPosWithLocalOverrides({}, {}), expected));
    EXPECT_TRUE(isNear(arm.wrist.computeWorldOriWithLocalOverrides({}), arm.wrist.getWorldOri()));
}

TEST(HierarchicalBone, everySetterReachesTheCacheOfTheWholeBranch)
{
    const std::pair<const char*, void (*)(Bone&)> setters[] = {
        { "setLocalPos", [](Bone& bone) { bone.setLocalPos(Vector3(5.0f, 6.0f, 7.0f)); } },
        { "setLocalOri", [](Bone& bone) { bone.setLocalOri(quarterTurnX); } },
        { "setWorldPos", [](Bone& bone) { bone.setWorldPos(Vector3(5.0f, 6.0f, 7.0f)); } },
        { "setWorldOri", [](Bone& bone) { bone.setWorldOri(quarterTurnX); } },
    };
    for (const auto& [name, set] : setters)
    {
        Arm arm;
        const Vector3 before = arm.wrist.getWorldPosUnscaled();
        set(arm.shoulder);
        const Vector3 after = arm.wrist.getWorldPosUnscaled();
        EXPECT_FALSE(isNear(after, before)) << name;
        EXPECT_TRUE(isNear(after, arm.wrist.computeWorldPosWithLocalOverrides({}, {}))) << name;
    }
}

TEST(HierarchicalBone, worldTransformsThatWereSetComeBack)
{
    Arm arm;
    arm.wrist.setWorldPos(Vector3(3.0f, 4.0f, 5.0f));
    arm.wrist.setWorldOri(quarterTurnZ * 2.0f);
    EXPECT_TRUE(isNear(arm.wrist.getWorldPosUnscaled(), Vector3(3.0f, 4.0f, 5.0f), 1e-5f));
    EXPECT_TRUE(isSameRotation(arm.wrist.getWorldOri(), quarterTurnZ));
    EXPECT_TRUE(isNear(arm.elbow.getWorldPosUnscaled(), Vector3(0.0f, 1.0f, 1.0f)));
}

TEST(HierarchicalBone, onlySettersNormalize)
{
    const Quaternion doubled(0.0f, 0.0f, 0.0f, 2.0f);
    Bone bone("b", nullptr, Vector3(), doubled, 0);
    EXPECT_TRUE(isSame(bone.getLocalOri(), doubled));
    bone.setLocalOri(doubled);
    EXPECT_TRUE(isSame(bone.getLocalOri(), Quaternion::getIdentity()));
    bone.setLocalOri(Quaternion::getNullVector());
    EXPECT_TRUE(isSame(bone.getLocalOri(), Quaternion::getNullVector()));
}

TEST(HierarchicalBone, linksChangeFromBothSides)
{
    Bone root("r"), other("o"), a("a", &root, 1), b("b", &root, 2), c("c", &root, 3);
    const Vector3 worldPos = b.getWorldPosUnscaled();
    other.setLocalPos(Vector3(9.0f));
    b.setFather(&other);
    EXPECT_TRUE(isSame(b.getWorldPosUnscaled(), worldPos)) << "a change of father leaves the cache";
    EXPECT_EQ(childrenOf(root) + "/" + childrenOf(other), "ac/b");
    a.setFather(&root);
    EXPECT_EQ(childrenOf(root), "ca") << "a bone that enters again is the last";

    root.removeChild(&b);
    EXPECT_EQ(b.getFather(), &other) << "not a child: nothing changes";
    root.removeChild(&c);
    EXPECT_EQ(c.getFather(), nullptr);
    EXPECT_EQ(childrenOf(root), "a");
}

TEST(HierarchicalBone, aListOfChildrenReplacesTheFormerOne)
{
    Bone root("r"), other("o"), a("a", &root, 1), b("b", &root, 2), c("c", &other, 3);
    PODArray<Bone*> list;
    for (Bone* bone : { &c, static_cast<Bone*>(nullptr), &b, &c })
        list.push_back(bone);
    root.setChildren(list);
    EXPECT_EQ(childrenOf(root) + "/" + childrenOf(other), "bc/") << "of two entries the last one counts";
    EXPECT_EQ(a.getFather(), &root) << "no longer listed, but not told";
    root.setChildren(root.getChildren());
    EXPECT_EQ(childrenOf(root), "bc");
}

TEST(HierarchicalBone, aCopyIsTheWholeBranchOutsideItsFather)
{
    Arm arm;
    arm.wrist.setSpecificBoneIndex(7);
    const Bone copy(arm.elbow);
    EXPECT_EQ(copy.getFather(), &arm.shoulder);
    EXPECT_EQ(childrenOf(arm.shoulder), "elbow") << "the copy is not entered";
    ASSERT_EQ(childrenOf(copy), "wrist");
    const std::unique_ptr<const Bone> wrist(copy.getChild(0));
    EXPECT_NE(wrist.get(), &arm.wrist);
    EXPECT_EQ(wrist->getSpecificBoneIndex(), 7);
    EXPECT_TRUE(isSame(wrist->getWorldPosUnscaled(), arm.wrist.getWorldPosUnscaled()));
}

TEST(HierarchicalBone, noDepthIsTooGreat)
{
    const int count = 100000;
    Description chain;
    for (int i = 0; i < count; ++i)
        chain.touchBones().push_back(new Bone("b", i == 0 ? nullptr : chain.getBones().back(),
                                              Vector3(1.0f, 0.0f, 0.0f), Quaternion::getIdentity(), i));
    Bone* const root = chain.getBones()[0];
    chain.setRootBone(root);
    const Bone* const leaf = chain.getBones().back();
    const Vector3 end(static_cast<float>(count), 0.0f, 0.0f);
    EXPECT_TRUE(isSame(leaf->getWorldPosUnscaled(), end));
    EXPECT_TRUE(isSame(leaf->computeWorldPosWithScales({}), end));
    root->setLocalPos(Vector3());
    EXPECT_EQ(leaf->getWorldPosUnscaled().x, end.x - 1.0f);
    EXPECT_EQ(leaf->depth(), count - 1);
    EXPECT_EQ(root->height(), count - 1);
    Array<Bones> levels;
    root->getSubNodes(levels);
    EXPECT_EQ(levels.size(), static_cast<size_t>(count));
    EXPECT_FALSE(Bone::isomorphicSubBranches(root, levels));
    EXPECT_TRUE(Bone::isomorphic(root, root));
    const Description copy(chain);
    EXPECT_TRUE(copy.isSkeletonDescriptionValid(false));
    EXPECT_EQ(copy.getMaxBonesHierarchyLength(), end.x - 1.0f);
    const Bone* copiedBranch = new Bone(*chain.getBones()[1]);
    EXPECT_EQ(copiedBranch->height(), count - 2);
    while (copiedBranch != nullptr)
    {
        const std::unique_ptr<const Bone> bone(copiedBranch);
        copiedBranch = bone->getNbChildren() != 0 ? bone->getChild(0) : nullptr;
    }
}

TEST(HierarchicalBone, everyWalkEndsOnARing)
{
    for (const int length : { 1, 2, 7 })
    {
        Description ring; // with a tail
        PODArray<Bone*>& bones = ring.touchBones();
        for (int i = 0; i < length + 3; ++i)
            bones.push_back(new Bone("b", i == 0 ? nullptr : bones.back(), i));
        bones[0]->setFather(bones[static_cast<size_t>(length) - 1]);
        ring.setRootBone(bones[0]);
        EXPECT_FALSE(ring.hasSoundHierarchy());
        bones[0]->setLocalPos(Vector3(1.0f));
        const Bone* const tail = bones.back();
        tail->getWorldPosUnscaled();
        tail->computeWorldPosWithScales({});
        tail->computeWorldOriWithLocalOverrides({});
        EXPECT_GE(tail->depth(), length + 2);
        EXPECT_EQ(bones[0]->height(), length + 2);
        Array<Bones> sets;
        bones[0]->getSubNodes(sets);
        EXPECT_EQ(sets.size(), static_cast<size_t>(length) + 3);
        Bone::getLeaves(sets[0]);
        EXPECT_EQ(sets[0].size(), 1u);
        Bone::isomorphicSubBranches(bones[0], sets);
        PODArray<const Bone*> ends(2, tail);
        Bone::findLowestCommonAncester(nullptr, ends);
        ring.initSortedBones();
        EXPECT_TRUE(ring.getSortedBones().empty());
        ring.getMaxBonesHierarchyLength();
        EXPECT_FALSE(Description(ring).hasSoundHierarchy());
    }
}

TEST(HierarchicalBone, setsGoByTheIndexThatBonesHadWhenTheyEntered)
{
    Bone bones[] = { Bone("a", nullptr, 2), Bone("b", nullptr, 1), Bone("c", nullptr, 2) };
    Bones set;
    for (const Bone& bone : bones)
        set.insert(&bone);
    EXPECT_EQ(namesOf(set), "b a c ");
    bones[1].setSpecificBoneIndex(9);
    EXPECT_EQ(namesOf(set), "b a c ");
    EXPECT_EQ(set.erase(&bones[0]), 1u);
    EXPECT_EQ((*set.begin())->getSpecificBoneIndex(), 9);
}

struct SimilarCase
{
    const char* name;
    void (*change)(Arm& arm);
    bool similar; ///< of the elbows
};

const SimilarCase similarCases[] = {
    { "equal", [](Arm&) {}, true },
    { "name", [](Arm& arm) { arm.elbow.setName("knee"); }, false },
    { "fathersName", [](Arm& arm) { arm.shoulder.setName("hip"); }, false },
    { "noFather", [](Arm& arm) { arm.elbow.setFather(nullptr); }, true },
    { "positionNear", [](Arm& arm) { arm.elbow.setLocalPos(Vector3(1.0f, 0.9e-5f, 0.0f)); }, true },
    { "positionFar", [](Arm& arm) { arm.elbow.setLocalPos(Vector3(1.0f, 0.0f, 1.1e-5f)); }, false },
    { "negativeOrientation", [](Arm& arm) { arm.elbow.setLocalOri(-quarterTurnX); }, true },
    { "inverseOrientation", [](Arm& arm) { arm.elbow.setLocalOri(Quaternion(-quarterTurnX.x, 0, 0, 0.7f)); },
      false },
    { "notANumber", [](Arm& arm) { arm.elbow.setLocalPos(Vector3(1.0f, 0.0f, notANumber)); }, false },
    { "numberOfChildren", [](Arm& arm) { arm.wrist.setFather(nullptr); }, false },
    { "deeperDifference", [](Arm& arm) { arm.wrist.setName("ankle"); }, true },
};

TEST(HierarchicalBone, similarLooksAtTheBoneAndNotBelow)
{
    const Arm original;
    for (const SimilarCase& row : similarCases)
    {
        Arm arm;
        row.change(arm);
        EXPECT_EQ(original.elbow.similar(arm.elbow), row.similar) << row.name;
    }
}

} // namespace
} // namespace mrv::test
