// mrvCore/system/utils/mrvEnvironment.cpp
// The environment variables of the process.
#include "mrvCore/system/utils/mrvEnvironment.h"

#include <cstdlib>

namespace mrv {

MrvString getEnvironmentVariable(const MrvString& name)
{
    const char* value = std::getenv(name.c_str());
    return value == nullptr ? MrvString() : MrvString(value);
}

} // namespace mrv
