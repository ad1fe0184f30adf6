// tests/animation/mrvSkeletonOverrideScalesTest.cpp
#include "mrvCore/animation/mrvSkeletonOverrideScales.h"

#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

namespace mrv::test {
namespace {

using Override = HierarchicalSkeletonDescriptionV1::Override;
using OverrideScales = HierarchicalSkeletonDescriptionV1::OverrideScales;

const Quaternion quarterTurn(1.5707964f, Vector3(0.0f, 0.0f, 1.0f));

class OverrideScalesTest : public CoreTest
{
protected:
    OverrideScalesTest()
    {
        fillBody(mapping);
        mapping.touchSkeletonDescription()->touchBones()[HEAD]->setLocalPos(Vector3(2.0f, 3.0f, 4.0f));
        mapping.touchSkeletonDescription()->touchBones()[HEAD]->setLocalOri(quarterTurn);
        skeletonOverrideFromOverrideScales(bindPose, OverrideScales(), mapping);
    }

    GenericSpecificConverterMappingV8 mapping;
    Override bindPose;
};

TEST_F(OverrideScalesTest, noDifferencesAreTheBindPose)
{
    ASSERT_EQ(bindPose._boneslocalPos.size(), size_t(BONE_COUNT));
    EXPECT_EQ(bindPose._boneslocalPos[HEAD], Vector3(2.0f, 3.0f, 4.0f));
    EXPECT_EQ(bindPose._boneslocalOri[PELVIS], Quaternion::getIdentity());
    EXPECT_TRUE(bindPose._bonesSkinningScale == Array<Vector3>(BONE_COUNT, Vector3(1.0f)));
    EXPECT_NEAR(bindPose._rootHeightUnscaled, 1.0f, 1e-5f);
    OverrideScales differences;
    skeletonOverrideToOverrideScales(differences, bindPose, mapping);
    EXPECT_TRUE(differences.empty());

    skeletonOverrideFromOverrideScales(bindPose, OverrideScales(), GenericSpecificConverterMappingV8());
    EXPECT_EQ(bindPose._boneslocalPos.size() + bindPose._bonesSkinningScale.size(), 0u);
}

TEST_F(OverrideScalesTest, theLastComparableAxisDecidesWhetherAPositionIsScaled)
{
    const struct
    {
        Vector3 bone, override, scale; // a scale of null is none
    } rows[] = {
        { { 2.0f, 3.0f, 4.0f }, { 4.0f, 3.0f, 4.0f }, {} },
        { { 2.0f, 3.0f, 4.0f }, { 2.0f, 3.0f, 8.0f }, { 1.0f, 1.0f, 2.0f } },
        { { 2.0f, 3.0f, 4.0f }, { 4.0f, 3.0f, 8.0f }, { 2.0f, 1.0f, 2.0f } },
        { { 2.0f, 3.0f, 4.0f }, { 2.0f, 3.0f, 4.002f }, {} },
        { { 2.0f, 3.0f, 0.0f }, { 2.0f, 6.0f, 5.0f }, { 1.0f, 2.0f, 1.0f } },
        { { 2.0f, -3.0f, 4.0f }, { 2.0f, 6.0f, 0.001f }, { 1.0f, -2.0f, 1.0f } },
        { { 0.0f, 0.0f, 0.001f }, { 1.0f, 1.0f, 1.0f }, {} },
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(&row - rows);
        mapping.touchSkeletonDescription()->touchBones()[CHEST]->setLocalPos(row.bone);
        Override override = bindPose;
        override._boneslocalPos[CHEST] = row.override;
        OverrideScales differences;
        skeletonOverrideToOverrideScales(differences, override, mapping);
        ASSERT_EQ(differences._bonesLocalPosScales.size(), row.scale.isNull() ? 0u : 1u);
        ASSERT_EQ(differences._bonesLocalPosScalesIndices.size(), differences._bonesLocalPosScales.size());
        if (!row.scale.isNull())
        {
            EXPECT_EQ(differences._bonesLocalPosScalesIndices[0], unsigned(CHEST));
            EXPECT_EQ(differences._bonesLocalPosScales[0], row.scale);
        }
    }
}

TEST_F(OverrideScalesTest, differencesBringTheSamePoseBack)
{
    Override override = bindPose;
    override._boneslocalPos[HEAD] *= 2.0f;
    override._boneslocalOri[HEAD] =
        override._boneslocalOri[HEAD] * Quaternion(0.5f, Vector3(1.0f, 0.0f, 0.0f));
    override._boneslocalOri[SPINE] = -override._boneslocalOri[SPINE]; // the same orientation
    override._bonesSkinningScale[HAND_L].y = 3.0f;
    override._bonesSkinningScale[HAND_R].z = 1.0005f;
    OverrideScales differences;
    skeletonOverrideToOverrideScales(differences, override, mapping);
    EXPECT_TRUE(differences._bonesLocalPosScalesIndices == PODArray<unsigned int>(1, unsigned(HEAD)));
    EXPECT_TRUE(differences._bonesLocalOriOffsetsIndices == PODArray<unsigned int>(1, unsigned(HEAD)));
    EXPECT_TRUE(differences._bonesAdditionalSkinningScalesIndices ==
                PODArray<unsigned int>(1, unsigned(HAND_L)));

    Override again;
    skeletonOverrideFromOverrideScales(again, differences, mapping);
    EXPECT_EQ(again._boneslocalPos[HEAD], override._boneslocalPos[HEAD]);
    EXPECT_LT(Quaternion::angularDistance(again._boneslocalOri[HEAD], override._boneslocalOri[HEAD]), 2e-3f);
    EXPECT_EQ(again._bonesSkinningScale[HAND_L], Vector3(1.0f, 3.0f, 1.0f));

    // Lists are appended to, and orientations that are missing hide the skinning scales behind them.
    override._boneslocalOri.resize(HAND_L);
    skeletonOverrideToOverrideScales(differences, override, mapping);
    EXPECT_EQ(differences._bonesLocalPosScales.size(), 2u);
    EXPECT_EQ(differences._bonesLocalOriOffsets.size(), 2u);
    EXPECT_EQ(differences._bonesAdditionalSkinningScales.size(), 1u);
    skeletonOverrideFromOverrideScales(again, differences, mapping);
    EXPECT_EQ(again._boneslocalPos[HEAD], override._boneslocalPos[HEAD] * 2.0f)
        << "an index twice counts twice";
}

TEST_F(OverrideScalesTest, indicesOfNoBoneAreSkippedAndTheHeightIsThatOfThePose)
{
    OverrideScales differences;
    for (unsigned int index : { unsigned(KNEE_R), unsigned(BONE_COUNT), 4000000000u })
    {
        differences._bonesLocalPosScalesIndices.push_back(index);
        differences._bonesLocalPosScales.push_back(Vector3(2.0f));
        differences._bonesLocalOriOffsetsIndices.push_back(index);
        differences._bonesLocalOriOffsets.push_back(Quaternion::getIdentity());
        differences._bonesAdditionalSkinningScalesIndices.push_back(index);
        differences._bonesAdditionalSkinningScales.push_back(Vector3(2.0f));
    }
    differences._bonesLocalPosScales.pop_back(); // a damaged pair of lists
    Override pose;
    skeletonOverrideFromOverrideScales(pose, differences, mapping);
    EXPECT_EQ(pose._boneslocalPos[KNEE_R], Vector3(0.0f, 0.0f, -1.0f));
    EXPECT_EQ(pose._bonesSkinningScale[KNEE_R], Vector3(2.0f));
    EXPECT_NEAR(pose._rootHeightUnscaled, 1.5f, 1e-5f);
}

} // namespace
} // namespace mrv::test
