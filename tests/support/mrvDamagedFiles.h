// tests/support/mrvDamagedFiles.h
// Loads damaged files in child processes, so that a load may end its process as it is demanded.
#pragma once

#include "tests/support/mrvCoreFixture.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mrv {

/// A fixture for files that may hold anything. A load may take two seconds and 64 megabytes.
class DamagedFiles : public CoreTest
{
protected:
    DamagedFiles()
        : _next(static_cast<size_t*>(
              mmap(nullptr, sizeof(size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {}
    ~DamagedFiles() override { munmap(_next, sizeof(size_t)); }

    using MakeInput = std::function<std::string(size_t input)>;
    /// Loads the file and uses what it gave; false if the result is wrong.
    using LoadFile = std::function<bool(size_t input, const MrvString& fileName)>;

    /// Loads `count` inputs in child processes, each of which goes on until an input ends it. Returns how
    /// many did so by the end that is demanded for an object of the wrong size; any other end is a failure.
    size_t loadInputs(const std::string& extension, size_t count, const MakeInput& makeInput,
                      const LoadFile& loadFile)
    {
        size_t demandedEnds = 0;
        const long kilobytesBefore = kilobytesInUse(); // which a child begins with
        for (*_next = 0; *_next < count;)
        {
            const pid_t child = fork();
            if (child == 0)
                loadInChild("c." + extension, count, makeInput, loadFile);
            int status = -1;
            rusage usage;
            EXPECT_EQ(wait4(child, &status, 0, &usage), child);
            const bool isDemanded = WIFSIGNALED(status) && WTERMSIG(status) == SIGTRAP;
            if (status != 0 && !isDemanded)
            {
                ADD_FAILURE() << "input " << *_next - 1 << " of " << extension << " ended with status "
                              << status << '\n'
                              << _folder.read("messages");
                break;
            }
            EXPECT_TRUE(!isMemoryTold || usage.ru_maxrss - kilobytesBefore < maximumKilobytes)
                << usage.ru_maxrss << " kilobytes up to input " << *_next - 1;
            demandedEnds += isDemanded;
        }
        return demandedEnds;
    }

private:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    static constexpr bool isMemoryTold = false; // what a sanitizer keeps hides it
#else
    static constexpr bool isMemoryTold = true;
#endif
    static constexpr long maximumKilobytes = 64 * 1024;

    /// The part of this process that lies in memory.
    static long kilobytesInUse()
    {
        long pages = 0, residentPages = 0;
        std::ifstream("/proc/self/statm") >> pages >> residentPages;
        return residentPages * (sysconf(_SC_PAGESIZE) / 1024);
    }

    /// Ends the process when it has worked that long; 0 takes it back. Waiting for the processor does not
    /// count.
    static void allowSeconds(time_t seconds)
    {
        const itimerval limit{ { 0, 0 }, { seconds, 0 } };
        setitimer(ITIMER_PROF, &limit, nullptr);
    }

    [[noreturn]] void loadInChild(const std::string& name, size_t count, const MakeInput& makeInput,
                                  const LoadFile& loadFile)
    {
        if (std::freopen(_folder.path("messages").c_str(), "w", stderr) == nullptr)
            _exit(2);
        while (*_next < count)
        {
            const size_t input = (*_next)++;
            const MrvString fileName = _folder.write(name.c_str(), makeInput(input));
            allowSeconds(2);
            const bool isRight = loadFile(input, fileName);
            allowSeconds(0);
            if (!isRight)
            {
                std::fprintf(stderr, "wrong result\n");
                std::fflush(stderr);
                _exit(1);
            }
        }
        _exit(0);
    }

    TemporaryFolder _folder;
    size_t* _next; ///< the input that is next, shared with the children
};

} // namespace mrv
