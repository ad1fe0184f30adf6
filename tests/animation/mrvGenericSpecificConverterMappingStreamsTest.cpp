// tests/animation/mrvGenericSpecificConverterMappingStreamsTest.cpp
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvCoreFixture.h"

#include <sstream>
#include <string>

namespace mrv::test {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Part = GenericSpecificConverterBoneV1;

class WholeMappingTest : public CoreTest
{};

/// A mapping of which every attribute differs from that of a new one.
void fillEverything(Mapping& mapping)
{
    fillBody(mapping);
    mapping.setFrontAxis(Vector3(-1.0f, 0.0f, 0.0f));
    Part& limb = mapping.touchLimbBones()[LEFT_ARM];
    limb._firstBoneOfChain[1] = CHEST;
    limb._coronalLocation = CoronalPlaneLocation::FRONT;
    limb._transverseLocation = TransversePlaneLocation::BOTTOM;
    limb._sagittalLocation = SagittalPlaneLocation::LEFT;
    limb._relativeIkNormalPlane[0] = Vector3(0.0f, -1.0f, 0.0f);
    limb._relativeIkNormalPlane[1] = Vector3(1.0f, 0.0f, 0.0f);
    limb._computeFullExtentLength[1] = true;
    limb._rollAttributes[1].resize(1);
    limb._rollAttributes[1][0]._farEndBoneIdx = HAND_L;
    limb._rollAttributes[1][0]._rollBonesIdx.push_back(ARM_L);
    limb._rollAttributes[1][0]._rollWeights.push_back(0.25f);
    mapping.setSpineBoneName(0, "back");
    mapping.setLimbBoneName(1, "left arm");
    mapping.setEffectorBoneName(0, "finger");
    const char* excluded[] = { "spine", "head" };
    mapping.addIkExcludedBonesByBoneName(excluded, 2);
    mapping.touchBoneConfigurations()[HEAD]._inUse = false;
    mapping.touchEffectorMirrorSources()[RIGHT_ARM].allocateSources(2);
    mapping.touchEffectorMirrorSources()[RIGHT_ARM].setSourceIdx(1, 5);
    mapping.setGroundHeights(0.125f);
    mapping.touchBlindDataInfo().addOne()._floatCount = 3;
    mapping.touchSquashStretchWeightsArray()[HEAD] = 0.5f;
    mapping.setCacheAllowedOn(&limb, 0, false);
    mapping.setBoneSnsScaleMode(HEAD, Axis::Z, SnsScaleMode::NO_SCALE);
}

TEST_F(WholeMappingTest, aCopyIsWholeAndItsOwnAndFinishKeepsTheSettings)
{
    Mapping mapping;
    fillEverything(mapping);
    Array<BoneDisplayConfigurationV0> display;
    mapping.setSkeletonDisplay(&display);
    mapping.setQuality(0.5f);
    mapping.setCacheAllowedGlobal(false);
    Mapping copy(mapping);
    EXPECT_EQ(packed(copy), packed(mapping));
    EXPECT_NE(copy.getSkeletonDescription(), mapping.getSkeletonDescription());
    EXPECT_EQ(copy.getSkeletonDisplay(), nullptr);
    EXPECT_FALSE(copy.isCacheAllowedGlobal());

    const std::string before = packed(copy);
    Mapping& alias = copy;
    copy = alias;
    EXPECT_EQ(packed(copy), before);
    copy.duplicateHierarchicalSkeletonDescription(*copy.getSkeletonDescription());
    EXPECT_EQ(copy.getPelvisBone(), ROOT) << "the root is the pelvis until told otherwise";
    EXPECT_EQ(copy.getBoneConfigurationsCount(), size_t(BONE_COUNT));
    EXPECT_TRUE(copy.getSquashStretchWeightsArray() == PODArray<float>(BONE_COUNT, 1.0f));
    EXPECT_TRUE(copy.getSpineBones().empty() && copy.getLimbBones().empty());

    mapping.setUpAxis(Vector3(0.0f, 2.0f, 0.0f));
    const Quaternion orientation = mapping.getOrientationToZUpXFront();
    mapping.finish();
    EXPECT_EQ(mapping.getUpAxis(), Vector3::getZUpVector());
    EXPECT_EQ(mapping.getOrientationToZUpXFront(), orientation);
    EXPECT_EQ(mapping.getQuality(), 0.5f);
    EXPECT_EQ(mapping.getSkeletonDisplay(), &display);
    copy = mapping;
    EXPECT_EQ(copy.getSkeletonDescription(), nullptr);
    EXPECT_EQ(copy.getPelvisBone(), -1);
}

TEST_F(WholeMappingTest, bothStreamsBringAWholeMappingBack)
{
    Mapping mapping;
    fillEverything(mapping);
    const std::string bytes = packed(mapping);
    XMLStream text;
    text.pack(text.getRoot(), mapping);
    BinaryStream stream;
    stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    Mapping fromBytes, fromText;
    stream.unpack(fromBytes);
    XMLDataFileParser parser;
    std::ostringstream written;
    parser.writeToBuffer(written, text.getRoot());
    DataItem root;
    parser.readFromBuffer(written.str().c_str(), root);
    ASSERT_TRUE(XMLStream().unpack(root, fromText));
    for (Mapping* loaded : { &fromBytes, &fromText })
    {
        EXPECT_EQ(packed(*loaded), bytes);
        EXPECT_EQ(loaded->getOrientationToZUpXFront(), mapping.getOrientationToZUpXFront());
        EXPECT_EQ(loaded->getBlindDataTotalFloatCount(), 3);
        EXPECT_EQ(loaded->getEffectorMirrorSources()[RIGHT_ARM].getSourceIdx(1), 5);
        EXPECT_EQ(loaded->getEffectorMirrorSources()[RIGHT_ARM].getSourceIdx(2), -1);
        EXPECT_EQ(loaded->getLimbBones()[LEFT_ARM]._rollAttributes[1][0]._rollWeights[0], 0.25f);
        EXPECT_EQ(loaded->getBoneSnsScaleMode(HEAD, Axis::Z), SnsScaleMode::NO_SCALE);
        EXPECT_FALSE(loaded->isCacheAllowedOn(&loaded->getLimbBones()[LEFT_ARM], 0));
    }
}

/// The children of an item in order: a name with its value or its number of children.
std::string outlineOf(const DataItem* item)
{
    std::string text;
    for (unsigned int i = 0; item != nullptr && i < item->getChildrenCount(); ++i)
    {
        const DataItem& child = item->getChild(i);
        const char* value = child.getAttribute("value");
        value = value != nullptr ? value : child.getAttribute("x");
        text += child.getName();
        text += value != nullptr ? std::string("=") + value : "#" + std::to_string(child.getChildrenCount());
        text += " ";
    }
    return text;
}

TEST_F(WholeMappingTest, filesHoldTheAttributesInTheirPermanentOrder)
{
    Mapping mapping;
    fillEverything(mapping);
    XMLStream stream;
    stream.pack(stream.getRoot(), mapping);
    const DataItem& object = stream.getRoot().getChild(0u);
    EXPECT_EQ(outlineOf(&object),
              "skeletonDescription#3 pelvisBoneIndex=1 spineBones#1 limbBones#5 effectorBones#2 "
              "spineBoneNames#1 limbBoneNames#5 effectorBoneNames#2 ikExcludedBones#2 upAxis=0 frontAxis=-1 "
              "boneConfigurations#23 channelMirrorSources#5 effectorMirrorSources#5 spineMirrorSources#1 "
              "groundHeightArray#5 blindDataInfo#1 squashStretchWeightsArray#23 cacheAllowed#11 "
              "bonesSnsScaleModes#23 ");
    const DataItem& limb = object.getChild("limbBones")->getChild(static_cast<unsigned int>(LEFT_ARM));
    EXPECT_EQ(outlineOf(&limb),
              "type=2 firstAuxiliary=10 lastAuxiliary=11 firstExtension=3 lastExtension=12 coronalLocation=0 "
              "transverseLocation=1 sagittalLocation=2 auxiliaryIkNomalPlane=0 extensionIkNomalPlane=1 "
              "auxiliaryComputeFullExtentLength=0 extensionComputeFullExtentLength=1 auxRollAttributes#0 "
              "extRollAttributes#1 ");
    EXPECT_EQ(outlineOf(limb.getChild("extRollAttributes")->getChild("element")),
              "farEndBoneIdx=12 rollBonesIdx#1 rollWeights#1 ");
    EXPECT_EQ(outlineOf(object.getChild("effectorMirrorSources")->getChild("element")),
              "effectorMirrorSourcesIdx#2 ");
    EXPECT_EQ(outlineOf(object.getChild("bonesSnsScaleModes")).find("element=32 "), 0u + 4 * 10);
}

} // namespace
} // namespace mrv::test
