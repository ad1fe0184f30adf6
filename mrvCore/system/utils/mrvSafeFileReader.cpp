// mrvCore/system/utils/mrvSafeFileReader.cpp
#include "mrvCore/system/utils/mrvSafeFileReader.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mrv {

SafeFileReader::SafeFileReader(const char* fileName)
    : _file(open(fileName, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
{
    struct stat status;
    if (_file >= 0 && fstat(_file, &status) == 0 && S_ISREG(status.st_mode))
        _left = static_cast<size_t>(status.st_size);
}

SafeFileReader::~SafeFileReader()
{
    if (_file >= 0)
        close(_file);
}

bool SafeFileReader::read(void* bytes, size_t count)
{
    char* next = static_cast<char*>(bytes);
    while (count != 0 && count <= _left)
    {
        const ssize_t taken = ::read(_file, next, count);
        if (taken > 0)
        {
            next += taken;
            count -= static_cast<size_t>(taken);
            _left -= static_cast<size_t>(taken);
        }
        else if (taken == 0 || errno != EINTR)
            _left = 0; // cut by another process in the meantime, or unreadable
    }
    return count == 0;
}

bool SafeFileReader::readRest(PODArray<char>& bytes)
{
    const size_t former = bytes.size();
    bytes.resize(former + _left);
    return read(bytes.begin() + former, _left);
}

} // namespace mrv
