// mrvCore/system/xml/mrvXMLPrinter.h
// Prints XML text, element by element or from a data item tree.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/utils/mrvNumberText.h"

#include <cstdint>

namespace mrv {

class DataItem;

/// Prints the text that RapidXML prints with flags 0 of the same tree, byte for byte: one element to a line,
/// indented by tabs, and an empty line at the end.
///
/// As there, the content of an element that has children is left out, and names and texts end at a zero.
/// Takes no stack by the depth of the tree. Beyond the limit of levels nothing more is printed.
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

    XMLPrinter(Sink& sink, size_t maximumLevels) : _sink(sink), _maximumLevels(maximumLevels)
    {
        makeRoom(bufferSize);
    }

    /// An element with all that is in it, inside the open one.
    void print(const DataItem& item);
    /// The attributes of an item, and its children or its content, into the open element.
    void printInside(const DataItem& item);

    /// @{
    /// Between these two an element is open. The name stays valid as long.
    void open(const char* name, size_t nameSize);
    void close();
    /// @}

    /// @{
    /// An attribute of the open element. Nothing once there is something inside it.
    void addAttribute(const char* name, size_t nameSize, const char* value, size_t valueSize);
    template <typename T>
    void addNumber(const char* name, size_t nameSize, T number)
    {
        if (!beginAttribute(name, nameSize, NumberText::room))
            return;
        *_end++ = '"';
        _end = NumberText::put(_end, number);
        *_end++ = '"';
    }
    /// @}

    /// Ends the text. False where a part is missing because it had too many levels.
    bool finish();

private:
    static constexpr size_t bufferSize = 65536;

    /// What an open element has got behind its attributes.
    struct Inside
    {
        enum Value { NOTHING, CONTENT, CHILDREN, END };
    };
    struct Element
    {
        const char* name;
        uint32_t nameSize;
        Inside::Value inside;
    };

    void printAttributes(const DataItem& item);
    void printContent(const DataItem& item);
    bool beginAttribute(const char* name, size_t nameSize, size_t valueRoom);

    /// Makes room for `size` characters at _end, which the caller then moves.
    void reserve(size_t size)
    {
        if (size > static_cast<size_t>(_limit - _end))
            makeRoom(size);
    }
    void makeRoom(size_t size);
    void flush();

    Sink& _sink;
    const size_t _maximumLevels;
    PODArray<char> _buffer;
    char* _end = nullptr; // of what is in the buffer
    char* _limit = nullptr;
    PODArray<Element> _open;
    bool _isTooDeep = false;
};

} // namespace mrv
