// mrvCore/system/xml/mrvXMLTreeReader.h
// Reads XML text, and what it includes, into a data item tree.
#pragma once

#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

class DataItem;
class FileName;

/// Why a text could not be read, in the words of the fatal ends and in those of a report.
struct XMLReadFailure
{
    /// What an assertion would have asserted; null where the fatal end is that of a place not to be reached.
    const char* expression = nullptr;
    MrvString fatalText;
    MrvString report;
    /// An included file that could not be opened.
    MrvString unopenedInclude;
};

/// What one read may meet, so that no small set of files exhausts the stack or the memory.
struct XMLReadLimits
{
    /// Levels of elements, those of included files counted on top. RapidXML parses by recursion, with up to
    /// 270 bytes of stack a level in the builds that take most.
    static constexpr size_t levels = 1000;
    static constexpr size_t includeNesting = 50;
    static constexpr size_t includes = 10000;
    /// Bytes of files that were included before in the same read.
    static constexpr size_t repeatedBytes = 16 << 20;
};

/// Appends the tree of the file's root element to the item: its attributes and children come behind those
/// that are there. `current` becomes the file's name once its text is parsed; files that it includes lie
/// beside it. On failure the item holds what came before the failure.
bool readXMLFile(const char* fileName, FileName& current, DataItem& item, XMLReadFailure& failure);

/// The same for `size` bytes of text, which end at the first zero. What they include lies beside `current`.
bool readXMLText(const char* text, size_t size, FileName& current, DataItem& item, XMLReadFailure& failure);

} // namespace mrv
