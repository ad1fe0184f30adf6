// mrvCore/system/xml/mrvXMLOutput.cpp
// Prints XML text to files and streams.
#include "mrvCore/system/xml/mrvXMLOutput.h"

#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "mrvCore/system/xml/mrvXMLPrinter.h"

#include <ostream>

namespace mrv {

namespace {

struct FileSink final : XMLPrinter::Sink
{
    explicit FileSink(const char* fileName) : writer(fileName) {}
    void put(const char* text, size_t size) override { writer.write(text, size); }

    SafeFileWriter writer;
};

struct StreamSink final : XMLPrinter::Sink
{
    explicit StreamSink(std::ostream& target) : stream(target) {}
    void put(const char* text, size_t size) override
    {
        stream.write(text, static_cast<std::streamsize>(size));
    }

    std::ostream& stream;
};

/// False, with an error in the log, for a tree that could not be read again.
bool print(XMLPrinter::Sink& sink, const char* rootName, const XMLPrinting& printing)
{
    XMLPrinter printer(sink, XMLDataFileParser::maximumNesting);
    printing(printer);
    const bool isPrinted = printer.finish();
    if (!isPrinted)
        MRV_LOG(SDK, LOG_ERROR,
                "Item '" << rootName << "' has more than " << XMLDataFileParser::maximumNesting
                         << " levels and is not written");
    return isPrinted;
}

} // namespace

SaveXMLDataFileErrorCode::Value printXMLFile(const char* fileName, const char* rootName,
                                             const XMLPrinting& printing)
{
    FileSink sink(fileName == nullptr ? "" : fileName);
    const bool isWritten = print(sink, rootName, printing) && sink.writer.commit();
    return isWritten ? SaveXMLDataFileErrorCode::SUCCESS : SaveXMLDataFileErrorCode::FILE_CREATION_FAILED;
}

void printXMLText(std::ostream& stream, const char* rootName, const XMLPrinting& printing)
{
    StreamSink sink(stream);
    if (!print(sink, rootName, printing))
        stream.setstate(std::ios_base::failbit);
}

} // namespace mrv
