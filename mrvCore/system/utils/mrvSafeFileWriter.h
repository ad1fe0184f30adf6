// mrvCore/system/utils/mrvSafeFileWriter.h
// Writes a file so that its name holds either the whole new content or the whole old one.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

/// Writes to a temporary file beside the target and renames it over the target at the end.
///
/// A new file gets the permissions that the process gives to new files, a replaced one keeps its own, and its
/// owner where that is allowed. A symbolic link is written through: the file that it points at is replaced.
/// A target that is there and may not be written is refused. A target that is no regular file, such as a
/// pipe or "/dev/null", is written directly.
/// Nothing is forced to the disk: the promise covers failures of this process, not of the machine.
/// Threads: objects are independent, also those for one target, of which the last commit stays.
class MRV_CORE_API SafeFileWriter
{
public:
    explicit SafeFileWriter(const char* fileName);
    /// Removes what was not committed.
    ~SafeFileWriter();
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    /// False if the target cannot be created; then write() and commit() fail as well.
    bool isOpen() const { return _file >= 0; }

    /// Appends the bytes. After a failure, such as a full disk, nothing is written any more and commit()
    /// fails. Not buffered: blocks of some kilobytes are best.
    bool write(const void* bytes, size_t count);

    /// Puts the new content in place; false, with the target as it was, if anything failed up to here.
    bool commit();

private:
    void openTemporary(bool isReplacing);
    bool close();
    void discard();

    MrvString _target;
    MrvString _temporary; // empty for a target that is written directly
    int _file = -1;
    bool _hasFailed = false;
};

} // namespace mrv
