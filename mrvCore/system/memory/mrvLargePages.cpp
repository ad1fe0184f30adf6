// mrvCore/system/memory/mrvLargePages.cpp
#include "mrvCore/system/memory/mrvLargePages.h"

#include <cstdint>

#include <sys/mman.h>

namespace mrv::internal {

void adviseLargePages(void* block, size_t bytes)
{
    constexpr uintptr_t pageSize = uintptr_t(1) << 21;
    const uintptr_t begin = (reinterpret_cast<uintptr_t>(block) + pageSize - 1) & ~(pageSize - 1);
    const uintptr_t end = (reinterpret_cast<uintptr_t>(block) + bytes) & ~(pageSize - 1);
    if (block != nullptr && begin < end)
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

} // namespace mrv::internal
