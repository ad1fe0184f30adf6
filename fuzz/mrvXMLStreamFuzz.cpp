// fuzz/mrvXMLStreamFuzz.cpp
// Any text as the XML form of the test graph.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    try
    {
        mrv::DataItem root;
        mrv::MrvString message;
        if (mrv::XMLDataFileParser().tryReadFromBuffer(reinterpret_cast<const char*>(data), size, root,
                                                       message))
        {
            mrv::test::Scene scene;
            mrv::XMLStream().unpack(root, scene);
            mrv::XMLStream copy;
            copy.pack(copy.getRoot(), scene);
        }
    }
    catch (const mrvFuzz::FatalEnd&)
    {}
    mrv::test::deleteNodes();
    return 0;
}
