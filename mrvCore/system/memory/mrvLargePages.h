// mrvCore/system/memory/mrvLargePages.h
// Large pages for arrays that are read all over. Internal.
#pragma once

#include <cstddef>

namespace mrv::internal {

/// Asks the system to back a block of memory by large pages, before it is first written: random reading of
/// many megabytes waits for addresses as much as for data. A wish only, and nothing for small blocks.
void adviseLargePages(void* block, size_t bytes);

} // namespace mrv::internal
