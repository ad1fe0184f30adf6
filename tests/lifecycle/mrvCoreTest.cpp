// tests/lifecycle/mrvCoreTest.cpp
#include "mrvCore/mrvCore.h"

#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTIConcat.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/thread/mrvThread.h"
#include "mrvCore/system/utils/mrvProductInformation.h"
#include "mrvCore/system/utils/mrvStringOperators.h"
#include "mrvCore/version/mrvCoreProductInformation.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace mrv {
namespace {

TEST(Lifecycle, onlyTheLastOfNestedStopsTearsDown)
{
    EXPECT_TRUE(isCoreFinished());
    initCore();
    const RTTI* record = RTTI::getRTTI(RTTI::getTypeID("int"));
    ASSERT_NE(record, nullptr);
    initCore();
    finishCore(false);
    EXPECT_FALSE(isCoreFinished());
    EXPECT_EQ(RTTI::getRTTI(RTTI::getTypeID("int")), record);
    EXPECT_NE(getLog(), nullptr);
    finishCore(true);
    EXPECT_TRUE(isCoreFinished());
    EXPECT_EQ(getLog(), nullptr);
}

TEST(Lifecycle, thePoolLivesBetweenStartAndStop)
{
    EXPECT_EQ(getMultiThreadProcessor(), nullptr);
    for (int cycle = 0; cycle < 2; ++cycle)
    {
        initCore();
        MultiThreadProcessor* const pool = getMultiThreadProcessor();
        ASSERT_NE(pool, nullptr);
        EXPECT_EQ(pool->getThreadCount(), getSupportedConcurrentThreadCount());
        initCore();
        EXPECT_EQ(getMultiThreadProcessor(), pool) << "a nested start makes no second one";
        finishCore(true);
        EXPECT_EQ(getMultiThreadProcessor(), pool);
        finishCore(true);
        EXPECT_EQ(getMultiThreadProcessor(), nullptr);
    }
}

TEST(Lifecycle, anUnmatchedStopMakesTheNextStartOnlyEvenItOut)
{
    finishCore(true);
    EXPECT_FALSE(isCoreFinished());
    initCore();
    EXPECT_TRUE(isCoreFinished());
    EXPECT_EQ(getLog(), nullptr) << "that start must build nothing";
    initCore();
    EXPECT_FALSE(isCoreFinished());
    EXPECT_NE(getLog(), nullptr);
    finishCore(true);
}

TEST(Lifecycle, aThousandCyclesFillNoArena)
{
    uint64_t names = 0;
    uint64_t identifiers = 0;
    for (int i = 0; i < 1000; ++i)
    {
        initCore();
        if (i == 0)
        {
            names = RTTIConcatBufferIndex;
            identifiers = alphaNumericCopiesBufferIndex;
        }
        ASSERT_EQ(RTTIConcatBufferIndex, names);
        ASSERT_EQ(alphaNumericCopiesBufferIndex, identifiers);
        finishCore((i & 1) != 0);
    }
    EXPECT_GT(names, 0u);
}

TEST(Lifecycle, usersOnSeveralThreadsPairTheirCallsUnawareOfEachOther)
{
    std::vector<std::thread> users;
    for (int user = 0; user < 4; ++user)
    {
        users.emplace_back([] {
            for (int i = 0; i < 50; ++i)
            {
                initCore();
                EXPECT_NE(RTTI::getRTTI(RTTI::getTypeID("float")), nullptr);
                finishCore(true);
            }
        });
    }
    for (std::thread& user : users)
        user.join();
    EXPECT_TRUE(isCoreFinished());
}

TEST(Lifecycle, theCoreRecordTellsNameVersionAndRelease)
{
    const std::string text = getCoreProductInformation().getCString();
    EXPECT_EQ(text, std::string("MaravoCore - 9.3.1.0 - Release 9.3.1 of 2026/05/20 - ") +
                        CORE_PRODUCT_DESCRIPTION);
}

} // namespace
} // namespace mrv
