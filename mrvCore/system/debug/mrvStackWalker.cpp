// mrvCore/system/debug/mrvStackWalker.cpp
// Prints the call stack on the way to a fatal end.
#include "mrvCore/system/debug/mrvStackWalker.h"

#include <cstdio>
#include <cstdlib>

#include <execinfo.h>

namespace mrv {

void StackWalker::ShowCallstack()
{
    constexpr int maxAddressCount = 100;
    void* addresses[maxAddressCount];
    const int addressCount = backtrace(addresses, maxAddressCount);
    std::fprintf(stderr, "backtrace() returned %d addresses\n", addressCount);

    char** symbols = backtrace_symbols(addresses, addressCount);
    if (symbols == nullptr)
    {
        std::perror("backtrace_symbols");
        std::exit(1);
    }
    for (int i = 0; i < addressCount; ++i)
        std::fprintf(stderr, "%s\n", symbols[i]);
    std::free(symbols);
}

} // namespace mrv
