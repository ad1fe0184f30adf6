// fuzz/mrvFuzzHook.h
// Start of the library for a fuzz target, and the way on from a demanded fatal end.
#pragma once

#include "mrvCore/mrvCore.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "tests/support/mrvTestGraph.h"

#include <cstdio>

namespace mrvFuzz {

/// Thrown out of the library where an ordinary build would end the process.
struct FatalEnd
{};

/// Starts the library with the test graph, once in the process.
inline void startOnce()
{
    static const bool isStarted = [] {
        mrv::initCore();
        mrv::test::registerTestGraph();
        mrv::setFatalEndHook([] { throw FatalEnd(); });
        // Thousands of messages a second tell nothing.
        return std::freopen("/dev/null", "w", stderr) != nullptr;
    }();
    static_cast<void>(isStarted);
}

} // namespace mrvFuzz
