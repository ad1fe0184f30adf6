// tests/system/inspection/mrvRTTITest.cpp
#include "mrvCore/system/inspection/mrvRTTI.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"
#include "mrvCore/system/inspection/mrvRTTIAccessor.h"
#include "mrvCore/system/inspection/mrvRTTIConcat.h"
#include "tests/support/mrvCoreFixture.h"

#include <csignal>
#include <string>

namespace mrv {
namespace {

// An attribute that only stands in a list.
class ListedAttribute : public AbstractAttribute
{
public:
    using ValueType = int;
    ListedAttribute(const char* name, const RTTI& owner) : AbstractAttribute(name, owner) { ++s_alive; }
    ListedAttribute(const ListedAttribute& other) : AbstractAttribute(other) { ++s_alive; }
    ~ListedAttribute() override { --s_alive; }

    const RTTI& getAttributeRTTI() const override { return RTTIAccessor<int>::getClassRTTI(); }
    void pack(BinaryStream&, const void*) const override {}
    void unpack(BinaryStream&, void*) const override {}
    void pack(XMLStream&, DataItem&, const void*) const override {}
    void unpack(XMLStream&, const DataItem&, void*) const override {}

    static int s_alive;
};

int ListedAttribute::s_alive = 0;

class Tool
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(Tool)
    virtual ~Tool() = default;
};

class Saw : public Tool
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(Saw)
};

class Plan
{
public:
    MRV_PERSISTENT_CLASS(Plan)
    virtual ~Plan() = default;
    virtual void draw() = 0;
};

MRV_DEFINE_PERSISTENT_CLASS(Tool, "test::Tool", "7d0f3a52-0d3b-4f0e-8a56-0c7a3e5b9f01")
MRV_DEFINE_PERSISTENT_CLASS(Saw, "Saw", "c1a5b7de-52f4-4b77-9e0c-6c1b7a2d8e02")
MRV_DEFINE_ABSTRACT_PERSISTENT_CLASS(Plan, "Plan", "3f8e6d2b-91c4-4f6a-b3d7-5e2a9c4b1f03")

void Tool::addAttributes()
{
    getClassRTTI().addAttribute(ListedAttribute("name", getClassRTTI()));
    getClassRTTI().addAttribute(ListedAttribute("is sharp", getClassRTTI()));
}

void Saw::addAttributes()
{
    addBaseClass<Tool>();
    for (const char* name : { "teeth", "name", "length" })
        getClassRTTI().addAttribute(ListedAttribute(name, getClassRTTI()));
}

void Plan::addAttributes() {}

// Registers the classes as a host does: behind the start, and back before the stop.
class RegisteredClasses : public CoreTest
{
protected:
    RegisteredClasses()
    {
        _intUsers = RTTIAccessor<int>::getClassRTTI().getCounter();
        Saw::createClassRTTI(true); // names its base before that is registered
        Tool::createClassRTTI(true);
        Plan::createClassRTTI(true);
    }

    ~RegisteredClasses() override
    {
        Plan::destroyClassRTTI(true);
        Tool::destroyClassRTTI(true);
        EXPECT_NE(Tool::_rtti, nullptr) << "the derived class still uses it";
        Saw::destroyClassRTTI(true);
        EXPECT_EQ(Saw::_rtti, nullptr);
        EXPECT_EQ(Tool::_rtti, nullptr);
        EXPECT_EQ(ListedAttribute::s_alive, 0);
        EXPECT_EQ(RTTIAccessor<int>::getClassRTTI().getCounter(), _intUsers);
        EXPECT_EQ(RTTI::getRTTI(Uuid("c1a5b7de-52f4-4b77-9e0c-6c1b7a2d8e02")), nullptr);
    }

    unsigned int _intUsers = 0;
};

TEST_F(RegisteredClasses, indexOrderPutsBasesFirstAndNamesPreferOwnAttributes)
{
    const RTTI& saw = Saw::getClassRTTI();
    EXPECT_EQ(RTTIAccessor<int>::getClassRTTI().getCounter(), _intUsers + 5);
    ASSERT_EQ(saw.getAttributesCount(), 5u);
    const char* expected[] = { "name", "isSharp", "teeth", "name", "length" };
    for (unsigned int i = 0; i < 5; ++i)
    {
        EXPECT_STREQ(saw.getAttribute(i)->getName(), expected[i]);
        EXPECT_EQ(&saw.getAttribute(i)->getOwnerRTTI(), i < 2 ? &Tool::getClassRTTI() : &saw);
    }
    EXPECT_EQ(saw.getAttribute(5u), nullptr);

    EXPECT_EQ(saw.getAttribute("name"), saw.getAttribute(3u)) << "the own one hides the base's";
    EXPECT_EQ(saw.getAttribute("is sharp"), saw.getAttribute(1u));
    EXPECT_EQ(saw.getAttribute("isSharp"), saw.getAttribute(1u));
    EXPECT_EQ(saw.getAttribute("sharp"), nullptr);
    EXPECT_TRUE(saw.hasAttribute(*saw.getAttribute(1u)));
    EXPECT_FALSE(Tool::getClassRTTI().hasAttribute(*saw.getAttribute(2u)));
}

TEST_F(RegisteredClasses, derivationIsKnownInOneDirectionOnly)
{
    const RTTI& tool = Tool::getClassRTTI();
    const RTTI& saw = Saw().getRTTI();
    EXPECT_TRUE(saw.isDerivedFrom(tool) && saw.isDerivedFrom(saw) && !tool.isDerivedFrom(saw));

    const PODArray<const RTTI*> tools = RTTI::getRTTIs(tool.getTypeID());
    ASSERT_EQ(tools.size(), 2u);
    EXPECT_EQ(tools[0], &tool);
    EXPECT_EQ(tools[1], &saw);
    EXPECT_EQ(RTTI::getRTTIs(saw.getTypeID()).size(), 1u);
    EXPECT_TRUE(RTTI::getRTTIs(Uuid("00000000-0000-0000-0000-000000000001")).empty());
}

TEST_F(RegisteredClasses, onlyClassesWithAFactoryCanBeMadeFromTheirIdentity)
{
    // A class that a derived one names first gets its record without a factory.
    EXPECT_EQ(RTTI::createInstance(Tool::getClassRTTI().getTypeID()), nullptr);
    EXPECT_EQ(RTTI::createInstance(Plan::getClassRTTI().getTypeID()), nullptr);
    EXPECT_EQ(RTTI::createInstance(RTTI::getTypeID("float")), nullptr);
    EXPECT_EQ(RTTI::createInstance(Uuid()), nullptr);

    Tool* made = static_cast<Tool*>(RTTI::createInstance(RTTI::getTypeID("Saw")));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(&made->getRTTI(), &Saw::getClassRTTI());
    delete made;
}

TEST_F(RegisteredClasses, lookUpsOfTheUnknownChangeNothing)
{
    const size_t count = RTTI::getRTTIs().size();
    const uint64_t arena = RTTIConcatBufferIndex;
    const Uuid unknown("00000000-0000-0000-0000-000000000001");
    EXPECT_EQ(RTTI::checkBeforeCreate(unknown, "Anything"), nullptr);
    EXPECT_EQ(RTTI::getRTTI(unknown), nullptr);
    EXPECT_EQ(RTTI::getTypeName(unknown), nullptr);
    EXPECT_TRUE(RTTI::getTypeID("Anything").isNull());
    EXPECT_EQ(RTTI::getRTTIs().size(), count);
    EXPECT_EQ(RTTIConcatBufferIndex, arena);

    EXPECT_EQ(RTTI::checkBeforeCreate(Saw::getClassRTTI().getTypeID(), "Saw"), &Saw::getClassRTTI());
    EXPECT_EQ(RTTIConcatBufferIndex, arena + 4) << "a check that finds the record costs its name";
}

class Counted : public IRTTICreator
{
public:
    ~Counted() override { ++s_deleted; }
    void* create() const override { return new Tool(); }
    void destroy(void* instance) const override { delete static_cast<Tool*>(instance); }
    static int s_deleted;
};

int Counted::s_deleted = 0;

TEST_F(CoreTest, oneNameUnderTwoIdentitiesAnswersWithTheFirstAndSharedFactoriesAreDeletedOnce)
{
    const Uuid first("00000000-0000-0000-0000-00000000000a"), second("00000000-0000-0000-0000-00000000000b");
    Counted::s_deleted = 0;
    IRTTICreator* creator = new Counted();
    RTTI* a = RTTI::create(first, "Twin", creator);
    RTTI* b = RTTI::create(second, "Twin", creator);
    EXPECT_EQ(a->getCounter(), 0u);
    EXPECT_EQ(RTTI::getTypeID("Twin"), first);
    delete a;
    EXPECT_EQ(Counted::s_deleted, 0);
    EXPECT_EQ(RTTI::getRTTI(second), b) << "left to the stop of the library";
}

TEST_F(CoreTest, derivedNamesAreWrittenIntoTheArenaOneBehindTheOther)
{
    const char* first = RTTIConcat("a");
    EXPECT_STREQ(RTTIConcat("a", "b", "c", "d", "e"), "a<b,c,d,e>");
    EXPECT_STREQ(RTTIConcat("a", "b", "c", "d"), "a<b,c,d>");
    EXPECT_STREQ(RTTIConcat("a", "b", MrvString("c")), "a<b,c>");
    EXPECT_STREQ(RTTIConcat("a", "b"), "a<b>");
    EXPECT_STREQ(first + 2, "a<b,c,d,e>");
}

struct BaseTypeRow
{
    const char* name;
    const char* typeID;
};

const BaseTypeRow baseTypeRows[] = {
    { "bool", "fac19457-d459-4f19-8218-65943a7de958" },
    { "short", "0aff7554-0ba1-4a93-8782-9a33e7fb6bc7" },
    { "unsigned short", "80e1ebd3-b3f3-47e9-bd40-5424c6c1c97a" },
    { "int", "e7aba3a3-34e5-414f-95ad-f1b0a3163240" },
    { "unsigned int", "e5f6d962-0891-4299-8212-38e900f240bf" },
    { "long", "85d1c39d-0d78-4dd0-9a08-2e1a2c1dbdca" },
    { "uint64_t", "74bbcf67-6888-4e15-9898-a36971adcf04" },
    { "float", "19da58d2-b2dc-4199-8985-029948867708" },
    { "double", "7c188429-e7ac-4322-a573-54d11874f639" },
    { "string", "1ae93ddd-1a38-47f1-9aff-af713284b685" },
    { "char", "17c814cf-cc7b-40d4-8a0b-1185f9b6cf2e" },
    { "unsigned char", "82fe4b50-c0f1-4825-baac-f8f929f0f166" },
    { "mrv::Uuid", "e94c88f5-c2a3-4e70-9526-61184b9dd4b1" },
    // Worked out apart from the library, as the sums above.
    { "mrv::Vector2", "bea86cb0-bd86-c807-fbaf-5e838ef2cf80" },
    { "mrv::Vector3", "bea86cb1-bd86-c807-fbaf-5e838ef2cf80" },
    { "mrv::Vector4", "bea86cb2-bd86-c807-fbaf-5e838ef2cf80" },
    { "mrv::Quaternion", "721bb6ae-2aba-c4a2-89f7-8e41cac0a332" },
    { "mrv::RotationMatrix", "2b91302c-af87-c33e-956f-f04d5acc65d4" },
};

TEST_F(CoreTest, baseTypesKeepTheirPermanentNamesAndIdentities)
{
    for (const BaseTypeRow& row : baseTypeRows)
    {
        EXPECT_EQ(RTTI::getTypeID(row.name), Uuid(row.typeID)) << row.name;
        EXPECT_STREQ(RTTI::getTypeName(Uuid(row.typeID)), row.name);
    }
    EXPECT_EQ(&RTTIAccessor<float>::getClassRTTI(), RTTI::getRTTI(RTTI::getTypeID("float")));
}

struct FatalCase
{
    const char* name;
    void (*run)();
    const char* message;
};

const FatalCase fatalCases[] = {
    { "secondNameForAnIdentity",
      [] { RTTI::checkBeforeCreate(Uuid("e7aba3a3-34e5-414f-95ad-f1b0a3163240"), "integer"); },
      "Type ID e7aba3a3-34e5-414f-95ad-f1b0a3163240 trying to register with the TypeName : integer is "
      "already registered with a different TypeName : int" },
    { "nullIdentity", [] { RTTI::create(Uuid(), "Nobody", nullptr); }, "TypeID is NULL for RTTI Nobody" },
    { "nullName", [] { RTTI::create(Uuid("00000000-0000-0000-0000-00000000000a"), nullptr, nullptr); },
      "Name is NULL for RTTI" },
    { "fullArena",
      [] {
          const std::string name(200, 'n');
          for (int i = 0; i < 2000; ++i)
              RTTIConcat(name.c_str());
      },
      "RTTIConcatBufferIndex < RTTI_STRING_CONCAT_LENGTH" },
};

class RegistryFatal : public testing::TestWithParam<FatalCase>
{};

TEST_P(RegistryFatal, endsTheProcessWithItsMessage)
{
    EXPECT_EXIT(
        {
            initCore();
            GetParam().run();
        },
        testing::KilledBySignal(SIGTRAP), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Table, RegistryFatal, testing::ValuesIn(fatalCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace mrv
