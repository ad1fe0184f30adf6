// mrvCore/system/utils/mrvCharOperators.cpp
// Bounded forms of the C calls that write into plain character arrays.
#include "mrvCore/system/utils/mrvCharOperators.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>

#include <locale.h>

namespace mrv {

int sprintfSafe(char* buffer, size_t size, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = vsprintfSafe(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int vsprintfSafe(char* buffer, size_t size, const char* format, va_list arguments)
{
    if (size == 0)
        return 0;

    // vsnprintf takes the decimal point from the thread's locale, which belongs to the host.
    static const locale_t classicLocale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    const locale_t hostLocale = uselocale(classicLocale);
    const size_t writable = std::min(size, static_cast<size_t>(INT_MAX)); // its own limit
    const int length = std::vsnprintf(buffer, writable, format, arguments);
    uselocale(hostLocale);

    if (length < 0)
    {
        buffer[0] = '\0';
        return 0;
    }
    return std::min(length, static_cast<int>(writable - 1));
}

void strcpySafe(char* destination, size_t size, const char* source)
{
    if (size == 0)
        return;
    std::strncpy(destination, source, size);
    destination[size - 1] = '\0';
}

void strReplaceCharSafe(char* buffer, size_t size, char from, char to)
{
    std::replace(buffer, buffer + size, from, to);
}

} // namespace mrv
