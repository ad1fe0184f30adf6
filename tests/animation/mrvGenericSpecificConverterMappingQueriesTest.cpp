// tests/animation/mrvGenericSpecificConverterMappingQueriesTest.cpp
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

#include <climits>
#include <sstream>
#include <string>

namespace mrv::test {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Part = GenericSpecificConverterBoneV1;

class MappingQueriesTest : public CoreTest
{
protected:
    MappingQueriesTest() { fillBody(mapping); }

    Mapping mapping;
};

std::string namesOf(const PODArray<const HierarchicalBoneV1*>& bones)
{
    std::string names;
    for (const HierarchicalBoneV1* bone : bones)
        names += std::string(bone->getName().c_str()) + " ";
    return names;
}

TEST_F(MappingQueriesTest, aChainRunsFromItsLastBoneUpToItsFirst)
{
    const struct
    {
        Part part;
        int chain;
        bool reverse;
        const char* names;
    } rows[] = {
        { makePart(SkeletonPartType::GENERIC, -1, -1, ARM_R, FINGER_R), 1, false,
          "head fingerR handR armR " },
        { makePart(SkeletonPartType::GENERIC, ARM_R, FINGER_R, -1, -1), 0, true, "armR handR fingerR head " },
        { makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, HEAD), 1, true, "head head " },
        { makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, SPINE), 1, false, "head spine pelvis root " },
        { makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, -1), 1, true, "head " },
        { makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, BONE_COUNT), 1, true, "head " },
    };
    const PODArray<HierarchicalBoneV1*>& bones = mapping.getSkeletonDescription()->getBones();
    for (const auto& row : rows)
    {
        PODArray<const HierarchicalBoneV1*> chain;
        chain.push_back(bones[HEAD]);
        Mapping::buildBoneChain(chain, bones, row.part, row.chain, row.reverse);
        EXPECT_EQ(namesOf(chain), row.names);
    }
}

TEST_F(MappingQueriesTest, theFatherOfAPartIsTheFirstThatEndsAboveIt)
{
    mapping.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, ROOT, ROOT));
    mapping.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, SPINE, CHEST));
    const struct
    {
        Part part;
        int spine, limb;
    } rows[] = {
        { makePart(SkeletonPartType::GENERIC, SHOULDER_R, ARM_R, ARM_R, HAND_R), 0, -1 },
        { makePart(SkeletonPartType::GENERIC, -1, -1, FINGER_R, FINGERTIP_R), 0, RIGHT_ARM },
        { makePart(SkeletonPartType::GENERIC, -1, -1, FINGERTIP_R, FINGERTIP_R), 0, RIGHT_ARM },
        // The father of a single bone is passed over.
        { makePart(SkeletonPartType::GENERIC, -1, -1, FINGER_R, FINGER_R), 0, -1 },
        { makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, HEAD), -1, -1 },
        // What ends at the root has nothing below it.
        { makePart(SkeletonPartType::GENERIC, -1, -1, PELVIS, SPINE), -1, -1 },
        { makePart(SkeletonPartType::GENERIC, -1, -1, ROOT, SPINE), -1, -1 },
        { makePart(SkeletonPartType::GENERIC, -1, -1, BONE_COUNT, BONE_COUNT), -1, -1 },
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.part.getTopBone());
        EXPECT_EQ(Mapping::findFatherIndexInSpines(row.part, mapping), row.spine);
        EXPECT_EQ(Mapping::findFatherIndexInLimbs(row.part, mapping), row.limb);
    }
}

TEST_F(MappingQueriesTest, aGenericBoneIsSoughtInSpinesThenLimbsThenEffectors)
{
    mapping.touchEffectorBones()[0]._genericBoneIndex[0] = 11;
    mapping.touchEffectorBones()[1]._genericBoneIndex[0] = 12;
    mapping.touchLimbBones()[LEFT_ARM]._genericBoneIndex[1] = 11;
    mapping.touchSpineBones()[0]._genericBoneIndex[0] = 10;
    mapping.touchSpineBones()[0]._genericBoneIndex[1] = 10;
    const struct
    {
        int genericIndex;
        const Part* part;
        int chain, end;
    } rows[] = { { 10, &mapping.getSpineBones()[0], 1, CHEST },
                 { 11, &mapping.getLimbBones()[LEFT_ARM], 1, HAND_L },
                 { 12, &mapping.getEffectorBones()[1], 0, TOETIP_R },
                 { 13, nullptr, 77, -1 } };
    for (const auto& row : rows)
    {
        int chain = 77;
        EXPECT_EQ(Mapping::findGenericSpecificConverterBone(row.genericIndex, mapping, &chain), row.part);
        EXPECT_EQ(chain, row.chain);
        EXPECT_EQ(Mapping::findExtensionEOCSpecificBoneIndex(row.genericIndex, mapping), row.end);
    }
}

void removePelvis(Mapping& mapping)
{
    mapping.setPelvis(static_cast<const HierarchicalBoneV1*>(nullptr));
}

struct CheckCase
{
    const char* name;
    void (*damage)(Mapping& mapping);
    const char* message;
};

const CheckCase checkCases[] = {
    { "correct", [](Mapping&) {}, "" },
    { "pelvisInside", [](Mapping& m) { m.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, ROOT, SPINE)); },
      "" },
    { "noPelvis", removePelvis, "No pelvis bone; " },
    { "spine", [](Mapping& m) { m.touchSpineBones()[0]._firstBoneOfChain[1] = PELVIS; },
      "The chain from bone pelvis to chest contains the pelvis. The pelvis should not belong to any bone "
      "chain." },
    { "limbNamedAsSpine", [](Mapping& m) { m.touchLimbBones()[0]._lastBoneOfChain[1] = PELVIS; },
      "The chain from bone spine to chest contains the pelvis. The pelvis should not belong to any bone "
      "chain." },
    { "bothChainsOfALimbWithoutSpine",
      [](Mapping& m) {
          m.touchLimbBones()[1]._firstBoneOfChain[0] = PELVIS;
          m.touchLimbBones()[1]._lastBoneOfChain[1] = PELVIS;
      },
      "The chain from bone  to  contains the pelvis. The pelvis should not belong to any bone chain."
      "The chain from bone  to  contains the pelvis. The pelvis should not belong to any bone chain." },
};

TEST_F(MappingQueriesTest, chainsThatEndAtThePelvisAreTold)
{
    for (const CheckCase& row : checkCases)
    {
        SCOPED_TRACE(row.name);
        Mapping damaged(mapping);
        row.damage(damaged);
        std::ostringstream text;
        EXPECT_EQ(damaged.checkSkeletonMapping(&text), *row.message == '\0');
        EXPECT_EQ(damaged.checkSkeletonMapping(nullptr), *row.message == '\0');
        EXPECT_EQ(text.str(), row.message);
    }
}

struct Pose
{
    Array<Vector3> positions;
    Array<Quaternion> orientations;
};

struct HeightCase
{
    const char* name;
    void (*change)(Mapping& mapping, Pose& pose);
    float height;
};

void setGenericLimbs(Mapping& mapping)
{
    for (Part& limb : mapping.touchLimbBones())
        limb._type = SkeletonPartType::GENERIC;
}

const HeightCase heightCases[] = {
    { "bindPose", [](Mapping&, Pose& pose) { pose = Pose(); }, 1.0f },
    { "bindPoseOverGround", [](Mapping& m, Pose&) { m.setGroundHeights(0.25f); }, 0.75f },
    { "lowestFootRaised", [](Mapping&, Pose& pose) { pose.positions[TOE_R].z += 0.25f; }, 0.75f },
    { "otherFootDoesNotCount", [](Mapping&, Pose& pose) { pose.positions[KNEE_L].z -= 0.25f; }, 1.0f },
    { "pelvisRaised", [](Mapping&, Pose& pose) { pose.positions[LEG_R].z -= 0.5f; }, 1.5f },
    { "headOverHeels",
      [](Mapping&, Pose& pose) {
          pose.orientations[PELVIS] = Quaternion(3.1415927f, Vector3(1.0f, 0.0f, 0.0f));
      },
      1.0f },
    { "poseOfAnotherSkeleton",
      [](Mapping&, Pose& pose) {
          pose.positions[TOE_R].z += 0.25f;
          pose.orientations.pop_back();
      },
      1.0f },
    { "noLegs",
      [](Mapping& m, Pose&) {
          setGenericLimbs(m);
          m.setGroundHeights(0.25f);
      },
      0.75f },
    { "legBeyondTheSkeleton",
      [](Mapping& m, Pose&) { m.touchLimbBones()[RIGHT_LEG]._lastBoneOfChain[1] = BONE_COUNT; }, 1.0f },
    { "pelvisAtTheGround",
      [](Mapping& m, Pose& pose) {
          setGenericLimbs(m);
          pose.positions[ROOT].z = -1.0f;
          pose.positions[KNEE_R].z = -1.5f;
      },
      1.9375f },
    { "pelvisBelowTheGround",
      [](Mapping& m, Pose& pose) {
          m.setGroundHeights(2.5f);
          pose.positions[KNEE_R].z = -1.5f;
      },
      1.9375f },
    { "flat",
      [](Mapping& m, Pose& pose) {
          setGenericLimbs(m);
          pose.positions.assign(BONE_COUNT, Vector3());
      },
      1.0f },
    { "noPelvis", [](Mapping& m, Pose&) { removePelvis(m); }, 1.0f },
    { "yUp",
      [](Mapping& m, Pose& pose) {
          pose = Pose();
          m.setUpAxis(Vector3(0.0f, 1.0f, 0.0f));
          m.touchSkeletonDescription()->touchBones()[PELVIS]->setLocalPos(Vector3(0.0f, 2.0f, 0.0f));
      },
      2.0f },
};

TEST_F(MappingQueriesTest, theRootStandsOnTheLowestFoot)
{
    for (const HeightCase& row : heightCases)
    {
        SCOPED_TRACE(row.name);
        Mapping changed(mapping);
        Pose pose;
        for (const HierarchicalBoneV1* bone : mapping.getSkeletonDescription()->getBones())
        {
            pose.positions.push_back(bone->getLocalPosUnscaled());
            pose.orientations.push_back(bone->getLocalOri());
        }
        row.change(changed, pose);
        EXPECT_NEAR(changed.computeRootHeight(pose.positions, pose.orientations), row.height, 1e-5f);
    }
}

TEST_F(MappingQueriesTest, theLowestBoneOfALimbMayLieBeyondItsEnd)
{
    float height = 7.0f;
    EXPECT_EQ(mapping.computeLowestBoneIndexOnLimb(RIGHT_LEG, &height), TOE_R) << "the tip is not lower";
    EXPECT_NEAR(height, 0.0625f, 1e-6f);
    EXPECT_EQ(mapping.computeLowestBoneIndexOnLimb(SKULL, nullptr), HEAD);
    for (int limb : { -1, int(LIMB_COUNT), INT_MAX })
        EXPECT_EQ(mapping.computeLowestBoneIndexOnLimb(limb, &height), -1);
    EXPECT_NEAR(height, 0.0625f, 1e-6f);
    // Of two equal bones the one below the last child is met first.
    mapping.touchSkeletonDescription()->touchBones()[TOE_R]->setFather(
        mapping.touchSkeletonDescription()->touchBones()[KNEE_L]);
    mapping.touchSkeletonDescription()->touchBones()[TOE_R]->setLocalPos(Vector3(0.0f, 0.0f, -0.4375f));
    mapping.touchLimbBones()[LEFT_LEG]._lastBoneOfChain[1] = KNEE_L;
    EXPECT_EQ(mapping.computeLowestBoneIndexOnLimb(LEFT_LEG, nullptr), TOE_R);
}

TEST_F(MappingQueriesTest, aBoneMirrorsAtItsPlaceInTheMirrorChain)
{
    const int mirrors[][2] = { { SPINE, SPINE },
                               { ARM_R, ARM_L },
                               { SHOULDER_L, SHOULDER_R },
                               { KNEE_L, KNEE_R },
                               { HEAD, HEAD },
                               { PELVIS, PELVIS },
                               { ROOT, -1 },
                               { FINGER_R, -1 },
                               { BONE_COUNT, -1 },
                               { -1, -1 },
                               { int(BONE_COUNT) + 1, -1 } };
    for (const auto& row : mirrors)
        EXPECT_EQ(mapping.getEstimatedMirrorBoneIndex(row[0]), row[1]) << row[0];

    mapping.touchLimbBones()[LEFT_LEG]._firstBoneOfChain[1] = KNEE_L;
    EXPECT_EQ(mapping.getEstimatedMirrorBoneIndex(KNEE_R), -1) << "chains of other lengths do not match";
    mapping.touchChannelMirrorSources().clear();
    EXPECT_EQ(mapping.getEstimatedMirrorBoneIndex(SPINE), -1) << "the mirrors of limbs guard the spines";
}

struct BoxCase
{
    const char* name;
    void (*change)(Mapping& mapping);
    Vector3 min, max;
};

const BoxCase boxCases[] = {
    { "withoutArms", [](Mapping&) {}, { 0.0f, -0.125f, 0.0625f }, { 0.25f, 0.125f, 2.0f } },
    { "withArms",
      [](Mapping& m) { m.touchLimbBones()[RIGHT_ARM]._type = SkeletonPartType::GENERIC; },
      { 0.0f, -1.0f, 0.0625f },
      { 0.25f, 0.125f, 2.0f } },
    { "withoutParts",
      [](Mapping& m) { m.clearMappingPart(); },
      { 0.0f, -1.0f, 0.0f },
      { 0.25f, 1.0f, 2.0f } },
    { "partThatMissesItsTop",
      [](Mapping& m) {
          m.clearMappingPart();
          m.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, HEAD, FINGER_R));
          m.addSpine(makePart(SkeletonPartType::SPINE, CHEST, CHEST, -1, -1));
      },
      { 0.0f, 0.0f, 1.0f },
      { 0.0f, 0.0f, 1.5f } },
    { "partWithoutATopBone",
      [](Mapping& m) {
          m.clearMappingPart();
          m.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, BONE_COUNT, LEG_L));
      },
      { 0.0f, 0.0f, 0.0f },
      { 0.0f, 0.125f, 1.0f } },
};

TEST_F(MappingQueriesTest, graspingLimbsStayOutOfThePerceptionBox)
{
    for (const BoxCase& row : boxCases)
    {
        SCOPED_TRACE(row.name);
        Mapping changed(mapping);
        row.change(changed);
        FastBoundingBox box(Vector3(-9.0f), Vector3(9.0f));
        changed.computePerceptionBoundingBox(box);
        EXPECT_TRUE(box == FastBoundingBox(row.min, row.max));
    }
    FastBoundingBox box(Vector3(-9.0f), Vector3(9.0f));
    removePelvis(mapping);
    mapping.computePerceptionBoundingBox(box);
    EXPECT_TRUE(box.isEmpty());
}

/// Every index that a file may hold becomes `value`.
void damageIndices(Mapping& mapping, int value)
{
    const HierarchicalBoneV1 bone("", nullptr, value);
    mapping.setPelvis(&bone);
    for (Array<Part>* parts :
         { &mapping.touchSpineBones(), &mapping.touchLimbBones(), &mapping.touchEffectorBones() })
    {
        for (Part& part : *parts)
        {
            for (int chain : { 0, 1 })
                part._firstBoneOfChain[chain] = part._lastBoneOfChain[chain] = value;
        }
    }
    mapping.touchChannelMirrorSources().assign(mapping.getChannelMirrorSourcesCount(), value);
    mapping.touchSpineMirrorSources().assign(mapping.getSpineMirrorSourcesCount() * 2, value);
}

void askEverything(Mapping& mapping)
{
    std::ostringstream text;
    Array<MrvString> names;
    FastBoundingBox box;
    mapping.checkSkeletonMapping(&text);
    mapping.getEndOfChainBoneNames(names);
    EXPECT_EQ(names.size(), 1u + LIMB_COUNT + 2u);
    mapping.computePerceptionBoundingBox(box);
    EXPECT_GE(mapping.computeRootHeight(Array<Vector3>(), Array<Quaternion>()), 0.001f);
    for (int i = -1; i <= BONE_COUNT + 1; ++i)
    {
        EXPECT_LE(mapping.getEstimatedMirrorBoneIndex(i), int(BONE_COUNT));
        EXPECT_LT(mapping.computeLowestBoneIndexOnLimb(i, nullptr), int(BONE_COUNT));
        EXPECT_EQ(mapping.getGroundHeight(i), 0.0f);
    }
    for (const Part& part : mapping.getLimbBones())
    {
        EXPECT_LT(Mapping::findFatherIndexInSpines(part, mapping), 1);
        EXPECT_LT(Mapping::findFatherIndexInLimbs(part, mapping), int(LIMB_COUNT));
        isConverterBoneHierarchyCorrect(part, mapping.getSkeletonDescription(), mapping.getEffectorBones());
    }
}

TEST_F(MappingQueriesTest, indicesOfADamagedFileReachNothing)
{
    for (int value : { INT_MIN, -1, 0, int(HEAD), int(BONE_COUNT), INT_MAX })
    {
        SCOPED_TRACE(value);
        Mapping damaged(mapping);
        damageIndices(damaged, value);
        askEverything(damaged);
    }
    Mapping noSkeleton;
    noSkeleton.touchSpineBones() = mapping.getSpineBones();
    noSkeleton.touchLimbBones() = mapping.getLimbBones();
    noSkeleton.touchEffectorBones() = mapping.getEffectorBones();
    damageIndices(noSkeleton, HEAD);
    askEverything(noSkeleton);

    PODArray<HierarchicalBoneV1*>& bones = mapping.touchSkeletonDescription()->touchBones();
    bones[PELVIS]->setFather(bones[FINGERTIP_R]);
    askEverything(mapping);
}

} // namespace
} // namespace mrv::test
