// fuzz/mrvDeepIOConfFuzz.cpp
// Any bytes as a deep configuration: the JSON library's exception, or fields that survive being written.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/deep/mrvDeepIOConf.h"

#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string path = mrvFuzz::writeFile(data, size, ".json"); // a disk would be waited for
    mrv::DeepIOConf conf;
    try
    {
        if (!conf.load(path.c_str()) || !conf.save(path.c_str()))
            std::abort();
    }
    catch (const std::exception&)
    {
        return 0;
    }
    mrv::DeepIOConf again;
    if (!again.load(path.c_str()) || again._rigJoints != conf._rigJoints || again._epochs != conf._epochs ||
        again._epochsSubspace != conf._epochsSubspace || again._assetName != conf._assetName)
        std::abort();
    return 0;
}
