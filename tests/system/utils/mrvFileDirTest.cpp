// tests/system/utils/mrvFileDirTest.cpp
#include "mrvCore/system/utils/mrvFileDir.h"

#include "mrvCore/system/utils/mrvStringOperators.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace mrv {
namespace {

namespace fs = std::filesystem;

/// Each test works in a directory of its own, given as `_top` without a trailing slash.
class FileDirTest : public testing::Test
{
protected:
    FileDirTest()
    {
        std::string folder = (fs::temp_directory_path() / "mrvFileDirXXXXXX").string();
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        _top = folder;
    }
    ~FileDirTest() override { fs::remove_all(_top.c_str()); }

    MrvString path(const char* name) const { return _top + '/' + name; }
    MrvString write(const char* name, const std::string& content) const
    {
        std::ofstream(path(name).c_str(), std::ios::binary) << content;
        return path(name);
    }
    static std::string read(const MrvString& file)
    {
        std::ifstream stream(file.c_str(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }
    /// What findFile gives, without the directory in front, in one line.
    MrvString find(const char* pattern, bool recursive, bool files, bool directories) const
    {
        Array<MrvString> found;
        EXPECT_TRUE(FileDir::findFile(found, _top.c_str(), pattern, recursive, files, directories));
        return replaceString(stringArrayToString(found, " "), _top + '/', "");
    }

    MrvString _top;
};

TEST_F(FileDirTest, copiesEveryByteWhateverTheSizeIs)
{
    for (const size_t size : { 1, 1023, 1024, 1025, 70000 })
    {
        std::string content(size, '\0');
        for (size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 7 + i / 256);
        const MrvString source = write("source", content);
        const MrvString target = write("target", "longer than the source was");
        EXPECT_EQ(FileDir::size(source), long(size));
        EXPECT_TRUE(FileDir::copy(target, source));
        EXPECT_EQ(read(target), content);
        EXPECT_TRUE(FileDir::sameContent(source, target));
        content.back() = 'x';
        EXPECT_FALSE(FileDir::sameContent(source, write("target", content)));
    }
}

TEST_F(FileDirTest, aRefusedOrFailedCopyDestroysNothingAndLeavesNothing)
{
    const MrvString file = write("file", "content");
    fs::create_hard_link(file.c_str(), path("link").c_str());
    fs::create_directory(path("directory").c_str());

    EXPECT_FALSE(FileDir::copy(file, file));
    EXPECT_FALSE(FileDir::copy(path("link"), file)) << "a second name of the same file";
    EXPECT_FALSE(FileDir::copy(file, write("empty", "")));
    EXPECT_FALSE(FileDir::copy(file, path("missing")));
    EXPECT_FALSE(FileDir::copy(file, path("directory")));
    EXPECT_EQ(read(file), "content");
    EXPECT_FALSE(FileDir::copy(path("new"), path("missing")));
    EXPECT_FALSE(FileDir::exist(path("new")));
    EXPECT_FALSE(FileDir::copy(path("none/new"), file));

    if (FileDir::exist("/dev/full"))
    {
        fs::create_symlink("/dev/full", path("full").c_str());
        EXPECT_FALSE(FileDir::copy(path("full"), file)) << "the last write shows only in the close";
        EXPECT_TRUE(FileDir::exist(path("full"))) << "is no half file";
    }
}

TEST_F(FileDirTest, sizesBeyondFourGigabytesAreWhole)
{
    const MrvString file = write("sparse", "x");
    const long size = 5L << 30;
    fs::resize_file(file.c_str(), size_t(size));
    EXPECT_EQ(FileDir::size(file), size);
    EXPECT_EQ(FileDir::size(_top), 0);
    EXPECT_EQ(FileDir::size(path("missing")), 0);
}

TEST_F(FileDirTest, treesAreMadeUpToTheFirstObstacle)
{
    EXPECT_FALSE(FileDir::createDirectoryPath(path("a/b").c_str()));
    for (const char* tree : { "a/b/c", "a/b/c", "a/d/", "a//e" })
    {
        EXPECT_TRUE(FileDir::createDirectoryTree(path(tree).c_str())) << tree;
        EXPECT_TRUE(fs::is_directory(path(tree).c_str())) << tree;
    }
    EXPECT_TRUE(FileDir::createDirectoryPath(path("a").c_str()));
    write("file", "");
    EXPECT_FALSE(FileDir::createDirectoryTree(path("file/a").c_str()));
    EXPECT_FALSE(FileDir::createDirectoryTree(""));
}

TEST_F(FileDirTest, directoryOfAFileEndsWithItsSlashAndMustFit)
{
    char out[8];
    EXPECT_TRUE(FileDir::getFileDirectoryPath("/a/bcd/efg", out, sizeof(out)));
    EXPECT_STREQ(out, "/a/bcd/");
    EXPECT_FALSE(FileDir::getFileDirectoryPath("/a/bcde/f", out, sizeof(out)));
    EXPECT_FALSE(FileDir::getFileDirectoryPath("abc", out, sizeof(out)));
    EXPECT_STREQ(out, "/a/bcd/");
    EXPECT_TRUE(FileDir::getFileDirectoryPath("/", out, 2));
    EXPECT_STREQ(out, "/");
}

TEST_F(FileDirTest, searchMatchesNamesAndWalksLinksOnlyOnce)
{
    for (const char* folder : { "b", "b/c.x", "b/c.x/d" })
        fs::create_directory(path(folder).c_str());
    for (const char* file : { "z.x", "a.x", "a.y", "b/e.x", "b/c.x/d/f.x", "%MRV_UNSET%.x" })
        write(file, "");
    fs::create_directory_symlink(_top.c_str(), path("b/c.x/up").c_str());
    fs::create_directory_symlink("loop", path("loop").c_str());

    EXPECT_EQ(find("*.x", false, true, false), "%MRV_UNSET%.x a.x z.x");
    EXPECT_EQ(find("*.x", true, true, false), "%MRV_UNSET%.x a.x b/c.x/d/f.x b/e.x z.x");
    EXPECT_EQ(find("*.x", true, false, true), "b/c.x");
    EXPECT_EQ(find("[bu]*", true, true, true), "b b/c.x/up");
    EXPECT_EQ(find("?", true, true, true), "b b/c.x/d");

    Array<MrvString> found(1, "kept");
    EXPECT_FALSE(FileDir::findFile(found, path("missing").c_str(), "*", true, true, true));
    EXPECT_TRUE(FileDir::findFile(found, path("b/").c_str(), "e*", false, true, true));
    EXPECT_EQ(stringArrayToString(found, " "), "kept " + path("b/e.x"));
}

TEST_F(FileDirTest, everyPathButThoseOfOpenAndExistIsCorrected)
{
    setenv("MRV_TEST_TOP", _top.c_str(), 1);
    const MrvString odd("%MRV_TEST_TOP%\\file%MRV_UNSET%");
    const MrvString file = write("file", "12345");

    EXPECT_EQ(FileDir::correctPath(odd), file);
    EXPECT_EQ(FileDir::size(odd), 5);
    EXPECT_TRUE(FileDir::copy("%MRV_TEST_TOP%\\copy", odd));
    EXPECT_TRUE(FileDir::sameContent(path("copy"), odd));
    uint64_t time = 0;
    EXPECT_TRUE(FileDir::getLastModificationTime(odd, time));
    EXPECT_FALSE(FileDir::exist(odd));
    EXPECT_EQ(FileDir::open(odd, "rb"), nullptr);
    EXPECT_TRUE(FileDir::remove(odd));
    EXPECT_FALSE(FileDir::remove(odd));
    unsetenv("MRV_TEST_TOP");
}

TEST_F(FileDirTest, modificationTimeIsThatOfTheInode)
{
    const MrvString file = write("file", "");
    fs::last_write_time(file.c_str(), fs::file_time_type::clock::now() - std::chrono::hours(1000));
    uint64_t time = 0;
    ASSERT_TRUE(FileDir::getLastModificationTime(file, time));
    EXPECT_NEAR(double(time), double(std::time(nullptr)), 60.0);
    EXPECT_FALSE(FileDir::getLastModificationTime(path("missing"), time));
}

TEST_F(FileDirTest, systemPathIsCutAtSemicolonsOnly)
{
    const MrvString file = write("tool", "");
    const MrvString former(std::getenv("PATH"));
    setenv("PATH", ("/none;" + _top).c_str(), 1);
    EXPECT_EQ(FileDir::findInSystemPath("tool"), file);
    setenv("PATH", ("/none:" + _top).c_str(), 1);
    EXPECT_EQ(FileDir::findInSystemPath("tool"), "");
    setenv("PATH", former.c_str(), 1);
}

TEST_F(FileDirTest, knowsWhereTheProgramIsAndWorks)
{
    const fs::path program = fs::read_symlink("/proc/self/exe");
    EXPECT_EQ(FileDir::getExecutableDirectory(), program.parent_path().c_str());
    EXPECT_EQ(FileDir::getExecutableName(), program.filename().c_str());

    const MrvString former = FileDir::getWorkingDirectory();
    EXPECT_TRUE(FileDir::setWorkingDirectory(_top));
    EXPECT_EQ(FileDir::getWorkingDirectory(), fs::canonical(_top.c_str()).c_str());
    EXPECT_FALSE(FileDir::setWorkingDirectory(path("missing")));
    EXPECT_TRUE(FileDir::setWorkingDirectory(former));
}

} // namespace
} // namespace mrv
