// tests/lifecycle/mrvRegisteredClassesTest.cpp
// A lock on what files rely on: names, ids, bases and attribute lists of all persistent classes.
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "tests/support/mrvCoreFixture.h"

#include <fstream>
#include <sstream>
#include <string>

namespace mrv {
namespace {

using RegisteredClasses = CoreTest;

std::string describe(const RTTI& record)
{
    std::string text = std::string(record.getTypeName()) + " " + record.getTypeID().getString().c_str();
    for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
        text += std::string(" : ") + record.getBaseClassRTTI(i).getTypeName();
    for (unsigned int i = 0; i < record.getAttributesCount(); ++i)
        text += std::string(i == 0 ? ": " : ", ") + record.getAttribute(i)->getName() + " " +
                record.getAttribute(i)->getAttributeRTTI().getTypeName();
    return text;
}

// The numbered lists were taken from the format's own documents. A line never changes; a new class adds one
// to each file.
TEST_F(RegisteredClasses, areTheOnesOfTheTable)
{
    std::ifstream table(MRV_TEST_DATA "/registration.txt"); // number, id, name
    int rows = 0;
    std::string id, name;
    for (int number = 0; table >> number >> id >> name;)
    {
        EXPECT_EQ(number, ++rows);
        EXPECT_STREQ(RTTI::getTypeID(name.c_str()).getString().c_str(), id.c_str()) << name;
        EXPECT_NE(RTTI::getRTTI(Uuid(id.c_str())), nullptr) << name;
    }
    EXPECT_EQ(rows, 103);
}

TEST_F(RegisteredClasses, keepTheirAttributeLists)
{
    std::ifstream lists(MRV_TEST_DATA "/versions/attributeLists.txt");
    int classes = 0;
    for (std::string line; std::getline(lists, line); ++classes)
    {
        const RTTI* record = RTTI::getRTTI(RTTI::getTypeID(line.substr(0, line.find(' ')).c_str()));
        ASSERT_NE(record, nullptr) << line;
        EXPECT_EQ(describe(*record), line);
    }
    EXPECT_EQ(classes, 103);
}

TEST_F(RegisteredClasses, ofTheCharacterAreFoundFromTheirBase)
{
    const RTTI* base = RTTI::getRTTI(RTTI::getTypeID("MaravoCharacterInterface"));
    ASSERT_NE(base, nullptr);
    EXPECT_EQ(RTTI::getRTTIs(base->getTypeID()).size(), 26u); // 25 versions and the base itself
}

} // namespace
} // namespace mrv
