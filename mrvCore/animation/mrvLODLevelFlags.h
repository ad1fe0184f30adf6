// mrvCore/animation/mrvLODLevelFlags.h
// Levels of detail as a bit mask.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

class MrvString;

/// One bit per level. A mask of assets with all bits set stands for every level.
struct LODLevelFlags
{
    enum Value : uint32_t {
        ALL = 0,
        LOD0 = 1,
        LOD1 = 2,
        LOD2 = 4,
        LOD3 = 8,
        LOD4 = 16,
        LOD5 = 32,
        LOD6 = 64,
        LOD7 = 128,
        LOD8 = 256,
        LOD9 = 512
    };
};

/// The mask of a list such as "lod0;lod3", in any case.
///
/// The words "all", "*" and "none" give all bits, "none" too, and so does a list without a level. Unknown
/// words are passed over. The levels are added up: one that is given twice counts as the next one.
MRV_CORE_API uint32_t getLODLevelFlagsFromSemiColumnSeparatedString(const MrvString& text);

/// "Lod0" to "Lod9"; "All" for what is not one level.
MRV_CORE_API void getStringFromLODLevel(const LODLevelFlags::Value& level, MrvString& result);

} // namespace mrv
