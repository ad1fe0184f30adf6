// mrvCore/utils/mrvHostFacts.cpp
#include "mrvCore/utils/mrvHostFacts.h"

#include "mrvCore/system/containers/mrvString.h"

#include <netdb.h>
#include <unistd.h>

#include <cstring>

namespace mrv {

void getHostName(MrvString& name)
{
    char buffer[256] = {};
    // A name that is cut comes without its end.
    if (gethostname(buffer, sizeof(buffer) - 1) == 0)
        name = buffer;
}

void getDomainName(MrvString& name)
{
    MrvString host;
    getHostName(host);
    const hostent* const entry = gethostbyname(host.c_str());
    const char* const dot = entry == nullptr ? nullptr : std::strchr(entry->h_name, '.');
    if (dot != nullptr)
        name = dot + 1;
}

int getNumCores()
{
    return static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
}

} // namespace mrv
