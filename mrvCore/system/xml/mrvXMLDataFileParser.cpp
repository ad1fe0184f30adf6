// mrvCore/system/xml/mrvXMLDataFileParser.cpp
// Data item trees as XML files.
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/xml/mrvXMLOutput.h"
#include "mrvCore/system/xml/mrvXMLPrinter.h"
#include "mrvCore/system/xml/mrvXMLTreeReader.h"

#include <cstring>
#include <istream>
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

void assertIsWorthWriting(const DataItem& configurationItem)
{
    MRV_ASSERT(configurationItem.getChildrenCount() || configurationItem.getAttributesCount());
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
    return printXMLFile(fileName, item.getName(), [&](XMLPrinter& printer) { printer.print(item); });
}

void XMLDataFileParser::writeToBuffer(std::ostream& stream, DataItem& item)
{
    assertIsWorthWriting(item);
    printXMLText(stream, item.getName(), [&](XMLPrinter& printer) { printer.print(item); });
}

} // namespace mrv
