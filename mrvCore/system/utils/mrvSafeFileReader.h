// mrvCore/system/utils/mrvSafeFileReader.h
// Reads a file from front to back, whatever stands behind its name.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstddef>

namespace mrv {

/// A file open for reading. Only a regular file has bytes, those that it had when it was opened: a directory,
/// a device, which may have no end, and a pipe, which may keep its reader waiting, open and are empty.
/// Threads: objects are independent.
class MRV_CORE_API SafeFileReader
{
public:
    explicit SafeFileReader(const char* fileName);
    ~SafeFileReader();
    SafeFileReader(const SafeFileReader&) = delete;
    SafeFileReader& operator=(const SafeFileReader&) = delete;

    bool isOpen() const { return _file >= 0; }

    /// The next bytes; false, with `bytes` undefined, where there are fewer or they cannot be read.
    bool read(void* bytes, size_t count);
    /// Appends all that is left; false where it cannot be read.
    bool readRest(PODArray<char>& bytes);

private:
    int _file = -1;
    size_t _left = 0;
};

} // namespace mrv
