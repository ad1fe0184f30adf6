// mrvCore/utils/mrvHostFacts.h
// The machine that the process runs on. Its environment variables: mrvCore/system/utils/mrvEnvironment.h.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class MrvString;

/// At most 255 characters; the text stays as it is if the system does not tell.
MRV_CORE_API void getHostName(MrvString& name);

/// What follows the first "." of the host's official name; the text stays as it is where there is none.
/// Asks the name service, which may take seconds. Threads: one at a time, the C library keeps one answer.
MRV_CORE_API void getDomainName(MrvString& name);

/// Number of processors that are online.
MRV_CORE_API int getNumCores();

} // namespace mrv
