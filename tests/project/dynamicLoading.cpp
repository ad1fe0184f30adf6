// tests/project/dynamicLoading.cpp
// A host that loads the library at run time, starts it, stops it and unloads it, several times.
//   dynamicLoading LIBRARY
#include <cstdio>
#include <dlfcn.h>

namespace {

// Names of mrv::initCore(), mrv::finishCore(bool) and mrv::isCoreFinished() in the C++ ABI.
constexpr const char* initName = "_ZN3mrv8initCoreEv";
constexpr const char* finishName = "_ZN3mrv10finishCoreEb";
constexpr const char* isFinishedName = "_ZN3mrv14isCoreFinishedEv";

bool runOnce(const char* path)
{
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
    {
        std::fprintf(stderr, "%s\n", dlerror());
        return false;
    }
    const auto init = reinterpret_cast<void (*)()>(dlsym(library, initName));
    const auto finish = reinterpret_cast<void (*)(bool)>(dlsym(library, finishName));
    const auto isFinished = reinterpret_cast<bool (*)()>(dlsym(library, isFinishedName));
    if (init == nullptr || finish == nullptr || isFinished == nullptr)
    {
        std::fprintf(stderr, "a symbol is missing\n");
        return false;
    }
    init();
    const bool wasRunning = !isFinished();
    finish(true);
    const bool wasStopped = isFinished();
    dlclose(library);
    const bool isGone = dlopen(path, RTLD_NOW | RTLD_NOLOAD) == nullptr;
    if (!wasRunning || !wasStopped || !isGone)
        std::fprintf(stderr, "running %d, stopped %d, unloaded %d\n", wasRunning, wasStopped, isGone);
    return wasRunning && wasStopped && isGone;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    for (int i = 0; i < 3; ++i)
        if (!runOnce(argv[1]))
            return 1;
    return 0;
}
