// fuzz/mrvBinaryStreamFuzz.cpp
// Any bytes as the binary form of the test graph.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/system/serialization/mrvBinaryStream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    if (size == 0)
        return 0;
    try
    {
        mrv::test::Scene scene;
        mrv::BinaryStream stream;
        stream.importFrom(data, size);
        stream.unpack(scene);
        // What was read is walked: a wild pointer would show here.
        mrv::BinaryStream copy;
        copy.pack(scene);
    }
    catch (const mrvFuzz::FatalEnd&)
    {}
    mrv::test::deleteNodes();
    return 0;
}
