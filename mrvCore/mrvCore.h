// mrvCore/mrvCore.h
// Start and stop of the library.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Starts the library, or counts one more user of a library that runs already. Call it before touching
/// anything else, and finishCore once for every call.
///
/// The first call brings up the log, the class registry, every persistent class and the services, and
/// needs no setting. Failures inside are fatal.
/// Threads: may be called from any thread; a whole start or stop is one critical section.
MRV_CORE_API void initCore();

/// Counts one user less; the last one stops the library and frees everything that the start made.
/// The argument has no effect: hosts pass either value.
///
/// A call without its initCore tears nothing down and leaves the count below zero, so that the next
/// initCore only evens it out.
MRV_CORE_API void finishCore(bool);

/// True while no user of the library is counted.
MRV_CORE_API bool isCoreFinished();

} // namespace mrv
