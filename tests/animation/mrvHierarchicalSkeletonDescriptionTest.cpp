// tests/animation/mrvHierarchicalSkeletonDescriptionTest.cpp
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "tests/math/types/mrvMathTesting.h"
#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTestSkeleton.h"

#include <sstream>

namespace mrv::test {
namespace {

using Bone = HierarchicalBoneV1;
using Description = HierarchicalSkeletonDescriptionV1;

class CollectingLogger : public ILogger
{
public:
    void trace(Log::Module module, Log::Severity severity, const char* message, const char*, int,
               const char*) override
    {
        EXPECT_TRUE(module == Log::SDK && severity == Log::LOG_ERROR);
        _messages += std::string(message) + "\n";
    }
    std::string _messages;
};

class SkeletonDescriptionTest : public CoreTest
{
protected:
    CollectingLogger _logger;
};

const char* const body = R"(
    hips   -      0 0 1
    spine  hips   0 0 0.5
    thumb  hand   0 0.1 0
    hand   spine  0 0.25 0
    head   spine  0 0 2
    foot   hips   1 0 -1
)";

/// One line a bone: everything that belongs to it.
std::string describe(const Description& description)
{
    std::ostringstream text;
    text << description.getName() << " root "
         << (description.getRootBone() != nullptr ? description.getRootBone()->getName() : MrvString("-"));
    for (const Bone* bone : description.getBones())
    {
        text << "\n"
             << bone->getSpecificBoneIndex() << " " << bone->getName() << " in "
             << (bone->getFather() != nullptr ? bone->getFather()->getName() : MrvString("-")) << " with";
        for (const Bone* child : bone->getChildren())
            text << " " << child->getName();
        text << " at " << bone->getLocalPosUnscaled() << " turned "
             << testing::PrintToString(floatsOf(bone->getLocalOri()));
    }
    return text.str();
}

std::string sortedNames(const Description& description)
{
    std::string names;
    for (const unsigned long index : description.getSortedBones())
        names += std::string(description.getBones()[index]->getName().c_str()) + " ";
    return names;
}

TEST_F(SkeletonDescriptionTest, comesBackFromBothStreams)
{
    Description original("body");
    fillSkeleton(original, body);
    findBone(original, "hand")->setLocalOri(Quaternion(0.0f, 0.0f, 3.0f, 4.0f));
    findBone(original, "head")->setSpecificBoneIndex(-1);
    // Neither the order of the bones nor which of them stands first in the file may matter.
    std::reverse(original.touchBones().begin(), original.touchBones().end());

    BinaryStream binary;
    binary.pack(original);
    Description fromBinary;
    binary.unpack(fromBinary);
    XMLStream writer, reader;
    writer.pack(writer.getRoot(), original);
    Description fromXML;
    ASSERT_TRUE(reader.unpack(writer.getRoot(), fromXML));
    for (const Description* loaded : { &fromBinary, &fromXML })
    {
        EXPECT_EQ(describe(*loaded), describe(original));
        EXPECT_TRUE(loaded->isSkeletonDescriptionValid(true));
        EXPECT_TRUE(loaded->getSortedBones().empty()) << "the orders are not stored";
    }
    EXPECT_EQ(_logger._messages, "");
}

TEST_F(SkeletonDescriptionTest, loadingNormalizesOrientations)
{
    Description original, loaded;
    original.touchBones().push_back(new Bone("b", nullptr, Vector3(), Quaternion(0.0f, 0.0f, 3.0f, 4.0f), 0));
    BinaryStream stream;
    stream.pack(original);
    stream.unpack(loaded);
    EXPECT_TRUE(isNear(loaded.getBones()[0]->getLocalOri(), Quaternion(0.0f, 0.0f, 0.6f, 0.8f)));
}

TEST_F(SkeletonDescriptionTest, theSortedOrderDoesNotDependOnTheExport)
{
    const char* const tables[] = { "b -\n y b\n x b\n x2 x\n y1 y\n x1 x\n a -\n z a",
                                   "z a\n a -\n x1 x\n y1 y\n x2 x\n x b\n y b\n b -" };
    for (const char* table : tables)
    {
        Description description;
        fillSkeleton(description, table);
        EXPECT_EQ(sortedNames(description), "a z b x y x1 x2 y1 ");
        for (size_t i = 0; i < 8; ++i)
            EXPECT_EQ(description.getSpecificToCacheBoneIndices()[description.getSortedBones()[i]], i);
    }
}

TEST_F(SkeletonDescriptionTest, indicesOutOfRangeGetNoPlaceInTheInverse)
{
    Description description;
    description.initSortedBones();
    EXPECT_TRUE(description.getSortedBones().empty() && description.getSpecificToCacheBoneIndices().empty());
    fillSkeleton(description, "a -\n b a\n c a");
    description.getBones()[0]->setSpecificBoneIndex(-1);
    description.getBones()[1]->setSpecificBoneIndex(1000000);
    description.initSortedBones();
    EXPECT_EQ(description.getSortedBones()[1], 1000000u);
    ASSERT_EQ(description.getSpecificToCacheBoneIndices().size(), 3u);
    EXPECT_EQ(description.getSpecificToCacheBoneIndices()[2], 2u);
}

struct ValidityCase
{
    const char* name;
    void (*change)(Description& description);
    const char* messages; ///< empty for a valid description
};

Bone s_outsider("outsider");

const ValidityCase validityCases[] = {
    { "sound", [](Description&) {}, "" },
    { "negativeIndex", [](Description& d) { d.getBones()[0]->setSpecificBoneIndex(-1); }, "" },
    { "secondTree", [](Description& d) { findBone(d, "hand")->setFather(nullptr); }, "" },
    { "sharedIndex", [](Description& d) { d.getBones()[2]->setSpecificBoneIndex(1); },
      "The bone thumb has an index of 1, which is already in use for another bone.\n" },
    { "sharedIndexBeyondTheBones",
      [](Description& d) {
          d.getBones()[2]->setSpecificBoneIndex(6);
          d.getBones()[3]->setSpecificBoneIndex(6);
      },
      "The bone thumb has an index of 6, which is greater than the number of bones in the skeleton "
      "description(6).\n"
      "The bone hand has an index of 6, which is already in use for another bone.\n"
      "The bone hand has an index of 6, which is greater than the number of bones in the skeleton "
      "description(6).\n" },
    { "empty", [](Description& d) { d.clear(); }, "The _rootBone is NULL.\n" },
    { "rootBelowABone", [](Description& d) { d.setRootBone(findBone(d, "spine")); },
      "The _rootBone has a father bone.\n" },
    { "rootFromOutside", [](Description& d) { d.setRootBone(&s_outsider); },
      "The bone outsider is the _rootBone but not in the skeleton description.\n" },
    { "nullBone", [](Description& d) { d.touchBones().push_back(nullptr); },
      "A bone of the skeleton description is NULL.\n" },
    { "boneTwice", [](Description& d) { d.touchBones().push_back(d.getBones()[4]); },
      "The bone head has an index of 4, which is already in use for another bone.\n"
      "The bone head stands twice in the skeleton description.\n" },
    { "childTwice", [](Description& d) { findBone(d, "hips")->touchChildren().push_back(d.getBones()[1]); },
      "The bone hips has a child that is not its own.\n" },
    { "childOfTwo", [](Description& d) { findBone(d, "foot")->touchChildren().push_back(d.getBones()[1]); },
      "The bone foot has a child that is not its own.\n" },
    { "fatherFromOutside",
      [](Description& d) {
          findBone(d, "foot")->setFather(&s_outsider);
          s_outsider.touchChildren().clear();
      },
      "The bone foot is not among the children of its father.\n" },
    { "ring", [](Description& d) { findBone(d, "spine")->setFather(findBone(d, "hand")); },
      "The bone spine is its own ancestor, or lies below such a bone.\n" },
};

TEST_F(SkeletonDescriptionTest, eachFaultIsRefusedAndTold)
{
    for (const ValidityCase& row : validityCases)
    {
        Description description;
        fillSkeleton(description, body);
        row.change(description);
        EXPECT_EQ(description.isSkeletonDescriptionValid(false), *row.messages == '\0') << row.name;
        EXPECT_EQ(_logger._messages, "") << row.name;
        EXPECT_EQ(description.isSkeletonDescriptionValid(true), *row.messages == '\0') << row.name;
        EXPECT_EQ(_logger._messages, row.messages) << row.name;
        _logger._messages.clear();
        // Whatever it holds, it can be sorted, measured, copied and deleted.
        description.initSortedBones();
        description.getMaxBonesHierarchyLength();
        const Description copy(description);
        EXPECT_TRUE(copy.equals(copy, true, true, true, true)) << row.name;
    }
}

struct EqualsCase
{
    const char* name;
    void (*change)(Description& description);
    const char* differences; ///< the letters of the comparisons that see it
};

TEST_F(SkeletonDescriptionTest, equalsComparesWhatItIsAskedFor)
{
    const EqualsCase cases[] = {
        { "equal", [](Description&) {}, "" },
        { "name", [](Description& d) { d.setName("other"); }, "n" },
        { "count", [](Description& d) { d.touchBones().push_back(new Bone("extra")); }, "c" },
        { "root", [](Description& d) { d.getRootBone()->setName("pelvis"); }, "h" },
        { "noRoot", [](Description& d) { d.setRootBone(nullptr); }, "h" },
        { "deepBone", [](Description& d) { findBone(d, "thumb")->setName("finger"); }, "" },
        { "order",
          [](Description& d) {
              findBone(d, "foot")->setName("zfoot");
              d.initSortedBones();
          },
          "s" },
    };
    Description original;
    fillSkeleton(original, body);
    for (const EqualsCase& row : cases)
    {
        Description changed(original);
        row.change(changed);
        const std::string differences = row.differences;
        for (const char comparison : { 'n', 'c', 'h', 's' })
            EXPECT_EQ(original.equals(changed, comparison == 'n', comparison == 'c', comparison == 'h',
                                      comparison == 's'),
                      differences.find(comparison) == std::string::npos)
                << row.name << " " << comparison;
        EXPECT_EQ(original == changed, differences.empty()) << row.name;
    }
}

TEST_F(SkeletonDescriptionTest, aCopyIsNumberedByPosition)
{
    Description original("body");
    fillSkeleton(original, body);
    findBone(original, "hand")->setSpecificBoneIndex(0);
    findBone(original, "hips")->setSpecificBoneIndex(3); // whose bone becomes the root of the copy
    std::reverse(original.getRootBone()->touchChildren().begin(),
                 original.getRootBone()->touchChildren().end());
    Description copy;
    fillSkeleton(copy, "old -");
    copy = original;
    const Description& self = copy;
    copy = self;
    EXPECT_EQ(copy.getRootBone(), findBone(copy, "hand"));
    EXPECT_NE(findBone(copy, "hand"), findBone(original, "hand"));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(copy.getBones()[static_cast<size_t>(i)]->getSpecificBoneIndex(), i);
    EXPECT_STREQ(findBone(copy, "hips")->getChild(0)->getName().c_str(), "spine");
    EXPECT_TRUE(copy.getSortedBones() == original.getSortedBones()) << "copied as they stand";
    EXPECT_TRUE(copy.hasSoundHierarchy());
    EXPECT_TRUE(isNear(findBone(copy, "thumb")->getWorldPosUnscaled(), Vector3(0.0f, 0.35f, 1.5f)));
}

struct OwnCopyCase
{
    const char* name;
    void (*change)(Description&);
    bool keepsBones;
};

// The thumb stands before its father in `body`: the others have it moved.
const OwnCopyCase ownCopyCases[] = {
    { "inOrder", [](Description&) {}, true },
    { "withoutRoot", [](Description& d) { d.setRootBone(nullptr); }, true },
    { "staleCaches",
      [](Description& d) {
          findBone(d, "thumb")->computeCache();
          d.getRootBone()->rewriteLocalTransform(Vector3(5.0f, 0.0f, 0.0f), Quaternion::getIdentity());
      },
      true },
    { "childBeforeItsFather", [](Description& d) { std::swap(d.touchBones()[2], d.touchBones()[3]); },
      false },
    { "twoOfOneNumber", [](Description& d) { findBone(d, "hand")->setSpecificBoneIndex(0); }, false },
    { "negativeNumber", [](Description& d) { findBone(d, "head")->setSpecificBoneIndex(-1); }, false },
    { "rootOfAnotherNumber",
      [](Description& d) {
          d.touchBones().push_back(new Bone("other", nullptr, 6));
          d.setRootBone(d.getBones()[6]);
          d.getRootBone()->setSpecificBoneIndex(1);
      },
      false },
    { "childrenInAnotherOrder",
      [](Description& d) {
          std::reverse(d.getRootBone()->touchChildren().begin(), d.getRootBone()->touchChildren().end());
      },
      false },
    { "childThatIsMissed", [](Description& d) { findBone(d, "spine")->touchChildren().pop_back(); }, false },
    { "childThatIsNot",
      [](Description& d) { findBone(d, "foot")->touchChildren().push_back(findBone(d, "head")); }, false },
};

TEST_F(SkeletonDescriptionTest, becomesWhatItsCopyIsAndKeepsBonesThatAreSo)
{
    for (const OwnCopyCase& row : ownCopyCases)
    {
        SCOPED_TRACE(row.name);
        Description description("body");
        fillSkeleton(description, body);
        std::swap(description.touchBones()[2], description.touchBones()[3]);
        description.getBones()[2]->setSpecificBoneIndex(2);
        description.getBones()[3]->setSpecificBoneIndex(3);
        description.initSortedBones();
        row.change(description);
        const Description copy(description);
        const Bone* const first = description.getBones()[0];
        description.becomeOwnCopy();
        EXPECT_EQ(describe(description), describe(copy));
        EXPECT_EQ(sortedNames(description), sortedNames(copy));
        EXPECT_EQ(description.getBones()[0] == first, row.keepsBones);
        for (size_t i = 0; i < copy.getBones().size(); ++i)
            EXPECT_EQ(description.getBones()[i]->getWorldPosUnscaled(),
                      copy.getBones()[i]->getWorldPosUnscaled());
    }
}

TEST_F(SkeletonDescriptionTest, theLongestChainIsMeasuredWithoutTheRoot)
{
    Description description;
    EXPECT_EQ(description.getMaxBonesHierarchyLength(), 0.0f);
    fillSkeleton(description, body);
    EXPECT_EQ(description.getMaxBonesHierarchyLength(), 2.5f); // head, spine
    description.setRootBone(nullptr);
    EXPECT_EQ(description.getMaxBonesHierarchyLength(), 3.5f);
}

TEST_F(SkeletonDescriptionTest, bakingWritesTheBonesAsTheyAreGiven)
{
    Description description;
    fillSkeleton(description, "tip mid 1 0 0\n root - 1 0 0\n mid root 1 0 0");
    const Bone* const tip = description.getBones()[0];
    tip->getWorldPosUnscaled();
    Description::Override pose;
    pose._boneslocalPos.resize(3, Vector3(0.0f, 2.0f, 0.0f));
    pose._boneslocalOri.resize(2, Quaternion(0.0f, 0.0f, 0.0f, 2.0f));
    description.bakeSkeletonOverride(pose);
    EXPECT_EQ(_logger._messages,
              "Trying to bake a skeleton override with a different number of bones (3) than "
              "the skeleton's (3).\n");
    EXPECT_EQ(tip->getLocalPosUnscaled().x, 1.0f);

    pose._boneslocalOri.push_back(Quaternion(0.0f, 0.0f, 0.0f, 2.0f));
    description.bakeSkeletonOverride(pose);
    EXPECT_EQ(tip->getLocalOri().w, 2.0f);
    // In the order of the bones: the tip is computed before those above it have been refreshed.
    EXPECT_TRUE(isNear(description.getBones()[2]->getWorldPosUnscaled(), Vector3(0.0f, 4.0f, 0.0f)));
    EXPECT_TRUE(isNear(tip->getWorldPosUnscaled(), Vector3(2.0f, 2.0f, 0.0f)));
}

} // namespace
} // namespace mrv::test
