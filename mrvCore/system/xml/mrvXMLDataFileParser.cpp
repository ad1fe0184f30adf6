// mrvCore/system/xml/mrvXMLDataFileParser.cpp
// Data item trees as XML files.
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"
#include "mrvCore/system/xml/mrvXMLPrinter.h"
#include "mrvCore/system/xml/mrvXMLTreeReader.h"

#include <cstring>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <string>

namespace mrv {

static_assert(XMLDataFileParser::maximumNesting == XMLReadLimits::levels, "one limit for both ways");

namespace {

[[noreturn]] void endBy(const XMLReadFailure& failure)
{
    if (!failure.unopenedInclude.empty())
        MRV_LOG(SDK, LOG_ERROR, "Could not open file " << failure.unopenedInclude);
    if (failure.expression == nullptr)
        MRV_UNREACHABLE("%s", failure.fatalText.c_str());
    assertFailedOutput(failure.expression, __FILE__, __func__, __LINE__, "%s", failure.fatalText.c_str());
    fatalEnd();
}

/// The result of a reading, with a failure turned into a message.
bool report(bool isRead, const XMLReadFailure& failure, DataItem& item, MrvString& message)
{
    if (!isRead)
    {
        item.clear();
        message = failure.report;
    }
    return isRead;
}

std::string readToEnd(std::istream& stream)
{
    if (stream.fail())
        throw std::runtime_error("error reading stream");
    std::string text;
    try
    {
        char block[4096];
        while (const std::streamsize count = stream.rdbuf()->sgetn(block, sizeof(block)))
            text.append(block, static_cast<size_t>(count));
    }
    catch (...)
    {
        throw std::runtime_error("error reading stream");
    }
    return text;
}

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

void assertIsWorthWriting(const DataItem& configurationItem)
{
    MRV_ASSERT(configurationItem.getChildrenCount() || configurationItem.getAttributesCount());
}

/// False, with an error in the log, for a tree that could not be read again.
bool print(const DataItem& item, XMLPrinter::Sink& sink)
{
    const bool isPrinted = XMLPrinter(sink).print(item, XMLDataFileParser::maximumNesting);
    if (!isPrinted)
        MRV_LOG(SDK, LOG_ERROR,
                "Item '" << item.getName() << "' has more than " << XMLDataFileParser::maximumNesting
                         << " levels and is not written");
    return isPrinted;
}

} // namespace

XMLDataFileParser::XMLDataFileParser(const char* fileName, DataItem& item)
    : AbstractDataFileParser(fileName, item)
{
    XMLDataFileParser::read(fileName, item);
}

void XMLDataFileParser::read(const char* fileName, DataItem& item)
{
    XMLReadFailure failure;
    if (!readXMLFile(fileName, _fileName, item, failure))
        endBy(failure);
}

void XMLDataFileParser::readFromBuffer(const char* text, DataItem& item)
{
    XMLReadFailure failure;
    if (!readXMLText(text, std::strlen(text), _fileName, item, failure))
        endBy(failure);
}

void XMLDataFileParser::readFromBuffer(std::istream& stream, DataItem& item)
{
    const std::string thisFile = readToEnd(stream);
    MRV_ASSERT(thisFile.size() > 0, "Unable to load buffer");
    XMLReadFailure failure;
    if (!readXMLText(thisFile.data(), thisFile.size(), _fileName, item, failure))
        endBy(failure);
}

bool XMLDataFileParser::tryRead(const char* fileName, DataItem& item, MrvString& message)
{
    XMLReadFailure failure;
    return report(readXMLFile(fileName, _fileName, item, failure), failure, item, message);
}

bool XMLDataFileParser::tryReadFromBuffer(const char* text, size_t size, DataItem& item, MrvString& message)
{
    XMLReadFailure failure;
    return report(readXMLText(text, size, _fileName, item, failure), failure, item, message);
}

SaveXMLDataFileErrorCode::Value XMLDataFileParser::write(const char* fileName, DataItem& item)
{
    assertIsWorthWriting(item);
    FileSink file(fileName == nullptr ? "" : fileName);
    const bool isWritten = print(item, file) && file.writer.commit();
    return isWritten ? SaveXMLDataFileErrorCode::SUCCESS : SaveXMLDataFileErrorCode::FILE_CREATION_FAILED;
}

void XMLDataFileParser::writeToBuffer(std::ostream& stream, DataItem& item)
{
    assertIsWorthWriting(item);
    StreamSink sink(stream);
    if (!print(item, sink))
        stream.setstate(std::ios_base::failbit);
}

} // namespace mrv
