// mrvCore/animation/mrvLODLevelFlags.cpp
#include "mrvCore/animation/mrvLODLevelFlags.h"

#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

namespace {

constexpr uint32_t allLevels = 0xFFFFFFFF;
constexpr int levelCount = 10;

} // namespace

uint32_t getLODLevelFlagsFromSemiColumnSeparatedString(const MrvString& text)
{
    uint32_t flags = 0;
    for (const MrvString& token : stringToStringArray(toUpper(text), ";"))
    {
        if (token == "ALL" || token == "*" || token == "NONE")
            return allLevels;
        for (int level = 0; level < levelCount; ++level)
            if (token == MrvString("LOD") + level)
                flags += 1u << level;
    }
    return flags == 0 ? allLevels : flags;
}

void getStringFromLODLevel(const LODLevelFlags::Value& level, MrvString& result)
{
    result = "All";
    for (int i = 0; i < levelCount; ++i)
        if (level == 1u << i)
            result = MrvString("Lod") + i;
}

} // namespace mrv
