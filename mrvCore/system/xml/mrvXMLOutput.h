// mrvCore/system/xml/mrvXMLOutput.h
// Where XML text is printed to: files and streams.
#pragma once

#include "mrvCore/system/dataItem/mrvAbstractDataFileParser.h"

#include <functional>
#include <iosfwd>

namespace mrv {

class XMLPrinter;

/// Prints one root element; one with more than XMLDataFileParser::maximumNesting levels is an error in the
/// log, which names the root, and a failure.
using XMLPrinting = std::function<void(XMLPrinter&)>;

/// Replaces the file as a whole. With FILE_CREATION_FAILED it is as it was.
SaveXMLDataFileErrorCode::Value printXMLFile(const char* fileName, const char* rootName,
                                             const XMLPrinting& printing);

/// A failure is seen in the state of the stream.
void printXMLText(std::ostream& stream, const char* rootName, const XMLPrinting& printing);

} // namespace mrv
