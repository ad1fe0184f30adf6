// mrvCore/system/utils/mrvStackSpace.cpp
#include "mrvCore/system/utils/mrvStackSpace.h"

#include <cstddef>
#include <cstdint>
#include <pthread.h>

namespace mrv {

namespace {

constexpr uintptr_t reserve = 96 * 1024;

// The lowest address to which the thread's stack may grow.
uintptr_t findStackLimit(uintptr_t here)
{
    uintptr_t limit = here > 256 * 1024 ? here - 256 * 1024 : 0; // where the system tells nothing
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0)
    {
        void* lowest = nullptr;
        size_t size = 0;
        size_t guardSize = 0;
        if (pthread_attr_getstack(&attributes, &lowest, &size) == 0 &&
            pthread_attr_getguardsize(&attributes, &guardSize) == 0)
            limit = reinterpret_cast<uintptr_t>(lowest) + guardSize;
        pthread_attr_destroy(&attributes);
    }
    return limit;
}

} // namespace

bool hasStackSpace()
{
    const uintptr_t here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    thread_local const uintptr_t limit = findStackLimit(here);
    return here > limit && here - limit > reserve;
}

} // namespace mrv
