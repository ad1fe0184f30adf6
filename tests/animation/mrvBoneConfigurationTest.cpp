// tests/animation/mrvBoneConfigurationTest.cpp
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "tests/math/types/mrvMathTesting.h"
#include "tests/support/mrvCoreFixture.h"

#include <sstream>
#include <string>

namespace mrv::test {
namespace {

using Physic = BonePhysicConfigurationV1;
using Shape = RagdollRigidBodyShape;

struct VolumeCase
{
    int shape;
    float volume; ///< of half extents 2, 3, 5
};

TEST(BonePhysicConfiguration, volumeMassAndDensityFollowTheShape)
{
    const VolumeCase cases[] = {
        { Shape::CAPSULE, 4.1887903f * 8.0f + 125.663708f },
        { Shape::CYLINDER, 125.663708f },
        { Shape::BOX, 240.0f },
        { Shape::SPHERE, 33.5103224f },
        { Shape::END, 1.0f },
        { -7, 1.0f },
    };
    for (const VolumeCase& row : cases)
    {
        Physic body;
        body._halfExtents = Vector3(2.0f, 3.0f, 5.0f);
        body._bodyShape = row.shape;
        body._bodyDensity = 10.0f;
        EXPECT_FLOAT_EQ(body.getVolume(), row.volume) << row.shape;
        EXPECT_FLOAT_EQ(body.getMass(), 10.0f * row.volume) << row.shape;
        EXPECT_EQ(body.getDensity(), 10.0f) << row.shape;
        body._useMassInsteadOfBodyDensity = true;
        EXPECT_EQ(body.getMass(), 10.0f) << row.shape;
        EXPECT_FLOAT_EQ(body.getDensity(), 10.0f / row.volume) << row.shape;
    }
    Physic flat;
    flat._useMassInsteadOfBodyDensity = true;
    flat._halfExtents = Vector3(0.01f, 0.01f, 0.0f);
    EXPECT_EQ(flat.getDensity(), 0.0f);
}

struct EqualityCase
{
    const char* name;
    void (*change)(Physic& body);
    bool equal;
};

const EqualityCase equalityCases[] = {
    { "colour", [](Physic& b) { b._colorABGR = 1; }, true },
    { "automaticSize", [](Physic& b) { b._halfExtents.x = 7.0f; }, true },
    { "offsetNear", [](Physic& b) { b._localPositionOffset.z = 0.0009f; }, true },
    { "offsetFar", [](Physic& b) { b._localPositionOffset.z = -0.0011f; }, false },
    { "orientationNear", [](Physic& b) { b._localOrientationOffset.x = 0.0009f; }, true },
    { "orientationNegative", [](Physic& b) { b._localOrientationOffset.w = -0.9995f; }, true },
    { "orientationOther", [](Physic& b) { b._localOrientationOffset.setValues(0, 0, 0.6f, 0.8f); }, false },
    { "inUse", [](Physic& b) { b._inUse = false; }, false },
    { "automatic", [](Physic& b) { b._automaticDimensions = false; }, false },
    { "shape", [](Physic& b) { b._bodyShape = Shape::BOX; }, false },
    { "massFlag", [](Physic& b) { b._useMassInsteadOfBodyDensity = true; }, false },
    { "lowerLimit", [](Physic& b) { b._jointAngularLowerLimit.z = 1e-6f; }, false },
    { "upperLimit", [](Physic& b) { b._jointAngularUpperLimit.x = 1e-6f; }, false },
    { "density", [](Physic& b) { b._bodyDensity += 0.001f; }, false },
    { "lastFloat", [](Physic& b) { b._angularErrorReductionParameter = 0.2001f; }, false },
};

TEST(BonePhysicConfiguration, equalityLooksAtWhatMatters)
{
    for (const EqualityCase& row : equalityCases)
    {
        Physic changed;
        row.change(changed);
        EXPECT_EQ(Physic() == changed, row.equal) << row.name;
        EXPECT_EQ(changed == Physic(), row.equal) << row.name;
    }
    Physic a, b;
    a._automaticDimensions = b._automaticDimensions = false;
    b._halfExtents.x = 7.0f;
    EXPECT_FALSE(a == b) << "sizes count where they are not computed";
}

TEST(BoneConfiguration, theCentreOfABodyLiesHalfItsLengthAlongZ)
{
    const Quaternion quarterTurnX(std::sqrt(0.5f), 0.0f, 0.0f, std::sqrt(0.5f));
    Physic body;
    body._halfExtents.z = 2.0f;
    body._localPositionOffset = Vector3(1.0f, 0.0f, 1.0f);
    Vector3 position;
    Quaternion orientation;
    body.getRigidBodyWordTransformsFromPosture(position, orientation, Quaternion(0.0f, 0.0f, 0.0f, -1.0f),
                                               Vector3(0.0f, 0.0f, 10.0f), quarterTurnX);
    EXPECT_TRUE(isNear(position, Vector3(1.0f, -3.0f, 10.0f)));
    EXPECT_TRUE(isSame(orientation, -quarterTurnX));
}

template <typename Record>
void expectOffsetsToComeBack(void (Record::*get)(Vector3&, Quaternion&, const Quaternion&, const Vector3&,
                                                 const Quaternion&) const)
{
    RandomNumberGenerator rng;
    for (int i = 0; i < 100; ++i)
    {
        Record record;
        record._halfExtents = randomVector(rng);
        const Quaternion rest = randomRotation(rng), bone = randomRotation(rng), body = randomRotation(rng);
        const Vector3 bonePosition = randomVector(rng), bodyPosition = randomVector(rng);
        record.setLocalOffsetFromWordTransforms(rest, bonePosition, bone, bodyPosition, body);
        Vector3 position;
        Quaternion orientation;
        (record.*get)(position, orientation, rest.computeConjugate(), bonePosition, bone);
        EXPECT_TRUE(isNear(position, bodyPosition, 1e-5f));
        EXPECT_TRUE(isNear(orientation, body, 1e-5f)); // with its sign
    }
}

TEST(BoneConfiguration, offsetsTakenFromATransformGiveItBack)
{
    expectOffsetsToComeBack<Physic>(&Physic::getRigidBodyWordTransformsFromPosture);
    expectOffsetsToComeBack<BoneDisplayConfigurationV0>(
        &BoneDisplayConfigurationV0::getShapeWordTransformsFromPosture);
}

class BoneRecordsTest : public CoreTest
{
protected:
    template <typename T>
    static std::string bytesOf(const T& object)
    {
        BinaryStream stream;
        stream.pack(object);
        return stream.getStream().str();
    }
    /// Packs, reads into a new object and packs that one.
    template <typename T>
    static void expectRoundTrip(const T& object, size_t size)
    {
        const std::string bytes = bytesOf(object);
        BinaryStream stream;
        stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
        T loaded;
        stream.unpack(loaded);
        EXPECT_EQ(bytesOf(loaded), bytes);
        EXPECT_NE(bytesOf(T()), bytes);
        EXPECT_EQ(bytes.size(), size);
    }
};

TEST_F(BoneRecordsTest, recordsComeBackFromAStream)
{
    Physic body;
    body._bodyShape = 9;
    body._angularErrorReductionParameter = 7.0f;
    const size_t bodySize = 8 + 4 + 2 + 12 + 1 + 4 + 4 + 16 + 12 + 7 * 4 + 2 * 12 + 4 * 4;
    expectRoundTrip(body, bodySize);
    BoneDisplayConfigurationV0 display;
    display.setShapeFromInt(-1);
    expectRoundTrip(display, 8 + 4 + 1 + 12 + 12 + 4 + 16 + 12);
    PhysicsOverrideV0 physics;
    physics._name = "ab";
    physics._physicsConfiguration = body;
    expectRoundTrip(physics, 8 + 6 + 4 + bodySize);
    BlindDataOverrideV0 blindData;
    blindData._blindDataValues.resize(2, 3.0f);
    expectRoundTrip(blindData, 8 + 4 + 4 + 12 + 12);
    SkeletonOverrideV0 skeleton;
    skeleton._skeletonBonesSkinScales.resize(1);
    expectRoundTrip(skeleton, 8 + 4 + 3 * (8 + 8) + 12 + 4);
}

} // namespace
} // namespace mrv::test
