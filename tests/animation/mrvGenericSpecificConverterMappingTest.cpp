// tests/animation/mrvGenericSpecificConverterMappingTest.cpp
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

#include <climits>
#include <cmath>
#include <string>

namespace mrv::test {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Part = GenericSpecificConverterBoneV1;

const Vector3 planeA(0.0f, -1.0f, 0.0f);
const Vector3 planeB(1.0f, 0.0f, 0.0f);

/// Whatever is logged while it lives.
class LogCapture
{
public:
    LogCapture()
    {
        _logger.registerCallback(
            [](const char* text, void* target) { *static_cast<std::string*>(target) += text; }, &_text);
    }
    std::string _text;

private:
    CallbackLogger _logger;
};

class MappingTest : public CoreTest
{};

enum Start { EMPTY, SKELETON, BODY };

struct BuildingCase
{
    const char* name;
    Start start;
    int (*build)(Mapping& mapping);
    int result;
    size_t partCount; ///< afterwards
    const char* message;
};

int addArm(Mapping& mapping, int firstAux, int lastAux, int firstExt, int lastExt)
{
    return mapping.addLimb(SkeletonPartType::GRASPER, firstAux, lastAux, firstExt, lastExt,
                           CoronalPlaneLocation::FRONT, TransversePlaneLocation::TOP,
                           SagittalPlaneLocation::RIGHT, planeA, planeB, false, true);
}

int addFinger(Mapping& mapping, int firstExt, int lastExt)
{
    return mapping.addEffector(SkeletonPartType::GRASPER, -1, -1, firstExt, lastExt, false, false, planeA,
                               planeB);
}

const BuildingCase buildingCases[] = {
    { "spineWithoutSkeleton", EMPTY, [](Mapping& m) { return m.addSpine(0, 1, true, planeA); }, -1, 0,
      "Skeleton decription not loaded." },
    { "spineOfNoBone", SKELETON, [](Mapping& m) { return m.addSpine(CHEST, BONE_COUNT, true, planeA); }, -2,
      0, "One of the two given bones could not be found in the skeleton description" },
    { "spineIsNotChecked", BODY, [](Mapping& m) { return m.addSpine(FINGER_R, PELVIS, true, planeA); }, 1, 9,
      "" },
    { "limbWithoutSkeleton", EMPTY, [](Mapping& m) { return addArm(m, -1, -1, 0, 1); }, -1, 0,
      "Skeleton decription not loaded." },
    { "limbWithoutExtension", SKELETON, [](Mapping& m) { return addArm(m, SHOULDER_R, ARM_R, -1, HAND_R); },
      -2, 0,
      "Either the first extension bone or the last extension bone could not be found in the skeleton "
      "description. Both bones are required." },
    { "limbWithoutAuxiliary", SKELETON, [](Mapping& m) { return addArm(m, -1, INT_MAX, ARM_R, HAND_R); }, 0,
      1, "" },
    { "limbBelowTheEndOfAnother", BODY,
      [](Mapping& m) { return addArm(m, -1, -1, FINGERTIP_R, FINGERTIP_R); }, -3, 8,
      "The Limb (fingertipR -> fingertipR) is invalid because one of his ancester bones belong to another "
      "limb (handR belong to the limb 0)" },
    { "limbFromTheEndOfAnother", BODY, [](Mapping& m) { return addArm(m, -1, -1, HAND_R, FINGER_R); }, 5, 9,
      "" },
    { "limbThatItsAuxiliaryDoesNotLeadTo", SKELETON,
      [](Mapping& m) { return addArm(m, SHOULDER_R, ARM_R, SHOULDER_L, HAND_L); }, -3, 0,
      "The Limb (Aux: shoulderR -> armR, Ext: shoulderL -> handL) is invalid because the auxiliarry part "
      "does not seems to be an ancester to the extension part (armR is not an ancester of shoulderL)" },
    { "limbFromTheEndOfItsAuxiliary", SKELETON,
      [](Mapping& m) { return addArm(m, SHOULDER_R, ARM_R, ARM_R, HAND_R); }, 0, 1, "" },
    { "effectorOfNoBone", SKELETON, [](Mapping& m) { return addFinger(m, -1, FINGERTIP_R); }, -2, 0,
      "One of the two given bones could not be found in the skeleton description" },
    { "effectorBelowALimb", BODY, [](Mapping& m) { return addFinger(m, FINGER_L, FINGERTIP_L); }, 2, 9, "" },
    { "effectorBelowAnEffector", SKELETON,
      [](Mapping& m) {
          m.touchEffectorBones().push_back(makePart(SkeletonPartType::GENERIC, -1, -1, SHOULDER_L, ARM_L));
          return addFinger(m, HAND_L, FINGER_L);
      },
      -3, 1,
      "The Limb (handL -> fingerL) is invalid because one of his ancester bones belong to another limb (armL "
      "belong to the limb 0)" },
    { "pelvisOfNoBone", SKELETON, [](Mapping& m) { return int(m.setPelvis("Pelvis")); }, 0, 0,
      "The pelvis bone could not be found in the skeleton description" },
    { "pelvisByName", SKELETON, [](Mapping& m) { return m.setPelvis("chest") ? m.getPelvisBone() : -1; },
      CHEST, 0, "" },
};

size_t countParts(const Mapping& mapping)
{
    return mapping.getSpineBonesSize() + mapping.getLimbBonesSize() + mapping.getEffectorBonesSize();
}

TEST_F(MappingTest, partsAreAddedOrRefusedWithCodeAndMessage)
{
    for (const BuildingCase& row : buildingCases)
    {
        SCOPED_TRACE(row.name);
        Mapping mapping;
        if (row.start == SKELETON)
            mapping.duplicateHierarchicalSkeletonDescription(Biped());
        else if (row.start == BODY)
            fillBody(mapping);
        const LogCapture log;
        EXPECT_EQ(row.build(mapping), row.result);
        const std::string message = row.message;
        EXPECT_EQ(log._text, message.empty() ? message : "Maravo [WARNING] - " + message + "\n");
        EXPECT_EQ(countParts(mapping), row.partCount);
    }
}

TEST_F(MappingTest, aLimbByIndicesKeepsWhatItIsGiven)
{
    Mapping mapping;
    mapping.duplicateHierarchicalSkeletonDescription(Biped());
    addArm(mapping, BONE_COUNT, ARM_R, ARM_R, HAND_R);
    const Part& limb = mapping.getLimbBones()[0];
    EXPECT_EQ(limb._type, SkeletonPartType::GRASPER);
    EXPECT_EQ(limb._coronalLocation, CoronalPlaneLocation::FRONT);
    EXPECT_EQ(limb._transverseLocation, TransversePlaneLocation::TOP);
    EXPECT_EQ(limb._sagittalLocation, SagittalPlaneLocation::RIGHT);
    EXPECT_EQ(limb._firstBoneOfChain[0], -1);
    EXPECT_EQ(limb._lastBoneOfChain[0], ARM_R);
    EXPECT_EQ(limb._firstBoneOfChain[1], ARM_R);
    EXPECT_EQ(limb._lastBoneOfChain[1], HAND_R);
    EXPECT_EQ(limb._relativeIkNormalPlane[0], planeA);
    EXPECT_EQ(limb._relativeIkNormalPlane[1], planeB);
    EXPECT_FALSE(limb._computeFullExtentLength[0]);
    EXPECT_TRUE(limb._computeFullExtentLength[1]);

    addFinger(mapping, FINGER_R, FINGERTIP_R);
    EXPECT_EQ(mapping.getEffectorBones()[0]._sagittalLocation, SagittalPlaneLocation::END);
    mapping.addSpine(SPINE, CHEST, true, planeA);
    const Part& spine = mapping.getSpineBones()[0];
    EXPECT_EQ(spine._type, SkeletonPartType::SPINE);
    EXPECT_EQ(spine._firstBoneOfChain[0], -1);
    EXPECT_EQ(spine._relativeIkNormalPlane[0], planeA);
    EXPECT_TRUE(spine._computeFullExtentLength[0] && spine._computeFullExtentLength[1]);
}

TEST_F(MappingTest, bonesAreExcludedByNameAndByIndexOnceForEachMention)
{
    Mapping mapping;
    mapping.duplicateHierarchicalSkeletonDescription(Biped());
    const char* names[] = { "head", "nobody", nullptr, "head", "chest" };
    mapping.addIkExcludedBonesByBoneName(names, 4);
    mapping.addIkExcludedBonesByBoneName(names, 0);
    const HierarchicalBoneV1 known("any name", nullptr, PELVIS);
    const HierarchicalBoneV1 unknown("pelvis", nullptr, BONE_COUNT);
    PODArray<const HierarchicalBoneV1*> bones;
    for (const HierarchicalBoneV1* bone :
         { &known, &unknown, static_cast<const HierarchicalBoneV1*>(nullptr) })
        bones.push_back(bone);
    mapping.addIkExcludedBonesByBoneId(bones);
    const int expected[] = { HEAD, HEAD, PELVIS };
    EXPECT_TRUE(mapping.getIkExcludedBones() == PODArray<int>(3, expected));
}

TEST_F(MappingTest, theOrientationTurnsUpToZAndFrontToX)
{
    const Vector3 x(1.0f, 0.0f, 0.0f), y(0.0f, 1.0f, 0.0f), z(0.0f, 0.0f, 1.0f);
    const Vector3 axes[][2] = { { z, x }, { y * 3.0f, z }, { -x, y * 0.01f }, { z, x + z } };
    for (const Vector3(&upAndFront)[2] : axes)
    {
        Mapping mapping;
        EXPECT_TRUE(mapping.getOrientationToZUpXFront().isNull());
        mapping.setFrontAxis(upAndFront[1]);
        mapping.setUpAxis(upAndFront[0]);
        const Quaternion q = mapping.getOrientationToZUpXFront();
        EXPECT_TRUE(mapping.getFrontAxis().isNormalized(1e-5f));
        EXPECT_LT((q * mapping.getUpAxis() - z).norm(), 1e-5f);
        const Vector3 front = q * mapping.getFrontAxis();
        EXPECT_TRUE(front.x > 0.5f && std::abs(front.y) < 1e-5f);
        EXPECT_LT((mapping.getOrientationToZUpXFrontInverse() * (q * y) - y).norm(), 1e-5f);
    }
}

struct NamesOfParts
{
    void (Mapping::*set)(size_t index, const MrvString& name);
    void (Mapping::*get)(MrvString& result, size_t index) const;
    const Array<MrvString>& (Mapping::*all)() const;
    Array<Part>& (Mapping::*parts)();
};

TEST_F(MappingTest, namesGrowToTheNumberOfPartsAndNoFurther)
{
    const NamesOfParts kinds[] = {
        { &Mapping::setSpineBoneName, &Mapping::getSpineBoneName, &Mapping::getSpineBoneNames,
          &Mapping::touchSpineBones },
        { &Mapping::setLimbBoneName, &Mapping::getLimbBoneName, &Mapping::getLimbBoneNames,
          &Mapping::touchLimbBones },
        { &Mapping::setEffectorBoneName, &Mapping::getEffectorBoneName, &Mapping::getEffectorBoneNames,
          &Mapping::touchEffectorBones },
    };
    for (const NamesOfParts& kind : kinds)
    {
        Mapping mapping;
        (mapping.*kind.parts)().resize(3);
        (mapping.*kind.set)(3, "beyond");
        EXPECT_EQ((mapping.*kind.all)().size(), 0u);
        (mapping.*kind.set)(1, "second");
        ASSERT_EQ((mapping.*kind.all)().size(), 3u);
        (mapping.*kind.parts)().clear();
        (mapping.*kind.set)(2, "third of none");
        MrvString name = "left over";
        const char* expected[] = { "", "second", "third of none", "" };
        for (size_t i = 0; i < 4; ++i)
        {
            (mapping.*kind.get)(name, i);
            EXPECT_STREQ(name.c_str(), expected[i]);
        }
    }
    Mapping body;
    fillBody(body);
    body.touchLimbBones()[LEFT_LEG]._lastBoneOfChain[1] = BONE_COUNT;
    Array<MrvString> names(2);
    body.getEndOfChainBoneNames(names);
    std::string joined;
    for (const MrvString& name : names)
        joined += std::string(name.c_str()) + ";";
    EXPECT_EQ(joined, "chest;handR;handL;footR;;head;fingertipR;toetipR;");
}

TEST_F(MappingTest, cachesAreAllowedByTheFirstBoneOfAChain)
{
    Mapping mapping;
    const Part part = makePart(SkeletonPartType::GENERIC, 5, 5, -1, 7);
    mapping.setCacheAllowedGlobal(false);
    mapping.setCacheAllowedOn(&part, 1, true);
    mapping.setCacheAllowedOn(nullptr, 0, true);
    EXPECT_FALSE(mapping.isCacheAllowedOn(&part, 0)) << "a chain without bones has no entry";
    mapping.setCacheAllowedOn(&part, 0, false);
    mapping.setCacheAllowedGlobal(true);
    for (int first : { -1, 0, 4, 5, 6 })
    {
        const Part asked = makePart(SkeletonPartType::GENERIC, first, first, first, first);
        EXPECT_EQ(mapping.isCacheAllowedOn(&asked, 1), first != 5) << first;
    }
    mapping.setCacheAllowedGlobal(false);
    const Part added = makePart(SkeletonPartType::GENERIC, 4, 4, 6, 6);
    EXPECT_TRUE(mapping.isCacheAllowedOn(&added, 0)) << "entries that were added on the way allow it";
    EXPECT_FALSE(mapping.isCacheAllowedOn(&added, 1));
}

TEST_F(MappingTest, scaleModesOfTheAxesAreApartAndUniformByDefault)
{
    using Mode = SnsScaleMode;
    Mapping mapping;
    fillBody(mapping);
    const Mode::Value modes[] = { Mode::INVERSE_SQUAREROOT_SCALE, Mode::NO_SCALE, Mode::UNIFORM_SCALE };
    for (unsigned int turn = 0; turn < 3; ++turn)
    {
        for (unsigned int axis = 0; axis < 3; ++axis)
            mapping.setBoneSnsScaleMode(HEAD, Axis::Value(axis), modes[(axis + turn) % 3]);
        for (unsigned int axis = 0; axis < 3; ++axis)
            EXPECT_EQ(mapping.getBoneSnsScaleMode(HEAD, Axis::Value(axis)), modes[(axis + turn) % 3]);
    }
    EXPECT_TRUE(mapping.isBoneUsingSnSScale(HEAD));
    for (Axis::Value axis : { Axis::X, Axis::Y, Axis::Z })
        mapping.setBoneSnsScaleMode(HEAD, axis, Mode::NO_SCALE);
    EXPECT_FALSE(mapping.isBoneUsingSnSScale(HEAD));
    for (int bone : { int(CHEST), int(BONE_COUNT), -1, INT_MAX })
    {
        mapping.setBoneSnsScaleMode(bone == CHEST ? -1 : bone, Axis::X, Mode::NO_SCALE);
        EXPECT_EQ(mapping.getBoneSnsScaleMode(bone, Axis::X), Mode::UNIFORM_SCALE);
        EXPECT_TRUE(mapping.isBoneUsingSnSScale(bone));
    }
}

BlindDataV1 makeBlindData(const char* name, BlindDataV1::Type::Value type, unsigned int floatCount)
{
    BlindDataV1 record;
    record._name = name;
    record._type = type;
    record._floatCount = floatCount;
    return record;
}

TEST_F(MappingTest, blindDataAreCountedAndThoseOfAnimationsCleared)
{
    using Type = BlindDataV1::Type;
    Mapping mapping;
    Array<BlindDataV1>& records = mapping.touchBlindDataInfo();
    for (const BlindDataV1& record :
         { makeBlindData("a", Type::SPECIFIC_ANIMATION, 1), makeBlindData("b", Type::BLIND, 2),
           makeBlindData("c", Type::SPECIFIC_ANIMATION, 4), makeBlindData("d", Type::BLENDSHAPE, 8),
           makeBlindData("e", Type::BLIND, 16) })
        records.push_back(record);
    EXPECT_EQ(mapping.getBlindDataTotalFloatCount(), 31) << "before anyone has updated it";
    mapping.updateBlindDataFloatCount();
    EXPECT_EQ(mapping.getBlindDataTotalFloatCount(), 31);
    EXPECT_EQ(mapping.countExportedBlindData(), 26);
    EXPECT_EQ(mapping.getBlindDataInfo()[3]._firstValueIndex, 7u);

    Array<BlindDataV1> others(mapping.getBlindDataInfo());
    Mapping::clearSpecificAnimationBlindData(others);
    mapping.clearSpecificAnimationBlindData();
    EXPECT_EQ(mapping.getBlindDataTotalFloatCount(), 26);
    ASSERT_EQ(mapping.getBlindDataInfo().size(), 3u);
    EXPECT_TRUE(mapping.getBlindDataInfo() == others);
    EXPECT_STREQ(others[1]._name.c_str(), "d");
    EXPECT_EQ(others[1]._firstValueIndex, 7u);
    EXPECT_EQ(mapping.getBlindDataInfo()[1]._firstValueIndex, 2u);
}

} // namespace
} // namespace mrv::test
