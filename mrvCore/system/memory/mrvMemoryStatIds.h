// mrvCore/system/memory/mrvMemoryStatIds.h
// The memory-statistics id that every container carries.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

/// The parts of the product that memory is accounted to.
struct MemoryStatIds
{
    enum Value : uint32_t {
        MaravoShared,
        Simulation,
        Cache,
        PrevizAndRender,
        Editors,
        PhysXLib,
        MotionGenericSpecific,
        MaravoOrvel,
        MaravoDeep,
        UserStats,
        End
    };
};

/// Id stored in `_memAllocStatId` of a container. It is carried and copied; it selects no allocator and
/// nothing is counted by it.
using MemAllocStatId = MemoryStatIds::Value;

/// Name of an id for reports, a static text; an empty text from MemoryStatIds::End on. The names from
/// MaravoDeep on are those of the next value: reports made so far are read by them.
MRV_CORE_API const char* getMemoryStatName(MemAllocStatId id);

/// Id of an Array that was made without one.
constexpr MemAllocStatId getDefaultArrayMemoryStatId()
{
    return MemoryStatIds::MaravoShared;
}

/// Id of a PODArray that was made without one.
constexpr MemAllocStatId getDefaultPODArrayMemoryStatId()
{
    return MemoryStatIds::MaravoShared;
}

} // namespace mrv
