// mrvCore/system/xml/mrvXMLInputFile.cpp
// A file that is read whole.
#include "mrvCore/system/xml/mrvXMLInputFile.h"

#include "mrvCore/system/utils/mrvFileDir.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mrv {

XMLInputFile::XMLInputFile(const char* fileName) : _isThere(fileName != nullptr && FileDir::exist(fileName))
{
    if (!_isThere)
    {
        _failure = "does not exist";
        return;
    }
    // Not waiting for the other end of a pipe.
    _file = open(fileName, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat status;
    if (_file < 0 || fstat(_file, &status) != 0)
        fail("cannot be opened");
    else if (!S_ISREG(status.st_mode))
        _failure = S_ISDIR(status.st_mode) ? "is a directory" : "is not a file";
    else
    {
        _id = { status.st_dev, status.st_ino };
        _size = static_cast<size_t>(status.st_size);
    }
}

XMLInputFile::~XMLInputFile()
{
    if (_file >= 0)
        close(_file);
}

bool XMLInputFile::readAll(PODArray<char>& text)
{
    if (!_failure.empty())
        return false;
    text.set_capacity(_size + 1);
    text.resize(_size + 1);
    size_t place = 0;
    while (place < _size)
    {
        const ssize_t count = pread(_file, text.begin() + place, _size - place, static_cast<off_t>(place));
        if (count == 0)
            break; // cut by another process in the meantime
        if (count > 0)
            place += static_cast<size_t>(count);
        else if (errno != EINTR)
        {
            text.clear();
            return fail("cannot be read");
        }
    }
    text.resize(place + 1);
    text[place] = '\0';
    return true;
}

bool XMLInputFile::fail(const char* what)
{
    char buffer[128];
    _failure = MrvString(what) + ": " + strerror_r(errno, buffer, sizeof(buffer));
    return false;
}

} // namespace mrv
