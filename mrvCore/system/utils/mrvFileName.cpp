// mrvCore/system/utils/mrvFileName.cpp
// A path taken apart into folder, name and extension.
#include "mrvCore/system/utils/mrvFileName.h"

#include "mrvCore/system/utils/mrvFileDir.h"

namespace mrv {

namespace {

/// Splits a text at the last `separator`; one that is absent or comes first leaves `front` alone and false.
bool cutAtLast(const MrvString& text, char separator, MrvString& front, MrvString& back)
{
    const size_t position = text.rfind(separator);
    if (position == MrvString::npos || position == 0)
        return false;
    front = text.substr(0, position);
    back = text.substr(position + 1);
    return true;
}

} // namespace

void FileName::set(const MrvString& path)
{
    const MrvString corrected = FileDir::correctPath(path);
    MrvString remainder;
    if (!cutAtLast(corrected, '/', m_filepath, remainder))
    {
        m_filepath = ".";
        remainder = corrected;
    }
    if (!cutAtLast(remainder, '.', m_filename, m_extension))
    {
        m_filename = remainder;
        m_extension.clear();
    }
}

void FileName::clear()
{
    m_filepath.clear();
    m_filename.clear();
    m_extension.clear();
}

} // namespace mrv
