// fuzz/mrvFuzzHook.h
// Start of the library for a fuzz target, and the way on from a demanded fatal end.
#pragma once

#include "mrvCore/mrvCore.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "tests/support/mrvTestGraph.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

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

/// Puts the bytes into a file in memory, one per process and extension, for the targets of what reads files.
inline std::string writeFile(const uint8_t* data, size_t size, const char* extension)
{
    std::string name = "/dev/shm/mrvFuzz-" + std::to_string(getpid()) + extension;
    std::FILE* file = std::fopen(name.c_str(), "wb");
    if (file == nullptr || std::fwrite(data, 1, size, file) != size || std::fclose(file) != 0)
        std::abort();
    return name;
}

} // namespace mrvFuzz
