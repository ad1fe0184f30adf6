// mrvCore/system/utils/mrvSafeFileWriter.cpp
// Writing of files by a temporary and a rename.
#include "mrvCore/system/utils/mrvSafeFileWriter.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mrv {

namespace {

/// The folder of a path with its slash; empty for a bare name.
MrvString folderOf(const MrvString& path)
{
    return path.substr(0, path.rfind('/') + 1); // npos + 1 is 0
}

/// Follows symbolic links to the path behind them, which need not exist; empty where they lead in a circle.
MrvString followLinks(MrvString path)
{
    for (int links = 0; links < 40; ++links) // as many as the system itself follows
    {
        char link[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), link, sizeof(link));
        if (length < 0)
            return path;
        const MrvString next(link, static_cast<size_t>(length));
        path = next[0] == '/' ? next : folderOf(path) + next;
    }
    return MrvString();
}

/// A name in the folder that no other writer uses, whatever the length of the target's name.
MrvString temporaryName(const MrvString& folder)
{
    static std::atomic<unsigned int> counter{ 0 };
    MrvString name = folder + ".mrv-";
    name += static_cast<int>(getpid());
    name += '-';
    name += static_cast<int64_t>(counter++);
    return name + ".tmp";
}

} // namespace

SafeFileWriter::SafeFileWriter(const char* fileName)
{
    struct stat status;
    const bool isReplacing = stat(fileName, &status) == 0;
    if (isReplacing && !S_ISREG(status.st_mode))
    {
        _file = open(fileName, O_WRONLY | O_CLOEXEC); // fails for a directory
        return;
    }
    if (isReplacing && faccessat(AT_FDCWD, fileName, W_OK, AT_EACCESS) != 0)
        return;
    _target = followLinks(fileName);
    if (_target.empty())
        return;
    openTemporary(isReplacing);
    if (isOpen() && isReplacing)
    {
        // An owner that may not be given stays ours; the permissions come last, since this takes bits away.
        const bool isOwnerKept = fchown(_file, status.st_uid, status.st_gid) == 0;
        static_cast<void>(isOwnerKept);
        if (fchmod(_file, status.st_mode & 0777) != 0)
            _hasFailed = true;
    }
}

SafeFileWriter::~SafeFileWriter()
{
    discard();
}

void SafeFileWriter::openTemporary(bool isReplacing)
{
    do
    {
        _temporary = temporaryName(folderOf(_target));
        // Nobody reads a replaced file's content before its own permissions are set.
        _file = open(_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isReplacing ? 0600 : 0666);
    } while (_file < 0 && errno == EEXIST); // left by a process that died under our number
}

bool SafeFileWriter::write(const void* bytes, size_t count)
{
    const char* rest = static_cast<const char*>(bytes);
    _hasFailed = _hasFailed || !isOpen();
    while (!_hasFailed && count != 0)
    {
        const ssize_t written = ::write(_file, rest, count);
        if (written >= 0)
        {
            rest += written;
            count -= static_cast<size_t>(written);
        }
        else if (errno != EINTR)
            _hasFailed = true;
    }
    return !_hasFailed;
}

bool SafeFileWriter::commit()
{
    const bool isWhole = isOpen() && !_hasFailed;
    if (close() && isWhole && (_temporary.empty() || std::rename(_temporary.c_str(), _target.c_str()) == 0))
    {
        _temporary.clear();
        return true;
    }
    discard();
    return false;
}

bool SafeFileWriter::close()
{
    // Some file systems tell only here that a block could not be written. An interrupted close has closed.
    const bool isClosed = _file < 0 || ::close(_file) == 0 || errno == EINTR;
    _file = -1;
    return isClosed;
}

void SafeFileWriter::discard()
{
    close();
    if (!_temporary.empty())
        unlink(_temporary.c_str());
    _temporary.clear();
}

} // namespace mrv
