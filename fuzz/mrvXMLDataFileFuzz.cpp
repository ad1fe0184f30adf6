// fuzz/mrvXMLDataFileFuzz.cpp
// Any bytes as an XML text: a reported failure, or a tree that RapidXML finds as well and that survives being
// written and read.
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "tests/support/mrvSameItems.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

std::string print(mrv::DataItem& item)
{
    std::ostringstream stream;
    mrv::XMLDataFileParser().writeToBuffer(stream, item);
    return stream.str();
}

/// False for a text that cannot be read, or that holds nothing that can be written.
bool read(const std::string& text, mrv::DataItem& item)
{
    mrv::MrvString message;
    if (!mrv::XMLDataFileParser().tryReadFromBuffer(text.data(), text.size(), item, message))
    {
        if (message.empty() || item.getChildrenCount() != 0 || item.getAttributesCount() != 0)
            std::abort();
        return false;
    }
    return item.getChildrenCount() != 0 || item.getAttributesCount() != 0;
}

/// An instruction leaves no trace in the tree, but the text is no longer for the plain reader.
void requireSameByRapidXML(const std::string& text, const mrv::DataItem& item)
{
    mrv::DataItem full;
    read(text.c_str() + std::string("<?x?>"), full);
    if (!mrv::test::areSame(item, full))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    mrv::DataItem item;
    const bool isWorthWriting = read(bytes, item);
    if (*item.getName() != '\0')
        requireSameByRapidXML(bytes, item);
    if (!isWorthWriting)
        return 0;
    // The first round drops what cannot be written: blank contents, and those beside children.
    std::string text = print(item);
    for (int round = 0; round < 2; ++round)
    {
        mrv::DataItem again;
        if (!read(text, again))
            std::abort();
        const std::string next = print(again);
        if (round == 1 && next != text)
            std::abort();
        text = next;
    }
    return 0;
}
