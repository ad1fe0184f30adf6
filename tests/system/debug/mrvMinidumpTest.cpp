// tests/system/debug/mrvMinidumpTest.cpp
#include "mrvCore/system/debug/mrvMinidump.h"

#include "mrvCore/system/log/mrvCallbackLogger.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace mrv {
namespace {

const char* const folderVariables[] = { "TMPDIR", "TMP", "TEMP", "TEMPDIR" };

void clearFolderVariables()
{
    for (const char* name : folderVariables)
        unsetenv(name);
}

TEST(Minidumps, goToTheFirstFolderThatTheEnvironmentNames)
{
    clearFolderVariables();
    char directory[64];
    const auto found = [&](unsigned int length) {
        std::memset(directory, '#', sizeof(directory));
        Minidump::getDefaultDirectory(directory, length);
        return std::string(directory);
    };
    EXPECT_EQ(found(64), "/tmp");
    EXPECT_EQ(found(5), "/tmp");
    EXPECT_EQ(found(4), "/tm");
    EXPECT_EQ(directory[4], '#');
    EXPECT_EQ(found(1), "");
    Minidump::getDefaultDirectory(directory, 0);
    EXPECT_EQ(directory[0], '\0') << "untouched";

    for (int i = 3; i >= 0; --i)
    {
        const std::string folder = std::string("/of/") + folderVariables[i];
        setenv(folderVariables[i], folder.c_str(), 1);
        EXPECT_EQ(found(64), folder) << "it comes before those behind it";
    }
    setenv(folderVariables[0], "", 1);
    EXPECT_EQ(found(64), "") << "set, though to nothing";
}

TEST(Minidumps, copyIsCutTerminatedAndFilledWithZeros)
{
    for (unsigned int length = 0; length < 9; ++length)
    {
        char buffer[10];
        std::memset(buffer, '#', sizeof(buffer));
        Minidump::strcpySafe(buffer, length, "hello");
        const size_t kept = length == 0 ? 0 : std::min(length - 1u, 5u);
        EXPECT_EQ(std::string(buffer, sizeof(buffer)), std::string("hello", kept) +
                                                           std::string(length - kept, '\0') +
                                                           std::string(10 - length, '#'));
    }
}

void sayCrashed()
{
    (void)!write(STDOUT_FILENO, "crashed\n", 8);
}

/// Crashes in a child process whose standard output is the pipe's end.
[[noreturn]] void crash(int output, bool isStopped)
{
    dup2(output, STDOUT_FILENO);
    // The crash is on purpose: no word of a sanitizer about it.
    if (freopen("/dev/null", "w", stderr) == nullptr)
        _exit(0);
    Minidump minidump;
    minidump.setCrashCallback(sayCrashed);
    minidump.start(Minidump::Reporting::NO_REPORT);
    minidump.start(Minidump::Reporting::MESSAGE_BOX);
    if (isStopped)
    {
        minidump.stop();
        minidump.stop();
    }
    raise(SIGSEGV);
    _exit(0);
}

/// What a child that crashes writes to its standard output.
std::string outputOfCrash(bool isStopped)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0)
        crash(ends[1], isStopped);
    close(ends[1]);
    std::string output;
    char buffer[256];
    for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof(buffer))) > 0;)
        output.append(buffer, size_t(count));
    close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the crash still ends the process";
    return output;
}

TEST(Minidumps, aCrashLeavesOneAndTellsWhere)
{
    if (!Minidump::isAvailable())
        GTEST_SKIP() << "The library was built without Breakpad";

    clearFolderVariables();
    std::string folder = "/tmp/mrvMinidumpXXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    setenv("TMPDIR", folder.c_str(), 1);

    EXPECT_EQ(outputOfCrash(true), "") << "stopped before the crash";
    EXPECT_TRUE(std::filesystem::is_empty(folder));

    const std::string output = outputOfCrash(false);
    std::vector<std::string> dumps;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        dumps.push_back(entry.path().string());
    ASSERT_EQ(dumps.size(), 1u);
    EXPECT_EQ(output, "Maravo minidump generated at " + dumps[0] + "\ncrashed\n");
    EXPECT_EQ(std::filesystem::path(dumps[0]).extension(), ".dmp");
    char magic[5] = {};
    std::ifstream(dumps[0], std::ios::binary).read(magic, 4);
    EXPECT_STREQ(magic, "MDMP");
    EXPECT_GT(std::filesystem::file_size(dumps[0]), 4096u);
    std::filesystem::remove_all(folder);
}

TEST(Minidumps, startSaysWhenTheyAreNotBuiltIn)
{
    std::string logged;
    allocateLog();
    {
        CallbackLogger logger;
        logger.registerCallback(
            [](const char* text, void* target) { *static_cast<std::string*>(target) += text; }, &logged);
        Minidump minidump;
        EXPECT_EQ(minidump.getCrashCallback(), nullptr);
        minidump.setCrashCallback(sayCrashed);
        EXPECT_EQ(minidump.getCrashCallback(), sayCrashed);
        minidump.stop();
        minidump.start(Minidump::Reporting::NO_REPORT);
        minidump.stop();
        minidump.stop();
    }
    deallocateLog();
    EXPECT_EQ(logged.rfind("Maravo [WARNING] - ", 0) == 0, !Minidump::isAvailable()) << logged;
}

} // namespace
} // namespace mrv
