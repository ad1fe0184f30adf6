// tests/support/mrvCoreFixture.h
// A test that runs with the library started, and checks that it stops wholly.
#pragma once

#include "mrvCore/mrvCore.h"

#include <gtest/gtest.h>

namespace mrv {

class CoreTest : public testing::Test
{
protected:
    CoreTest() { initCore(); }
    ~CoreTest() override
    {
        finishCore(true);
        EXPECT_TRUE(isCoreFinished());
    }
};

} // namespace mrv
