// tests/hosts/mrvcharacter/mrvHostProgram.h
// Runs the built batch host as a user would.
#pragma once

#include "tests/support/mrvTemporaryFolder.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace mrv {

const std::string samples = MRV_TEST_DATA "/../../samples/";

/// What one run left; the exit code is -1 for a program that did not end by itself.
struct HostRun
{
    int exitCode = -1;
    std::string out;
    std::string err;
};

/// No shell is between: arguments may hold anything.
inline HostRun runHost(const std::vector<std::string>& arguments)
{
    const TemporaryFolder folder;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const char* const names[] = { "out", "err" };
    for (int stream = 0; stream < 2; ++stream)
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO + stream, folder.path(names[stream]).c_str(),
                                         O_WRONLY | O_CREAT, 0600);
    std::vector<std::string> words = { MRV_CHARACTER_HOST };
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    HostRun run;
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, MRV_CHARACTER_HOST, &actions, nullptr, argv.data(), environ) == 0 &&
        waitpid(process, &status, 0) == process && WIFEXITED(status))
        run.exitCode = WEXITSTATUS(status);
    posix_spawn_file_actions_destroy(&actions);
    run.out = folder.read("out");
    run.err = folder.read("err");
    return run;
}

/// Runs a command that must go well.
inline HostRun runWell(const std::vector<std::string>& arguments)
{
    HostRun run = runHost(arguments);
    EXPECT_EQ(run.exitCode, 0) << arguments[0] << ": " << run.err;
    return run;
}

inline std::string readFile(const std::string& name)
{
    std::ifstream stream(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

} // namespace mrv
