// fuzz/mrvFuzzHook.h
// Start of the library for a fuzz target, and the way on from a demanded fatal end.
#pragma once

#include "mrvCore/mrvCore.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "tests/support/mrvTestGraph.h"

namespace mrvFuzz {

/// Thrown out of the library where an ordinary build would end the process.
struct FatalEnd
{};

/// Starts the library with the test graph, once in the process. Demanded ends still print their message:
/// run the targets with -close_fd_mask=2.
inline void startOnce()
{
    static const bool isStarted = [] {
        mrv::initCore();
        mrv::test::registerTestGraph();
        mrv::setFatalEndHook([] { throw FatalEnd(); });
        return true;
    }();
    static_cast<void>(isStarted);
}

} // namespace mrvFuzz
