// mrvCore/system/inspection/mrvUuid.cpp
#include "mrvCore/system/inspection/mrvUuid.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cstdio>
#include <cstring>
#include <iomanip>
#include <locale>
#include <sstream>
#include <sys/random.h>

namespace mrv {

Uuid::Uuid(const char* text)
{
    unsigned int bytes[8] = {};
    std::sscanf(text, "%8X-%4hX-%4hX-%02x%02x-%02x%02x%02x%02x%02x%02x", &_data0, &_data1, &_data2, &bytes[0],
                &bytes[1], &bytes[2], &bytes[3], &bytes[4], &bytes[5], &bytes[6], &bytes[7]);
    for (int i = 0; i < 8; ++i)
        _data3[i] = static_cast<unsigned char>(bytes[i]);
}

bool Uuid::operator==(const Uuid& rhs) const
{
    return std::memcmp(this, &rhs, sizeof(Uuid)) == 0;
}

bool Uuid::operator<(const Uuid& rhs) const
{
    return std::memcmp(this, &rhs, sizeof(Uuid)) < 0;
}

Uuid Uuid::operator+(const Uuid& rhs) const
{
    Uuid sum;
    sum._data0 = _data0 + 2u * rhs._data0;
    sum._data1 = static_cast<uint16_t>(_data1 + 2u * rhs._data1);
    sum._data2 = static_cast<uint16_t>(_data2 + 2u * rhs._data2);
    for (int i = 0; i < 8; ++i)
        sum._data3[i] = static_cast<unsigned char>(rhs._data3[i] + 2u * _data3[i]);
    return sum;
}

Uuid Uuid::operator+(unsigned int number) const
{
    Uuid sum(*this);
    sum._data0 += number;
    return sum;
}

void Uuid::createUuid()
{
    Uuid fresh;
    if (getrandom(&fresh, sizeof(fresh), 0) != static_cast<ssize_t>(sizeof(fresh)))
    {
        *this = Uuid();
        return;
    }
    fresh._data2 = static_cast<uint16_t>((fresh._data2 & 0x0FFFu) | 0x4000u);
    fresh._data3[0] = static_cast<unsigned char>((fresh._data3[0] & 0x3Fu) | 0x80u);
    *this = fresh;
}

bool Uuid::isNull() const
{
    return *this == Uuid();
}

MrvString Uuid::getString() const
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << std::hex << std::setfill('0') << std::setw(8) << _data0 << '-';
    MRV_ASSERT(static_cast<uint32_t>(stream.str().size()) == 9, "size %lu uuid %s data0 %lu",
               static_cast<unsigned long>(stream.str().size()), stream.str().c_str(),
               static_cast<unsigned long>(_data0));
    stream << std::setw(4) << _data1 << '-' << std::setw(4) << _data2 << '-';
    for (int i = 0; i < 8; ++i)
        stream << (i == 2 ? "-" : "") << std::setw(2) << static_cast<unsigned int>(_data3[i]);
    MrvString text(stream.str().c_str());
    text.toLowerSelf();
    return text;
}

} // namespace mrv
