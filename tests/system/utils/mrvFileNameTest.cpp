// tests/system/utils/mrvFileNameTest.cpp
#include "mrvCore/system/utils/mrvFileName.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace mrv {
namespace {

struct PathCase
{
    const char* path;
    const char* folder;
    const char* name;
    const char* extension;
    const char* fullname;
    bool isAbsolute;
};

const PathCase pathCases[] = {
    { "/a/b/c.txt", "/a/b", "c", "txt", "/a/b/c.txt", true },
    { "a/c.tar.gz", "a", "c.tar", "gz", "a/c.tar.gz", false },
    { "c.txt", ".", "c", "txt", "./c.txt", false },
    { "/c.txt", ".", "/c", "txt", ".//c.txt", true },
    { "a.d/c", "a.d", "c", "", "a.d/c", false },
    { "a/.hidden", "a", ".hidden", "", "a/.hidden", false },
    { "a/.x.y", "a", ".x", "y", "a/.x.y", false },
    { "a/c.", "a", "c", "", "a/c", false },
    { "/a/", "/a", "", "", "/a/", true },
    { "", ".", "", "", "./", false },
    { "C:\\d\\c.txt", "C:/d", "c", "txt", "C:/d/c.txt", false },
    { "%MRV_TEST_FOLDER%/c.txt", "/v/w", "c", "txt", "/v/w/c.txt", true },
};

TEST(FileName, takesPathsApartAndPutsThemTogether)
{
    setenv("MRV_TEST_FOLDER", "/v\\w", 1);
    FileName again;
    for (const PathCase& row : pathCases)
    {
        SCOPED_TRACE(row.path);
        const MrvString folder(row.folder);
        const FileName file(row.path);
        EXPECT_EQ(file.pathname(), folder);
        EXPECT_EQ(file.pathname(true), folder + '/');
        EXPECT_EQ(file.filenameNoExt(), row.name);
        EXPECT_EQ(file.extension(), row.extension);
        EXPECT_EQ(file.fullname(), row.fullname);
        EXPECT_EQ(file.fullnameNoExt(), folder + '/' + row.name);
        EXPECT_EQ(file.filename("x"), MrvString(row.name) + ".x");
        EXPECT_EQ(file.fullname(""), folder + '/' + row.name + '.');
        EXPECT_EQ(file.isAbsolute(), row.isAbsolute);
        EXPECT_EQ(file.hasExtension(), *row.extension != '\0');

        again = row.path; // nothing of the former path may be left
        EXPECT_EQ(again.fullname(), row.fullname);
    }
    unsetenv("MRV_TEST_FOLDER");
}

} // namespace
} // namespace mrv
