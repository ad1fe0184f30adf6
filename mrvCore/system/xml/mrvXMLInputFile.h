// mrvCore/system/xml/mrvXMLInputFile.h
// A file that is read whole.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

#include <sys/types.h>

namespace mrv {

/// A regular file, open for reading as long as the object lives. What is no regular file is refused, since
/// it may have no end (a device) or keep its reader waiting (a pipe).
class XMLInputFile
{
public:
    /// The file itself, whatever name it was opened by.
    struct Id
    {
        dev_t device;
        ino_t inode;
        bool operator==(const Id& other) const { return device == other.device && inode == other.inode; }
    };

    explicit XMLInputFile(const char* fileName);
    ~XMLInputFile();
    XMLInputFile(const XMLInputFile&) = delete;
    XMLInputFile& operator=(const XMLInputFile&) = delete;

    /// False if there is nothing of that name.
    bool isThere() const { return _isThere; }
    bool isOpen() const { return _file >= 0; }
    /// What keeps the file from being read, to be put behind its name; empty if nothing does.
    const MrvString& getFailure() const { return _failure; }
    const Id& getId() const { return _id; }
    size_t getSize() const { return _size; }

    /// The bytes that the file had when it was opened, and a zero behind them. Can be repeated.
    bool readAll(PODArray<char>& text);

private:
    /// Notes the failure of the last system call.
    bool fail(const char* what);

    MrvString _failure;
    Id _id{ 0, 0 };
    size_t _size = 0;
    int _file = -1;
    bool _isThere = false;
};

} // namespace mrv
