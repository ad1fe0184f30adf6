// mrvCore/system/utils/mrvFileDir.cpp
// Operations on the file system.
#include "mrvCore/system/utils/mrvFileDir.h"

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/utils/mrvCharOperators.h"
#include "mrvCore/system/utils/mrvEnvironment.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mrv {

namespace {

struct FileCloser
{
    void operator()(FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<FILE, FileCloser>;

/// Size of an open file by its end, with the position back at the start; 0 for a directory.
long sizeOf(FILE* file)
{
    struct stat status;
    if (fstat(fileno(file), &status) != 0 || S_ISDIR(status.st_mode) || std::fseek(file, 0, SEEK_END) != 0)
        return 0;
    const long size = std::ftell(file);
    std::rewind(file);
    return std::max(size, 0L);
}

bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool copyBlocks(FILE* destination, FILE* source)
{
    char block[1024];
    size_t count = 0;
    while ((count = std::fread(block, 1, sizeof(block), source)) != 0)
    {
        if (std::fwrite(block, 1, count, destination) != count)
            return false;
    }
    return std::ferror(source) == 0;
}

/// One mkdir on a path that is corrected already.
bool makeDirectory(const MrvString& path)
{
    return mkdir(path.c_str(), 0777) == 0 || errno == EEXIST;
}

/// The path of the running program.
MrvString executablePath()
{
    char buffer[1023];
    const ssize_t length = readlink("/proc/self/exe", buffer, sizeof(buffer));
    return length < 0 ? MrvString() : MrvString(buffer, static_cast<size_t>(length));
}

/// Names in a directory but "." and "..", sorted; false if it cannot be read.
bool readSortedNames(const MrvString& directory, std::vector<std::string>& names)
{
    DIR* stream = opendir(directory.c_str());
    if (stream == nullptr)
        return false;
    while (const dirent* entry = readdir(stream))
    {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    }
    closedir(stream);
    std::sort(names.begin(), names.end());
    return true;
}

/// One search through a tree of directories.
class FileSearch
{
public:
    FileSearch(Array<MrvString>& found, const char* pattern, bool recursive, bool files, bool directories)
        : _found(found)
        , _pattern(pattern)
        , _recursive(recursive)
        , _files(files)
        , _directories(directories)
    {}

    /// Walks a directory that is not being walked yet. The depth is bounded by the longest path that the
    /// system takes.
    bool walk(const MrvString& directory, const struct stat& status)
    {
        std::vector<std::string> names;
        if (!readSortedNames(directory, names))
            return false;
        _beingWalked.push_back(status);
        const MrvString prefix = endsWith(directory, "/") ? directory : directory + '/';
        for (const std::string& name : names)
            take(prefix + name.c_str(), name.c_str());
        _beingWalked.pop_back();
        return true;
    }

private:
    void take(const MrvString& path, const char* name)
    {
        struct stat status;
        if (stat(path.c_str(), &status) != 0)
            return;
        const bool isDirectory = S_ISDIR(status.st_mode);
        if ((isDirectory ? _directories : _files) && fnmatch(_pattern, name, 0) == 0)
            _found.push_back(path);
        if (isDirectory && _recursive && !isBeingWalked(status))
            walk(path, status);
    }

    bool isBeingWalked(const struct stat& directory) const
    {
        return std::any_of(_beingWalked.begin(), _beingWalked.end(),
                           [&](const struct stat& outer) { return isSameFile(outer, directory); });
    }

    Array<MrvString>& _found;
    const char* _pattern;
    bool _recursive;
    bool _files;
    bool _directories;
    PODArray<struct stat> _beingWalked; // from the start of the search down to the current directory
};

} // namespace

FILE* FileDir::open(const MrvString& path, const char* mode)
{
    return std::fopen(path.c_str(), mode);
}

bool FileDir::exist(const MrvString& path)
{
    return access(path.c_str(), F_OK) == 0;
}

long FileDir::size(const MrvString& path)
{
    const OpenFile file(open(correctPath(path), "rb"));
    return file == nullptr ? 0 : sizeOf(file.get());
}

bool FileDir::remove(const MrvString& path)
{
    const MrvString corrected = correctPath(path);
    return exist(corrected) && std::remove(corrected.c_str()) == 0;
}

bool FileDir::createDirectoryPath(const char* path)
{
    return makeDirectory(correctPath(path));
}

bool FileDir::createDirectoryTree(const char* path)
{
    const MrvString corrected = correctPath(path);
    size_t end = 0;
    do
    {
        end = std::min(corrected.find('/', end + 1), corrected.length());
        const MrvString prefix = corrected.substr(0, end);
        if (!exist(prefix) && !makeDirectory(prefix))
            return false;
    } while (end < corrected.length());
    return true;
}

bool FileDir::getFileDirectoryPath(const MrvString& path, char* out, size_t size)
{
    const MrvString corrected = correctPath(path);
    const size_t slash = corrected.rfind('/');
    if (slash == MrvString::npos || slash + 1 >= size)
        return false;
    strcpySafe(out, size, corrected.substr(0, slash + 1).c_str());
    return true;
}

bool FileDir::copy(const MrvString& destination, const MrvString& source)
{
    const MrvString to = correctPath(destination);
    const MrvString from = correctPath(source);
    const OpenFile input(open(from, "rb"));
    if (to == from || input == nullptr || sizeOf(input.get()) == 0)
        return false;

    struct stat inputStatus;
    struct stat outputStatus;
    if (fstat(fileno(input.get()), &inputStatus) != 0)
        return false;
    if (stat(to.c_str(), &outputStatus) == 0 && isSameFile(inputStatus, outputStatus))
        return false; // a second name of the source, which opening for writing would empty

    FILE* output = open(to, "wb");
    if (output == nullptr)
        return false;
    const bool isFile = fstat(fileno(output), &outputStatus) == 0 && S_ISREG(outputStatus.st_mode);
    const bool isWritten = copyBlocks(output, input.get());
    const bool isClosed = std::fclose(output) == 0;
    if (isWritten && isClosed)
        return true;
    if (isFile)
        std::remove(to.c_str());
    return false;
}

bool FileDir::sameContent(const MrvString& a, const MrvString& b)
{
    const OpenFile files[2] = { OpenFile(open(correctPath(a), "rb")), OpenFile(open(correctPath(b), "rb")) };
    if (files[0] == nullptr || files[1] == nullptr || sizeOf(files[0].get()) != sizeOf(files[1].get()))
        return false;

    char blocks[2][4096];
    size_t count = 0;
    do
    {
        count = std::fread(blocks[0], 1, sizeof(blocks[0]), files[0].get());
        const size_t otherCount = std::fread(blocks[1], 1, sizeof(blocks[1]), files[1].get());
        if (count != otherCount || std::memcmp(blocks[0], blocks[1], count) != 0)
            return false;
    } while (count != 0);
    return std::ferror(files[0].get()) == 0 && std::ferror(files[1].get()) == 0;
}

MrvString FileDir::correctPath(const MrvString& path)
{
    return replaceChar(replaceEnvVars(path, "%", "%"), '\\', '/');
}

MrvString FileDir::getExecutableDirectory()
{
    const MrvString path = executablePath();
    return path.substr(0, std::min(path.rfind('/'), path.length()));
}

MrvString FileDir::getExecutableName()
{
    const MrvString path = executablePath();
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

MrvString FileDir::getWorkingDirectory()
{
    char buffer[4096];
    return getcwd(buffer, sizeof(buffer)) == nullptr ? MrvString() : MrvString(buffer);
}

bool FileDir::setWorkingDirectory(const MrvString& path)
{
    return chdir(correctPath(path).c_str()) == 0;
}

MrvString FileDir::findInSystemPath(const MrvString& name)
{
    for (const MrvString& directory : stringToStringArray(getEnvironmentVariable("PATH"), ";"))
    {
        MrvString candidate = correctPath(directory + '/' + name);
        if (exist(candidate))
            return candidate;
    }
    return MrvString();
}

bool FileDir::getLastModificationTime(const MrvString& path, uint64_t& time)
{
    struct stat status;
    if (stat(correctPath(path).c_str(), &status) != 0)
        return false;
    time = static_cast<uint64_t>(status.st_ctime);
    return true;
}

bool FileDir::findFile(Array<MrvString>& out, const char* directory, const char* pattern, bool recursive,
                       bool files, bool directories)
{
    const MrvString top = correctPath(directory);
    struct stat status;
    return stat(top.c_str(), &status) == 0 &&
           FileSearch(out, pattern, recursive, files, directories).walk(top, status);
}

} // namespace mrv
