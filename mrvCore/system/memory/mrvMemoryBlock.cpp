// mrvCore/system/memory/mrvMemoryBlock.cpp
// Allocation of container blocks.
#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include "mrvCore/system/memory/mrvShortBytes.h"

#include <cstdio>

namespace mrv::internal {

char sharedTerminator[1] = { '\0' };

namespace {

size_t byteCount(size_t count, size_t elementSize)
{
    ptrdiff_t bytes = 0; // no larger block exists
    if (__builtin_mul_overflow(count, elementSize, &bytes))
    {
        std::fprintf(stderr, "A container of %zu elements of %zu bytes is too large\n", count, elementSize);
        std::abort();
    }
    return static_cast<size_t>(bytes);
}

void* checked(void* block, size_t bytes)
{
    if (block == nullptr && bytes != 0)
    {
        std::fprintf(stderr, "Out of memory: no block of %zu bytes\n", bytes);
        std::abort();
    }
    return block;
}

} // namespace

void containerCheckFailed(const char* condition, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: container used against its contract: %s\n", file, line, condition);
    std::abort();
}

void* allocateBlock(size_t count, size_t elementSize)
{
    const size_t bytes = byteCount(count, elementSize);
    return checked(std::malloc(bytes), bytes);
}

void* reallocateBlock(void* block, size_t count, size_t elementSize)
{
    const size_t bytes = byteCount(count, elementSize);
    return checked(std::realloc(block, bytes), bytes);
}

char* makeTextBlock(const char* text, size_t count)
{
    char* const block = static_cast<char*>(allocateBlock(saturatedSum(count, 1), 1));
    copyShortBytes(block, text, count);
    block[count] = '\0';
    return block;
}

} // namespace mrv::internal
