// mrvCore/system/xml/mrvXMLPrinter.h
// Turns a data item tree into XML text.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

class DataItem;

namespace internal {
struct ItemAttribute;
}

/// Prints the text that RapidXML prints with flags 0 of the same tree, byte for byte, straight from the
/// items: one element to a line, indented by tabs, and an empty line at the end.
///
/// As there, the content of an item that has children is left out, and names and texts end at a zero.
/// Takes no stack by the depth of the tree.
class XMLPrinter
{
public:
    /// Takes the next part of the text.
    class Sink
    {
    public:
        /// `size` bytes, valid during the call.
        virtual void put(const char* text, size_t size) = 0;

    protected:
        ~Sink() = default;
    };

    explicit XMLPrinter(Sink& sink) : _sink(sink) { makeRoom(bufferSize); }

    /// False, after a part of the text, where the tree has more than `maximumLevels` levels.
    bool print(const DataItem& root, size_t maximumLevels);

private:
    static constexpr size_t bufferSize = 65536;

    void printStart(const DataItem& item, size_t level);
    void printAttribute(const internal::ItemAttribute& attribute);
    void printEnd(const DataItem& item, size_t level);

    /// Makes room for `size` characters at _end, which the caller then moves.
    void reserve(size_t size)
    {
        if (size > static_cast<size_t>(_limit - _end))
            makeRoom(size);
    }
    void makeRoom(size_t size);
    void flush();

    Sink& _sink;
    PODArray<char> _buffer;
    char* _end = nullptr; // of what is in the buffer
    char* _limit = nullptr;
};

} // namespace mrv
