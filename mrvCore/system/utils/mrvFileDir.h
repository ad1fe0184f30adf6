// mrvCore/system/utils/mrvFileDir.h
// Operations on the file system.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"

#include <cstdint>
#include <cstdio>

namespace mrv {

/// Operations on files and directories in POSIX terms. No state; nothing raises or logs, the result says
/// what happened. Every path but those of open() and exist() goes through correctPath() first.
class MRV_CORE_API FileDir
{
public:
    /// As fopen: null on failure, closed by the caller.
    static FILE* open(const MrvString& path, const char* mode);
    /// True for whatever the name leads to, a directory included.
    static bool exist(const MrvString& path);
    /// Size in bytes; 0 for what cannot be opened for reading, and for a directory.
    static long size(const MrvString& path);
    /// False if nothing was there or it could not be removed.
    static bool remove(const MrvString& path);

    /// Makes one directory; true also if something of that name is there already.
    static bool createDirectoryPath(const char* path);
    /// Makes every directory on the path that does not exist, the last one included.
    static bool createDirectoryTree(const char* path);
    /// Writes the path up to and including its last slash into `out`. False, with nothing written, if there
    /// is no slash or the text does not fit into `size` bytes with its terminator.
    static bool getFileDirectoryPath(const MrvString& path, char* out, size_t size);

    /// Copies the content of a file; note the order, destination first. False for an empty source, for two
    /// names of one file, and for any failure, after which no half-written file is left.
    static bool copy(const MrvString& destination, const MrvString& source);
    /// True if both files can be read and hold the same bytes.
    static bool sameContent(const MrvString& a, const MrvString& b);

    /// @{
    /// The separator of paths.
    static char slashChr() { return '/'; }
    static const char* slashStr() { return "/"; }
    /// @}
    /// Expands environment variables written as %NAME%, then turns backslashes into slashes.
    static MrvString correctPath(const MrvString& path);

    /// Directory of the running program, without a trailing slash; empty if it cannot be found out.
    static MrvString getExecutableDirectory();
    /// Name of the running program, without its directory; empty if it cannot be found out.
    static MrvString getExecutableName();
    static MrvString getWorkingDirectory();
    static bool setWorkingDirectory(const MrvString& path);

    /// First existing file `name` in the directories of the variable PATH, as directory + "/" + name; empty
    /// if there is none. The variable is cut at ';' on every platform, never at ':': those who fill it for
    /// the product rely on that, so a colon-separated value is one directory.
    static MrvString findInSystemPath(const MrvString& name);
    /// Time of the last change to the inode (st_ctime, not st_mtime) in seconds: callers compare these values
    /// only with each other and rely on a renamed or re-permitted file counting as modified. False, with
    /// `time` untouched, if there is no such file.
    static bool getLastModificationTime(const MrvString& path, uint64_t& time);

    /// Appends the entries of a directory whose names match a shell pattern (fnmatch; '*' matches a leading
    /// dot too), as directory + "/" + name, sorted by bytes within each directory.
    ///
    /// `files` and `directories` select what is appended; with `recursive` all subdirectories are walked,
    /// whether or not they match, each behind its own entry. Links are followed, but not into a directory
    /// that is being walked. False if the directory cannot be read; what lies below it is skipped silently.
    static bool findFile(Array<MrvString>& out, const char* directory, const char* pattern, bool recursive,
                         bool files, bool directories);
};

} // namespace mrv
