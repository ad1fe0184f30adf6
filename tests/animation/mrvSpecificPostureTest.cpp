// tests/animation/mrvSpecificPostureTest.cpp
#include "mrvCore/animation/mrvSpecificPosture.h"

#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

#include <cmath>
#include <random>

namespace mrv::test {
namespace {

const Quaternion identity = Quaternion::getIdentity();
const float halfRoot = std::sqrt(0.5f);
const Quaternion quarterAboutX(halfRoot, 0.0f, 0.0f, halfRoot);
const Quaternion quarterAboutZ(0.0f, 0.0f, halfRoot, halfRoot);

void expectNear(const Vector3& actual, const Vector3& expected)
{
    EXPECT_LT((actual - expected).norm(), 1e-5f)
        << actual.x << ' ' << actual.y << ' ' << actual.z << " is not " << expected.x << ' ' << expected.y
        << ' ' << expected.z;
}

void expectNear(const Quaternion& actual, const Quaternion& expected)
{
    EXPECT_NEAR(std::abs(actual.dot(expected)), 1.0f, 1e-5f);
}

/// The biped, some of whose bones are turned, and any orientations for them.
class Postures : public testing::Test
{
protected:
    Postures()
    {
        for (size_t i = 0; i < bones().size(); ++i)
        {
            bones()[i]->setLocalOri(randomOrientation());
            _restRelatives.push_back(randomOrientation());
        }
        _none.resize(bones().size(), identity);
    }
    const SpecificPosture::Bones& bones() const { return _biped.getBones(); }
    Quaternion randomOrientation()
    {
        std::uniform_real_distribution<float> number(-1.0f, 1.0f);
        return Quaternion(number(_random), number(_random), number(_random), number(_random))
            .computeNormalize();
    }
    void expectBindPose(const SpecificPosture& posture, float scale = 1.0f) const
    {
        ASSERT_EQ(posture.getBonesCount(), bones().size());
        for (size_t i = 0; i < bones().size(); ++i)
        {
            expectNear(posture.getWorldPositions()[i], bones()[i]->getWorldPosUnscaled() * scale);
            expectNear(posture.getWorldOrientations()[i], bones()[i]->getWorldOri());
        }
    }

    std::mt19937 _random;
    Biped _biped;
    Array<Quaternion> _restRelatives;
    Array<Quaternion> _none;
    const Array<Vector3> _doubled = Array<Vector3>(BONE_COUNT, Vector3(2.0f));
};

TEST_F(Postures, areTheBindPoseWhereNothingIsAltered)
{
    const Vector3 rootPosition = bones()[0]->getWorldPosUnscaled();
    const Quaternion rootOrientation = bones()[0]->getWorldOri();
    Array<Vector3> local;
    for (const HierarchicalBoneV1* bone : bones())
        local.push_back(bone->getLocalPosUnscaled());
    SpecificPosture posture;
    posture.initFromSkeleton(bones(), 2.0f);
    expectBindPose(posture, 2.0f);
    posture.initFromSkeleton(bones(), _doubled);
    expectBindPose(posture, 2.0f); // the root stands at the origin
    posture.initFromEntity(bones(), 1.0f, Vector3(), identity, identity);
    expectBindPose(posture);
    posture.initFromRestRelativesOrientation(bones(), rootPosition, rootOrientation, _none, 1.0f);
    expectBindPose(posture);
    posture.initFromRestRelativesOrientation(bones(), rootPosition, rootOrientation, _none, _doubled);
    expectBindPose(posture, 2.0f);
    posture.initFromRestRelativesOrientationAndLocalPositions(bones(), rootPosition, rootOrientation, _none,
                                                              local);
    expectBindPose(posture);
}

TEST_F(Postures, turnWhatIsBelowABone)
{
    for (HierarchicalBoneV1* bone : bones())
        bone->setLocalOri(identity);
    bones()[ARM_R]->setLocalOri(quarterAboutX);
    _none[ARM_R] = quarterAboutZ;
    SpecificPosture posture;
    posture.initFromRestRelativesOrientation(bones(), Vector3(1.0f, 0.0f, 0.0f), identity, _none, 2.0f);
    const Array<Vector3>& positions = posture.getWorldPositions();
    expectNear(positions[ARM_R], Vector3(1.0f, -1.0f, 3.0f));
    // The forearm along -Y: Z turns it to X, then X leaves it there.
    expectNear(positions[HAND_R], Vector3(1.5f, -1.0f, 3.0f));
    expectNear(posture.getWorldOrientations()[FINGER_R], quarterAboutX * quarterAboutZ);
    expectNear(positions[HAND_L], Vector3(1.0f, 1.5f, 3.0f));
}

TEST_F(Postures, goBackToWhatTheyCameFrom)
{
    const Quaternion rootOrientation = randomOrientation();
    SpecificPosture posture;
    posture.initFromRestRelativesOrientation(bones(), Vector3(5.0f), rootOrientation, _restRelatives,
                                             _doubled);
    Array<Quaternion> relatives(bones().size());
    SpecificPosture::computeRestRelativesOrientationFromPosture(posture.getWorldOrientations(), bones(),
                                                                rootOrientation, relatives);
    Array<Vector3> local;
    SpecificPosture::computeLocalPositionsFromPosture(posture.getWorldPositions(),
                                                      posture.getWorldOrientations(), bones(), local);
    ASSERT_EQ(local.size(), bones().size());
    expectNear(relatives[0], identity);
    expectNear(local[0], Vector3());
    for (size_t i = 1; i < bones().size(); ++i)
    {
        expectNear(relatives[i], _restRelatives[i]);
        expectNear(local[i], bones()[i]->getLocalPosUnscaled() * 2.0f);
    }
    SpecificPosture again;
    again.initFromRestRelativesOrientationAndLocalPositions(bones(), Vector3(5.0f), rootOrientation,
                                                            relatives, local);
    EXPECT_TRUE(again == posture);
}

TEST_F(Postures, areUpdatedBoneByBone)
{
    SpecificPosture whole;
    whole.initFromRestRelativesOrientation(bones(), Vector3(1.0f), identity, _restRelatives, 1.0f);
    SpecificPosture part = whole;
    part.touchWorldPositions()[ROOT] = Vector3(7.0f);
    part.touchWorldPositions()[ARM_R] = Vector3(7.0f);
    part.touchWorldOrientations()[ARM_R] = identity;
    PODArray<int> list;
    for (const int bone : { int(ROOT), int(ARM_R), -1, int(BONE_COUNT) })
        list.push_back(bone);
    const auto update = [&](bool updateRoots) {
        SpecificPosture::computePostureFromRestRelativeOrientations(
            part.touchWorldPositions(), part.touchWorldOrientations(), bones(), Vector3(1.0f), identity,
            _restRelatives, 1.0f, list, updateRoots);
    };
    update(false);
    EXPECT_EQ(part.getWorldPositions()[ROOT], Vector3(7.0f));
    EXPECT_EQ(part.getWorldPositions()[ARM_R], whole.getWorldPositions()[ARM_R]);
    update(true);
    EXPECT_TRUE(part == whole);
}

TEST_F(Postures, standInTheFrameOfAnEntity)
{
    SpecificPosture posture;
    posture.initFromEntity(bones(), 2.0f, Vector3(1.0f, 2.0f, 3.0f), quarterAboutZ, quarterAboutX);
    posture.setUseSkinningScales(true);
    for (size_t i = 0; i < bones().size(); ++i)
    {
        const Vector3 world = bones()[i]->getWorldPosUnscaled() * 2.0f;
        // About X from Y to Z, then about Z from X to Y.
        expectNear(posture.getWorldPositions()[i], Vector3(1.0f + world.z, 2.0f + world.x, 3.0f + world.y));
    }
    posture.updateFromEntity(bones(), 1.0f, Vector3(), identity, identity);
    EXPECT_TRUE(posture.isUsingSkinningScales());
    expectBindPose(posture);
    posture.applyCoordinateTransform(quarterAboutZ);
    SpecificPosture turned;
    turned.initFromEntity(bones(), 1.0f, Vector3(), quarterAboutZ, identity);
    turned.setUseSkinningScales(true);
    EXPECT_TRUE(posture == turned);
    EXPECT_DEATH(turned.updateFromEntity({}, 1.0f, Vector3(), identity, identity),
                 "bones.size\\(\\) == _boneCount");
}

TEST_F(Postures, haveScalesOnDemand)
{
    SpecificPosture posture;
    posture.init(3);
    EXPECT_TRUE(posture.getSkinningScales().empty());
    posture.setUseSkinningScales(true);
    EXPECT_TRUE(posture.getSkinningScales() == Array<Vector3>(3, Vector3(1.0f)));
    posture.touchSkinningScales()[1] = Vector3(2.0f);
    posture.setUseSkinningScales(true);
    EXPECT_EQ(posture.getSkinningScales()[1], Vector3(2.0f)) << "was on";
    posture.setUseSkinningScales(false);
    EXPECT_TRUE(posture.getSkinningScales().empty());
    posture.setUseSkinningScales(true);
    posture.init(0);
    EXPECT_FALSE(posture.isUsingSkinningScales());
    EXPECT_TRUE(posture.getSkinningScales().empty() && posture.getWorldPositions().empty() &&
                posture.getWorldOrientations().empty());
}

TEST_F(Postures, areEqualWithinATolerance)
{
    const struct
    {
        const char* what;
        void (*change)(SpecificPosture&);
        bool areEqual;
    } cases[] = {
        { "nothing", [](auto&) {}, true },
        { "the negative", [](auto& p) { p.touchWorldOrientations()[2] = -p.getWorldOrientations()[2]; },
          true },
        { "half the tolerance", [](auto& p) { p.touchWorldPositions()[2].z += 0.0005f; }, true },
        { "a position", [](auto& p) { p.touchWorldPositions()[2].z += 0.0015f; }, false },
        { "an orientation", [](auto& p) { p.touchWorldOrientations()[2].w += 0.0015f; }, false },
        { "a scale", [](auto& p) { p.touchSkinningScales()[2].x += 0.0015f; }, false },
        { "no scales", [](auto& p) { p.setUseSkinningScales(false); }, false },
        { "no bones", [](auto& p) { p.init(0); }, false },
        { "no number", [](auto& p) { p.touchWorldPositions()[2].z = std::nanf(""); }, false },
    };
    for (const auto& row : cases)
    {
        SpecificPosture a;
        a.initFromSkeleton(bones(), 1.0f);
        a.setUseSkinningScales(true);
        SpecificPosture b = a;
        row.change(b);
        EXPECT_EQ(a == b, row.areEqual) << row.what;
        EXPECT_EQ(b == a, row.areEqual) << row.what;
    }
}

TEST_F(Postures, areComparedWhereverTheyStandAndLook)
{
    for (HierarchicalBoneV1* bone : bones())
        bone->setLocalOri(identity);
    SpecificPosture a, b;
    a.initFromEntity(bones(), 1.0f, Vector3(), identity, identity);
    b.initFromEntity(bones(), 1.0f, Vector3(3.0f), quarterAboutZ, identity);
    EXPECT_NEAR(a.computeSummedSquareDitanceWith(b), 0.0f, 1e-9f);
    b.touchWorldPositions()[HEAD].y += 2.0f;
    b.touchWorldPositions()[TOE_R].z -= 1.0f;
    EXPECT_NEAR(a.computeSummedSquareDitanceWith(b), 5.0f, 1e-5f);
    EXPECT_EQ(SpecificPosture().computeSummedSquareDitanceWith(b), 0.0f);
}

} // namespace
} // namespace mrv::test
