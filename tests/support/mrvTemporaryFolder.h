// tests/support/mrvTemporaryFolder.h
// A folder of its own for a test that works with files.
#pragma once

#include "mrvCore/system/containers/mrvString.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <stdlib.h>

namespace mrv {

/// Made empty, and removed with all that is in it.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string folder = (std::filesystem::temp_directory_path() / "mrvTestXXXXXX").string();
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        _path = folder;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(_path.c_str(), ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const MrvString& path() const { return _path; }
    MrvString path(const char* name) const { return _path + '/' + name; }

    /// Writes a file and gives its path.
    MrvString write(const char* name, const std::string& content) const
    {
        std::ofstream(path(name).c_str(), std::ios::binary) << content;
        return path(name);
    }
    std::string read(const char* name) const
    {
        std::ifstream stream(path(name).c_str(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }
    /// How many entries there are, to see that nothing was left behind.
    size_t countEntries() const
    {
        const std::filesystem::directory_iterator entries(_path.c_str());
        return static_cast<size_t>(std::distance(begin(entries), end(entries)));
    }

private:
    MrvString _path;
};

} // namespace mrv
