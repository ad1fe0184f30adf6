// fuzz/mrvAssetAssociationsFuzz.cpp
// Any bytes as an association file, read twice into one object: the second time over what the first has left.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/assetManagement/mrvAssetAssociations.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    const std::string name = mrvFuzz::writeFile(data, size, ".caa");
    try
    {
        using namespace mrv;
        AssetAssociationsV0 associations;
        for (int round = 0; round < 2; ++round)
        {
            if (!loadCAAFile(associations, name))
                std::abort(); // the file is there
            // What was read is walked: a wild pointer or index would show here.
            BinaryStream copy;
            copy.pack(associations);
        }
        clearAssetAssociation(associations);
    }
    catch (const mrvFuzz::FatalEnd&)
    {}
    std::remove(name.c_str());
    return 0;
}
