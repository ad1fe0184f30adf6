// mrvCore/system/memory/mrvMemoryStatIds.cpp
// Names of the memory-statistics ids.
#include "mrvCore/system/memory/mrvMemoryStatIds.h"

namespace mrv {

const char* getMemoryStatName(MemAllocStatId id)
{
    // There is no entry for MaravoDeep: tools that read the reports know the shifted names.
    static const char* const names[] = { "MaravoShared",
                                         "Simulation",
                                         "Cache",
                                         "PrevizAndRender",
                                         "Editors",
                                         "PhysXLib",
                                         "MotionGenericSpecific",
                                         "MaravoOrvel",
                                         "UserStats",
                                         "End" };
    return id < MemoryStatIds::End ? names[id] : "";
}

} // namespace mrv
