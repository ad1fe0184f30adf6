// fuzz/mrvIdsFilterFuzz.cpp
// Any bytes as an expression: some filter, which answers for every number.
#include "mrvCore/mrvCore.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/utils/mrvIdsFilter.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool isStarted = (mrv::initCore(), true); // with a log, so that warnings are built
    static_cast<void>(isStarted);
    const mrv::IdsFilter filter(mrv::MrvString(reinterpret_cast<const char*>(data), size));
    const bool isEverything = filter(-1); // no expression but "*" reaches below 0
    for (const int64_t id : { INT64_MIN, int64_t(0), int64_t(1), int64_t(10), INT64_MAX })
        if (isEverything && !filter(id))
            std::abort();
    return 0;
}
