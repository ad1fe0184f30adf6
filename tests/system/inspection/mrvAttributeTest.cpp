// tests/system/inspection/mrvAttributeTest.cpp
#include "mrvCore/system/inspection/mrvAttribute.h"

#include "mrvCore/system/inspection/mrvTypesManager.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "tests/support/mrvTestGraph.h"

#include <csignal>
#include <string>
#include <utility>

namespace mrv::test {
namespace {

class AttributeTest : public GraphTest
{};

TEST_F(AttributeTest, namesAreIdentifiersAndIndicesPutBasesFirst)
{
    const RTTI& lit = LitNode::getClassRTTI();
    const char* expected[] = { "name", "position", "father", "children", "colour", "isLit" };
    ASSERT_EQ(lit.getAttributesCount(), 6u);
    for (unsigned int i = 0; i < 6; ++i)
        EXPECT_STREQ(lit.getAttribute(i)->getName(), expected[i]);
    EXPECT_EQ(lit.getAttribute("is lit"), lit.getAttribute(5u));
    EXPECT_STREQ(Scene::getClassRTTI().getAttribute("low limit")->getName(), "lowLimit");
}

struct TypeCase
{
    const char* attribute; ///< of Scene
    const char* typeName;
    AbstractAttribute::AttributeType::Value form;
};

const TypeCase typeCases[] = {
    { "root", "test::Node*", AbstractAttribute::AttributeType::POINTER },
    { "favourite", "const test::Part*", AbstractAttribute::AttributeType::CONST_POINTER },
    { "parts", "Array<test::Part>", AbstractAttribute::AttributeType::VALUE },
    { "numbers", "PODArray<int>", AbstractAttribute::AttributeType::VALUE },
    { "table", "Array<PODArray<int>>", AbstractAttribute::AttributeType::VALUE },
    { "ages", "MrvMap<string,int>*", AbstractAttribute::AttributeType::VALUE },
    { "pairs", "Array<pair<string,test::Part*>*>", AbstractAttribute::AttributeType::VALUE },
    { "stage", "const test::Part&", AbstractAttribute::AttributeType::CONST_REFERENCE },
    { "guests", "const Array<test::Node*>&", AbstractAttribute::AttributeType::CONST_REFERENCE },
    { "year", "int", AbstractAttribute::AttributeType::VALUE },
};

TEST_F(AttributeTest, typesOfAttributesHaveTheirDerivedNames)
{
    for (const TypeCase& row : typeCases)
    {
        const AbstractAttribute* attribute = Scene::getClassRTTI().getAttribute(row.attribute);
        ASSERT_NE(attribute, nullptr) << row.attribute;
        EXPECT_STREQ(attribute->getAttributeRTTI().getTypeName(), row.typeName);
        EXPECT_EQ(attribute->getAttributeType(), row.form) << row.attribute;
        EXPECT_EQ(&attribute->getOwnerRTTI(), &Scene::getClassRTTI());
    }
    // Worked out apart from the library.
    EXPECT_EQ(RTTI::getTypeID("PODArray<int>"), Uuid("a787025d-cfa7-c817-d50f-9dceabbec8f8"));
}

TEST_F(AttributeTest, aCompositeTypeHoldsOneUserOfItsElementHoweverManyItHas)
{
    const unsigned int intUsers = RTTIAccessor<int>::getClassRTTI().getCounter();
    const RTTI& array = RTTIAccessor<PODArray<int>>::getClassRTTI();
    const unsigned int arrayUsers = array.getCounter();
    RTTIAccessor<PODArray<int>>::createClassRTTI();
    EXPECT_EQ(array.getCounter(), arrayUsers + 1);
    EXPECT_EQ(RTTIAccessor<int>::getClassRTTI().getCounter(), intUsers);

    const unsigned int shortUsers = RTTIAccessor<short>::getClassRTTI().getCounter();
    RTTIAccessor<Array<short>>::createClassRTTI(); // which no class of the library has
    RTTIAccessor<Array<short>>::createClassRTTI();
    EXPECT_EQ(RTTIAccessor<Array<short>>::getClassRTTI().getCounter(), 2u);
    EXPECT_EQ(RTTIAccessor<short>::getClassRTTI().getCounter(), shortUsers + 1);
    EXPECT_EQ(RTTI::getTypeID("Array<int>"), Uuid("c746cbe6-d35e-cc1d-cbcd-8b1e47f41e20"));

    for (int i = 0; i < 2; ++i)
        RTTIAccessor<Array<short>>::releaseClassRTTI();
    RTTIAccessor<PODArray<int>>::releaseClassRTTI();
    EXPECT_EQ(RTTIAccessor<Array<short>>::touchClassRTTI(), nullptr);
    EXPECT_EQ(RTTIAccessor<short>::getClassRTTI().getCounter(), shortUsers);
}

TEST_F(CoreTest, removalTakesEverythingBackAndCanBeRepeated)
{
    for (int i = 0; i < 2; ++i)
    {
        const size_t count = RTTI::getRTTIs().size();
        const unsigned int intUsers = RTTIAccessor<int>::getClassRTTI().getCounter();
        registerTestGraph();
        EXPECT_GT(RTTI::getRTTIs().size(), count + 5);
        removeTestGraph();
        EXPECT_EQ(RTTI::getRTTIs().size(), count);
        EXPECT_EQ(RTTIAccessor<int>::getClassRTTI().getCounter(), intUsers);
        EXPECT_EQ(Scene::_rtti, nullptr);
    }
}

TEST_F(AttributeTest, containerAccessorsReachTheElementOfTheirIndex)
{
    Scene scene;
    const auto* high =
        static_cast<const AbstractAttributeT<int, Scene>*>(Scene::getClassRTTI().getAttribute("high limit"));
    high->setValue(scene, 9);
    EXPECT_EQ(scene.getLimit(0), 0);
    EXPECT_EQ(scene.getLimit(1), 9);
    EXPECT_EQ(high->getValue(scene), 9);
    EXPECT_EQ(high->getRTTI(), nullptr) << "nobody registers the attribute classes";
}

/// An attribute whose value is something else than the member.
class NegatedCount : public Attribute<int, Part>
{
public:
    NegatedCount() : Attribute<int, Part>("count", Part::getClassRTTI(), &Part::_count) {}
    int getValue(const Part& owner) const override { return -owner._count; }
    void setValue(Part& owner, int value) const override { owner._count = -value; }
};

TEST_F(AttributeTest, aDerivedLeafIsWrittenAndReadThroughItsOverriddenAccessors)
{
    const NegatedCount attribute;
    const Part part("x", 3);
    BinaryStream stream;
    stream.setFirstPass(false);
    attribute.pack(stream, &part);
    int stored = 0;
    stream.read(stored);
    EXPECT_EQ(stored, -3);

    stream.getStream().seekg(0);
    Part read;
    attribute.unpack(stream, &read);
    EXPECT_EQ(read._count, 3);
}

/// Takes its stage over where it may.
class TakingScene : public Scene
{
public:
    void takeStage(Part& stage)
    {
        std::swap(stage, _taken);
        ++_takerCalls;
    }

    Part _taken;
    int _takerCalls = 0;
};

using StageAttribute = AccessorsAttribute<const Part&, TakingScene>;

/// Whose setter sees every value that is read.
class WatchedStage : public StageAttribute
{
public:
    using StageAttribute::StageAttribute;
    void setConstReference(TakingScene& owner, const Part& value) const override { owner.setStage(value); }
};

template <typename Leaf>
void readStage(TakingScene& scene)
{
    const Leaf attribute("stage", Scene::getClassRTTI(), &Scene::getStage, &Scene::setStage,
                         &TakingScene::takeStage);
    TakingScene source;
    source.setStage(Part("x", 3));
    BinaryStream stream;
    for (const bool isFirst : { true, false })
    {
        stream.setFirstPass(isFirst);
        attribute.pack(stream, &source);
    }
    stream.clear();
    for (const bool isFirst : { true, false })
    {
        stream.setFirstPass(isFirst);
        stream.getStream().seekg(0);
        attribute.unpack(stream, &scene);
    }
    stream.setFirstPass(true);
}

TEST_F(AttributeTest, aTakerGetsTheValueInPlaceOfTheSetterUnlessThatIsOverridden)
{
    TakingScene taking, watched;
    readStage<StageAttribute>(taking);
    EXPECT_EQ(taking._taken._count, 3);
    EXPECT_EQ(taking._takerCalls, 1);
    EXPECT_EQ(taking._stageSetterCalls, 0);
    readStage<WatchedStage>(watched);
    EXPECT_EQ(watched._takerCalls, 0);
    EXPECT_EQ(watched._stageSetterCalls, 1);
    EXPECT_EQ(watched.getStage()._count, 3);
}

/// A leaf that defines nothing.
class Undefined : public AbstractAttributeT<int, Part>
{
public:
    Undefined() : AbstractAttributeT<int, Part>("hollow", Part::getClassRTTI()) {}
    void pack(BinaryStream&, const void*) const override {}
    void unpack(BinaryStream&, void*) const override {}
    void pack(XMLStream&, DataItem&, const void*) const override {}
    void unpack(XMLStream&, const DataItem&, void*) const override {}
};

TEST_F(AttributeTest, anOperationThatNoLeafDefinesIsFatal)
{
    EXPECT_EXIT(Undefined().getValue(Part()), testing::KilledBySignal(SIGTRAP),
                "Not implemented in AbstractAttributeT derived class, for the attribute hollow of type int "
                "from an object of type test::Part");
}

TEST_F(CoreTest, typesThatNoHostHasNamedAreUnknown)
{
    EXPECT_STREQ(getTypesManagerSingleton().getType(42)._typeName.c_str(), "[unknown]");
}

} // namespace
} // namespace mrv::test
