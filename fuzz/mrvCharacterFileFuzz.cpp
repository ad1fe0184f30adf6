// fuzz/mrvCharacterFileFuzz.cpp
// Any bytes as a character file: as XML if they begin like it, else as the binary form. Stored files serve as
// seeds as they are.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

// Bones that a damaged file lists nowhere have no owner and are left.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    if (size == 0)
        return 0;
    const std::string name = mrvFuzz::writeFile(data, size, data[0] == '<' ? ".mvcf" : ".mvc");
    try
    {
        using namespace mrv;
        MaravoCharacterV24 character;
        if (character.loadCharacterFile(name, true) == LoadCharacterFileErrorCode::SUCCESS)
        {
            // What was read is walked: a wild pointer or index would show here.
            PODArray<int> indices;
            for (const AssetGroupV4& group : character._allAssetGroups)
                group.getAllMeshAssets(indices, character);
            character.autoComputePerceptionShape();
            character.autoComputeSkeletonDisplay(indices);
        }
        character.saveCharacterFileBinary("/dev/null");
    }
    catch (const mrvFuzz::FatalEnd&)
    {}
    std::remove(name.c_str());
    return 0;
}
