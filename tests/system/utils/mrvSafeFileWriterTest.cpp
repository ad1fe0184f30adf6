// tests/system/utils/mrvSafeFileWriterTest.cpp
// Saving that replaces a file wholly or not at all.
#include "mrvCore/system/utils/mrvSafeFileWriter.h"

#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mrv {
namespace {

namespace fs = std::filesystem;

class SafeFileWriterTest : public testing::Test
{
protected:
    static bool save(const MrvString& path, const std::string& content)
    {
        SafeFileWriter writer(path.c_str());
        return writer.write(content.data(), content.size()) && writer.commit();
    }
    static mode_t modeOf(const MrvString& path)
    {
        struct stat status = {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    const TemporaryFolder _folder;
};

TEST_F(SafeFileWriterTest, replacesAFileOnlyByCommit)
{
    const MrvString file = _folder.write("file", "old");
    {
        SafeFileWriter writer(file.c_str());
        ASSERT_TRUE(writer.isOpen());
        EXPECT_TRUE(writer.write("new", 3));
        EXPECT_TRUE(writer.write(" and longer", 11));
        EXPECT_EQ(_folder.read("file"), "old");
        EXPECT_EQ(_folder.countEntries(), 2u) << "the temporary lies beside the target";
        EXPECT_TRUE(writer.commit());
        EXPECT_FALSE(writer.write("x", 1)) << "the file is closed";
    }
    EXPECT_EQ(_folder.read("file"), "new and longer");
    {
        SafeFileWriter abandoned(file.c_str());
        EXPECT_TRUE(abandoned.write("lost", 4));
    }
    EXPECT_EQ(_folder.read("file"), "new and longer");
    EXPECT_EQ(_folder.countEntries(), 1u);
}

TEST_F(SafeFileWriterTest, keepsThePermissionsAndTheOwnerOfTheTarget)
{
    const mode_t mask = umask(027);
    EXPECT_TRUE(save(_folder.path("new"), "x"));
    umask(mask);
    EXPECT_EQ(modeOf(_folder.path("new")), 0640u);

    const MrvString file = _folder.write("file", "old");
    chmod(file.c_str(), 0604);
    const bool isRoot = geteuid() == 0 && chown(file.c_str(), 4711, 4712) == 0;
    EXPECT_TRUE(save(file, "new"));
    EXPECT_EQ(modeOf(file), 0604u);
    struct stat status = {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, isRoot ? 4711 : geteuid());
}

TEST_F(SafeFileWriterTest, writesThroughSymbolicLinks)
{
    fs::create_directory(_folder.path("sub").c_str());
    _folder.write("sub/file", "old");
    fs::create_symlink("file", _folder.path("sub/near").c_str());
    fs::create_symlink("sub/near", _folder.path("far").c_str());
    EXPECT_TRUE(save(_folder.path("far"), "new"));
    EXPECT_EQ(_folder.read("sub/file"), "new");
    EXPECT_TRUE(fs::is_symlink(_folder.path("far").c_str()));

    fs::create_symlink(_folder.path("later").c_str(), _folder.path("dangling").c_str());
    EXPECT_TRUE(save(_folder.path("dangling"), "made"));
    EXPECT_EQ(_folder.read("later"), "made");

    fs::create_symlink("circle", _folder.path("circle").c_str());
    EXPECT_FALSE(save(_folder.path("circle"), "x"));
}

TEST_F(SafeFileWriterTest, writesNoRegularFilesDirectly)
{
    EXPECT_TRUE(save("/dev/null", "x"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_FALSE(save("/dev/full", "x"));
}

TEST_F(SafeFileWriterTest, refusesWhatCannotBeCreated)
{
    fs::create_directory(_folder.path("directory").c_str());
    for (const char* name : { "directory", "directory/", "none/file", "" })
        EXPECT_FALSE(SafeFileWriter(_folder.path(name).c_str()).isOpen()) << name;
    EXPECT_FALSE(SafeFileWriter("").isOpen());

    const MrvString file = _folder.write("readOnly", "old");
    chmod(file.c_str(), 0444);
    EXPECT_EQ(save(file, "new"), geteuid() == 0) << "only root may write it";

    SafeFileWriter never(_folder.path("none/file").c_str());
    EXPECT_FALSE(never.write("x", 1));
    EXPECT_FALSE(never.commit());
}

TEST_F(SafeFileWriterTest, aFullDiskLeavesTheOldFileWhole)
{
    const MrvString file = _folder.write("file", "old");
    const auto saveWithLimit = [&](rlim_t bytes, size_t size) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = { bytes, bytes };
        setrlimit(RLIMIT_FSIZE, &limit);
        std::_Exit(save(file, std::string(size, 'x')) ? 1 : 0);
    };
    EXPECT_EXIT(saveWithLimit(100000, 100001), testing::ExitedWithCode(0), "");
    EXPECT_EQ(_folder.read("file"), "old");
    EXPECT_EQ(_folder.countEntries(), 1u);
    EXPECT_EXIT(saveWithLimit(100000, 100000), testing::ExitedWithCode(1), "");
    EXPECT_EQ(_folder.read("file").size(), 100000u);
}

} // namespace
} // namespace mrv
