// mrvCore/system/xml/mrvXMLPlainReader.h
// Reads the plain XML that nearly all files are, in one pass and straight into items.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/dataItem/mrvItemChildren.h"

namespace mrv {

/// One reading of a text that has no more than a declaration, elements, attributes, texts, comments, CDATA
/// (which is left out) and references to characters.
///
/// It gives up, with no trace, where it meets anything else: an instruction, a DOCTYPE, an `include`, levels
/// beyond the limit, odd names, and all that is not well-formed. What it reads is what a full parser reads,
/// so that a reader tries this one first. Walks without recursion.
class MRV_CORE_API XMLPlainReader
{
public:
    /// The text ends at the first zero behind its root, if there is one.
    XMLPlainReader(const char* text, size_t size, size_t maximumLevels);

    /// Fills an item that is new. False, with the item as it was, if it gave up.
    bool read(DataItem& item);

private:
    /// An attribute as it stands in the text.
    struct Attribute
    {
        const char* name;
        const char* value;
        uint32_t nameSize;
        uint32_t valueSize;
        bool hasReferences; // in its value
    };

    // Each of these goes on from _place and leaves it behind what it read; false to give up.
    bool skipProlog();
    bool skipEpilog();
    bool skipComment() { return skipMark("<!--", "-->"); }
    bool skipMark(const char* begin, const char* end);
    bool readContent();
    bool readStartTag();
    bool readAttribute(Attribute& attribute);
    bool readEndTag();
    bool readText(const char* begin);

    bool addItem(const char* name, size_t nameSize, size_t attributesSize);
    /// Puts a text with its references replaced into _decoded.
    bool decode(const char* text, size_t size);
    void skipSpaces();
    const char* skipName() const;
    const char* findQuote(const char* place, char quote, bool& hasReferences) const;

    const char* _place;
    const char* const _textEnd;
    const char* _end; // behind the last '>' of the text, where names and spaces end at the latest
    const size_t _maximumLevels;

    internal::ItemChildren _items; // the open elements, each in front of those of its children that are read
    PODArray<uint32_t> _open;      // their places among the items
    PODArray<Attribute> _attributes; // of the start tag that is being read
    PODArray<char> _decoded;
};

} // namespace mrv
