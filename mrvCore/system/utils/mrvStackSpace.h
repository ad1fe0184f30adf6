// mrvCore/system/utils/mrvStackSpace.h
// Guard of recursions whose depth is chosen by a file or by a graph of objects.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// True while the calling thread's stack has room for one more level of a recursion: at least 96 KiB, so
/// that what the level calls, sanitizers and messages included, finds room too. Cheap enough for each level.
MRV_CORE_API bool hasStackSpace();

} // namespace mrv
