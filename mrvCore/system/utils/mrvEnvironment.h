// mrvCore/system/utils/mrvEnvironment.h
// The environment variables of the process.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

/// Value of an environment variable; empty for one that is unset, so the two cases look alike.
/// Threads: any, as long as nobody changes the environment at the same time.
MRV_CORE_API MrvString getEnvironmentVariable(const MrvString& name);

} // namespace mrv
