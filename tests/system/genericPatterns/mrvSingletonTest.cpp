// tests/system/genericPatterns/mrvSingletonTest.cpp
#include "mrvCore/system/genericPatterns/mrvSingleton.h"

#include <gtest/gtest.h>

struct MrvSingletonTestService
{
    MrvSingletonTestService() { ++living; }
    virtual ~MrvSingletonTestService() { --living; }

    static int living;
};
int MrvSingletonTestService::living = 0;

MRV_DECLARE_SINGLETON(MrvSingletonTestService)
MRV_DEFINE_SINGLETON(MrvSingletonTestService)

namespace mrv {
namespace {

TEST(Singleton, thereIsAtMostOneAndItMayComeAgain)
{
    using Service = Singleton<MrvSingletonTestService>;
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_FALSE(Service::hasInstance());
        Service::create();
        MrvSingletonTestService* instance = Service::getInstance();
        Service::create();
        EXPECT_EQ(Service::getInstance(), instance);
        EXPECT_EQ(MrvSingletonTestService::living, 1);
        Service::destroy();
        Service::destroy();
        EXPECT_EQ(MrvSingletonTestService::living, 0);
    }
}

} // namespace
} // namespace mrv
