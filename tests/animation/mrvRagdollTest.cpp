// tests/animation/mrvRagdollTest.cpp
// The bodies that a mapping gives to bones, on a biped whose distances are exact.
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

#include <cmath>

namespace mrv::test {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Shape = RagdollRigidBodyShape;

class Ragdoll : public CoreTest
{
protected:
    Ragdoll() { fillBody(_mapping); }

    BonePhysicConfigurationV1& body(int bone)
    {
        return _mapping.touchBoneConfigurations()[static_cast<size_t>(bone)];
    }
    std::string bonesInUse()
    {
        std::string names;
        for (int bone = 0; bone < BONE_COUNT; ++bone)
            if (body(bone)._inUse)
                names += nameOf(bone) + ' ';
        return names;
    }
    std::string nameOf(int bone) const
    {
        return _mapping.getSkeletonDescription()->getBones()[static_cast<size_t>(bone)]->getName().c_str();
    }
    std::string listBodies(const PODArray<int>& bones, int count) const
    {
        std::string names;
        for (int i = 0; i < count; ++i)
            names += nameOf(bones[static_cast<size_t>(i)]) + ' ';
        return names;
    }
    void expectSize(int bone, float x, float y, float z)
    {
        EXPECT_FLOAT_EQ(body(bone)._halfExtents.x, x) << nameOf(bone);
        EXPECT_FLOAT_EQ(body(bone)._halfExtents.y, y) << nameOf(bone);
        EXPECT_FLOAT_EQ(body(bone)._halfExtents.z, z) << nameOf(bone);
    }
    void expectLimits(int bone, const Vector3& lower, const Vector3& upper)
    {
        for (unsigned int axis = 0; axis < 3; ++axis)
        {
            EXPECT_FLOAT_EQ(body(bone)._jointAngularLowerLimit[axis], lower[axis]) << nameOf(bone) << axis;
            EXPECT_FLOAT_EQ(body(bone)._jointAngularUpperLimit[axis], upper[axis]) << nameOf(bone) << axis;
        }
    }

    Mapping _mapping;
};

// The way from the pelvis to the tip of a finger is the longest.
const float longestWay = std::sqrt(1.25f);

TEST_F(Ragdoll, ofAFullSetupHasBodiesForLimbsAndTheEndsOfSpines)
{
    body(TOE_R)._bodyShape = Shape::BOX;
    body(TOE_R)._friction = 7.0f;
    _mapping.autoConfigureRagdoll(true);
    EXPECT_EQ(bonesInUse(),
              "pelvis spine chest head armR handR armL handL legR kneeR footR legL kneeL footL ");
    EXPECT_EQ(body(TOE_R)._friction, 0.8f) << "began anew";

    EXPECT_FALSE(body(PELVIS)._automaticDimensions);
    expectSize(PELVIS, 0.1875f, 0.0f, 0.1875f); // the mean of arms and legs; the head is in the middle
    const struct
    {
        int bone;
        float x;
        float z;
    } capsules[] = {
        { ROOT, 0.15f, 0.5f },         // down to the pelvis
        { SPINE, 0.0625f, 0.125f },    // round: as long as thick
        { CHEST, 0.125f, 0.25f },      // its shoulders have no bodies, but the arms have
        { HEAD, 0.075f, 0.075f },      // a leaf, as thick as the chest was before it was made round
        { ARM_R, 0.0375f, 0.125f },    //
        { HAND_R, 0.01875f, 0.0625f }, // nothing below has a body: up to the finger
        { FINGERTIP_R, 0.01875f, 0.01875f },
        { FOOT_L, 0.065625f, 0.065625f }, // a leaf like its father
    };
    for (const auto& row : capsules)
        expectSize(row.bone, row.x, 0.0f, row.z);
}

TEST_F(Ragdoll, ofAPartialSetupChangesThePelvisOnly)
{
    for (int bone = 0; bone < BONE_COUNT; ++bone)
        body(bone)._inUse = bone == KNEE_L;
    body(KNEE_L)._automaticDimensions = false;
    _mapping.autoConfigureRagdoll(false);
    EXPECT_EQ(bonesInUse(), "pelvis kneeL ");
    expectSize(KNEE_L, 1.0f, 0.0f, 1.0f);
    expectSize(PELVIS, 0.1875f, 0.0f, 0.1875f);
    expectLimits(KNEE_L, Vector3(), Vector3());

    body(PELVIS)._halfExtents = Vector3(3.0f);
    _mapping.autoConfigureRagdoll(false);
    expectSize(PELVIS, 3.0f, 0.0f, 3.0f);
}

TEST_F(Ragdoll, hasAPelvisOfAutomaticSizeWithoutLimbsAtTheSides)
{
    _mapping.touchLimbBones().clear();
    _mapping.autoConfigureRagdoll(true);
    EXPECT_EQ(bonesInUse(), "pelvis spine chest ");
    EXPECT_TRUE(body(PELVIS)._automaticDimensions);
    // Below: the spine at 1/4, and the legs, without bodies, at 1/8.
    expectSize(PELVIS, 0.25f / 3.0f, 0.0f, 0.25f / 3.0f);

    _mapping.touchLimbBones().push_back(makePart(SkeletonPartType::LEG, -1, -1, LEG_R, FOOT_R));
    _mapping.touchLimbBones().back()._sagittalLocation = SagittalPlaneLocation::CENTER;
    _mapping.autoConfigureRagdoll(true);
    EXPECT_TRUE(body(PELVIS)._automaticDimensions);
}

TEST_F(Ragdoll, givesSharedBonesToTheFirstLimbAlone)
{
    GenericSpecificConverterBoneV1& second = _mapping.touchLimbBones()[LEFT_ARM];
    second = makePart(SkeletonPartType::GRASPER, -1, -1, HAND_R, FINGERTIP_R);
    _mapping.touchLimbBones()[LEFT_LEG] = makePart(SkeletonPartType::LEG, -1, 0, 99, FOOT_L);
    _mapping.touchIkExcludedBones().push_back(KNEE_R);
    _mapping.touchIkExcludedBones().push_back(HAND_R);
    _mapping.autoConfigureRagdoll(true);
    // The hand is excluded, so the second limb may have the rest; one with a wrong top goes up to the root.
    EXPECT_EQ(bonesInUse(),
              "root pelvis spine chest head armR fingerR fingertipR legR footR legL kneeL footL ");
    body(HAND_R)._inUse = true;

    _mapping.touchIkExcludedBones().clear();
    _mapping.autoConfigureRagdoll(true);
    EXPECT_FALSE(body(FINGERTIP_R)._inUse);
    EXPECT_FALSE(body(FINGER_R)._inUse);
}

TEST_F(Ragdoll, sizesBodiesByShape)
{
    const struct
    {
        int shape;
        float y;
        float z;
    } cases[] = {
        { Shape::CYLINDER, 0.0f, 0.125f }, { Shape::BOX, 0.25f, 0.125f }, { Shape::CAPSULE, 0.0f, 0.125f },
        { Shape::SPHERE, 0.0f, 0.0f },     { Shape::END, 0.25f, 0.125f },
    };
    for (const auto& row : cases)
    {
        body(ARM_L)._bodyShape = body(ARM_R)._bodyShape = row.shape;
        body(ARM_L)._automaticDimensions = false;
        body(ARM_R)._automaticDimensions = false;
        body(ARM_R)._halfExtents = Vector3(1.0f, 2.0f, 3.0f);
        _mapping.computeAutomaticBoneConfigurationSizes(true, 2.0f);
        expectSize(ARM_L, 0.25f, row.y, row.z);
        body(ARM_R)._halfExtents = Vector3(1.0f, 2.0f, 3.0f);
        _mapping.computeAutomaticBoneConfigurationSizes(false, 2.0f);
        expectSize(ARM_R, 1.0f, row.y == 0.0f ? 0.0f : 2.0f, row.z == 0.0f ? 0.0f : 3.0f);
    }
}

TEST_F(Ragdoll, givesLeavesOfThinBonesAShareOfTheSkeleton)
{
    body(FINGER_R)._automaticDimensions = false;
    body(FINGER_R)._halfExtents = Vector3(0.00000999f);
    _mapping.computeAutomaticBoneConfigurationSizes(false, 0.3f);
    expectSize(FINGERTIP_R, 0.04f * longestWay, 0.0f, 0.04f * longestWay);
}

TEST_F(Ragdoll, bendsJointsToTheSideOfTheNormal)
{
    GenericSpecificConverterBoneV1& leg = _mapping.touchLimbBones()[RIGHT_LEG];
    leg._relativeIkNormalPlane[1] = Vector3(0.0f, -1.0f, 0.5f);
    _mapping.computeAutomaticJointLimits();
    expectLimits(LEG_R, Vector3(-90.0f), Vector3(90.0f));
    expectLimits(KNEE_R, Vector3(0.0f, -180.0f, 0.0f), Vector3(0.0f, 0.0f, 90.0f));
    expectLimits(FOOT_R, Vector3(-90.0f), Vector3(90.0f));
    expectLimits(HEAD, Vector3(-90.0f), Vector3(90.0f));  // first and last of its chain
    expectLimits(SPINE, Vector3(-45.0f), Vector3(45.0f)); // no bone between two
    expectLimits(SHOULDER_R, Vector3(), Vector3());       // an end of an auxiliary chain
    expectLimits(ARM_R, Vector3(-90.0f), Vector3(90.0f)); // the extension counts last
    expectLimits(ROOT, Vector3(), Vector3());

    // A straight leg bends about -Y, which its record does not keep.
    expectLimits(KNEE_L, Vector3(0.0f, -180.0f, 0.0f), Vector3());
    EXPECT_EQ(_mapping.getLimbBones()[LEFT_LEG]._relativeIkNormalPlane[1], Vector3());

    _mapping.touchIkExcludedBones().push_back(KNEE_R);
    _mapping.touchIkExcludedBones().push_back(FOOT_R);
    _mapping.computeAutomaticJointLimits(leg, -1.0f, 0.5f, 0.25f);
    expectLimits(KNEE_R, Vector3(), Vector3());
    expectLimits(FOOT_R, Vector3(-14.323945f), Vector3(14.323945f));
}

TEST_F(Ragdoll, listsBodiesFromThePelvisOutwards)
{
    _mapping.autoConfigureRagdoll(true);
    PODArray<int> bones, places;
    int count = Mapping::findRigidBodiesBoneCorrespondances(bones, places, &_mapping);
    EXPECT_EQ(listBodies(bones, count),
              "pelvis spine chest armR handR armL handL legR kneeR footR legL kneeL footL head ");
    EXPECT_EQ(bones.size(), 16u) << "what is stale stays: the arms end an auxiliary chain too";
    ASSERT_EQ(places.size(), size_t(BONE_COUNT));
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(places[static_cast<size_t>(bones[static_cast<size_t>(i)])], i);
    EXPECT_EQ(places[FINGER_R], -1);

    body(PELVIS)._inUse = false;
    bones.clear();
    places.assign(BONE_COUNT, -1);
    count = Mapping::findRigidBodiesBoneCorrespondances(bones, places, &_mapping);
    EXPECT_EQ(count, 13);
    EXPECT_EQ(places[SPINE], -1) << "the first body has no place";
    EXPECT_EQ(places[CHEST], 1);
}

TEST_F(Ragdoll, countsNoOrOneBody)
{
    for (int bone = 0; bone < BONE_COUNT; ++bone)
        body(bone)._inUse = false;
    for (const int bone : { -1, int(TOE_R), int(PELVIS) })
    {
        if (bone >= 0)
            body(bone)._inUse = true;
        PODArray<int> bones, places;
        const int count = Mapping::findRigidBodiesBoneCorrespondances(bones, places, &_mapping);
        EXPECT_EQ(count, bone == -1 ? 0 : bone == TOE_R ? 1 : 2);
        EXPECT_EQ(bones.sizeInt(), count);
        EXPECT_EQ(places.size(), size_t(BONE_COUNT));
    }
}

TEST_F(Ragdoll, survivesWhatADamagedSkeletonHolds)
{
    // Too few configurations, nulls among the bones and a ring of fathers.
    PODArray<HierarchicalBoneV1*>& bones = _mapping.touchSkeletonDescription()->touchBones();
    PODArray<int> list, places;
    bones[KNEE_L]->setFather(bones[FOOT_L]);
    bones[CHEST]->setSpecificBoneIndex(-1);
    bones[HEAD]->setSpecificBoneIndex(1000);
    bones[TOE_R]->touchChildren().push_back(nullptr);
    bones.push_back(nullptr);
    for (const size_t count : { size_t(BONE_COUNT), size_t(3), size_t(0) })
    {
        _mapping.touchBoneConfigurations().resize(count);
        _mapping.autoConfigureRagdoll(true);
        _mapping.autoConfigureRagdoll(false);
        Mapping::findRigidBodiesBoneCorrespondances(list, places, &_mapping);
    }
    _mapping.finish();
    _mapping.autoConfigureRagdoll(true);
    EXPECT_EQ(_mapping.getBoneConfigurationsCount(), 0u);
}

} // namespace
} // namespace mrv::test
