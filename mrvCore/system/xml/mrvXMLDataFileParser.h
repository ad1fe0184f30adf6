// mrvCore/system/xml/mrvXMLDataFileParser.h
// Data item trees as XML files.
#pragma once

#include "mrvCore/system/dataItem/mrvAbstractDataFileParser.h"

#include <iosfwd>

namespace mrv {

/// Reads and writes data item trees as XML.
///
/// An element becomes an item: its name, its attributes, the text directly inside it as content (CDATA,
/// comments and instructions are left out), its child elements. What is read is appended to the item.
/// An element `include` is replaced by the root of the file that its first attribute, `file`, names; that
/// file lies beside the including one. Includes may stand anywhere and nest, but not in a circle.
/// Errors in an included file name that file.
/// Threads: one thread at a time per object; objects are independent.
class MRV_CORE_API XMLDataFileParser : public AbstractDataFileParser
{
public:
    /// Levels of elements that a text may have, those of included files counted on top, and that an item
    /// may have to be written. Beyond it a read fails as for a syntax error.
    static constexpr unsigned int maximumNesting = 1000;

    XMLDataFileParser() = default;
    /// Logs an error for a file that cannot be opened, then does as read().
    XMLDataFileParser(const char* fileName, DataItem& item);

    /// Ends the process for a file that is missing, empty, not well-formed or without a root element, so a
    /// caller tests for it by FileDir::exist, or uses tryRead().
    void read(const char* fileName, DataItem& item) override;
    /// The item must have attributes or children, else the process ends.
    ///
    /// The file is replaced as a whole or, with FILE_CREATION_FAILED, stays as it was. That is also the
    /// result for an item that is nested too deep to be read again, which is logged. The content of an item
    /// with children is not written.
    SaveXMLDataFileErrorCode::Value write(const char* fileName, DataItem& item) override;

    /// As read(), for a text that ends at a zero.
    virtual void readFromBuffer(const char* text, DataItem& item);
    /// As read(), for a stream up to its end. Throws std::runtime_error, "error reading stream", for a stream
    /// in a bad state.
    virtual void readFromBuffer(std::istream& stream, DataItem& item);
    /// As write(); a failure is seen in the state of the stream.
    virtual void writeToBuffer(std::ostream& stream, DataItem& item);

    /// As read(), but returns false for what is fatal there, with the item cleared and `message` saying which
    /// file, where and why. A message is left alone by a read that succeeds.
    bool tryRead(const char* fileName, DataItem& item, MrvString& message);
    /// The same for `size` bytes of text, which end at the first zero if there is one.
    bool tryReadFromBuffer(const char* text, size_t size, DataItem& item, MrvString& message);
};

} // namespace mrv
