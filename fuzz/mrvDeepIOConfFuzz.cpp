// fuzz/mrvDeepIOConfFuzz.cpp
// Any bytes as a deep configuration: the JSON library's exception, or fields that survive being written.
#include "mrvCore/deep/mrvDeepIOConf.h"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string path =
        (std::filesystem::temp_directory_path() / ("deepConfFuzz" + std::to_string(getpid()))).string();
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data), std::streamsize(size));
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
