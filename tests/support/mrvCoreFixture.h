// tests/support/mrvCoreFixture.h
// A test that runs with the library started, and checks that it stops wholly.
#pragma once

#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/mrvCore.h"

#include <gtest/gtest.h>

namespace mrv {

/// The pool has no workers: tests fork, and a child inherits the locks that other threads hold just then.
/// Those that need workers ask for them by updateThreadCount().
class CoreTest : public testing::Test
{
protected:
    CoreTest()
    {
        initCore();
        getMultiThreadProcessor()->updateThreadCount(1);
    }
    ~CoreTest() override
    {
        finishCore(true);
        EXPECT_TRUE(isCoreFinished());
    }
};

} // namespace mrv
