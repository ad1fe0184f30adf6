// tests/system/dataItem/mrvAbstractDataFileParserTest.cpp
// The probe of a file and what it logs.
#include "mrvCore/system/dataItem/mrvAbstractDataFileParser.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/log/mrvLog.h"
#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace mrv {
namespace {

class ProbingParser : public AbstractDataFileParser
{
public:
    using AbstractDataFileParser::AbstractDataFileParser;
    void read(const char*, DataItem&) override { FAIL() << "the constructor only probes"; }
    SaveXMLDataFileErrorCode::Value write(const char*, DataItem&) override
    {
        return SaveXMLDataFileErrorCode::SUCCESS;
    }
};

struct LastMessage : ILogger
{
    void trace(Log::Module module, Log::Severity severity, const char* message, const char*, int,
               const char*) override
    {
        EXPECT_EQ(module, Log::SDK);
        EXPECT_EQ(severity, Log::LOG_ERROR);
        text += message;
    }
    std::string text;
};

TEST(AbstractDataFileParser, logsAFileThatCannotBeOpened)
{
    const TemporaryFolder folder;
    const MrvString missing = folder.path("missing");
    const MrvString present = folder.write("present", "");
    struct Case
    {
        const char* fileName;
        std::string message;
    };
    for (const Case& row : { Case{ nullptr, "filename missing" },
                             { "", "filename missing" },
                             { present.c_str(), "" },
                             { missing.c_str(), std::string("Could not open file ") + missing.c_str() } })
    {
        allocateLog();
        {
            LastMessage log;
            DataItem item("item");
            const ProbingParser parser(row.fileName, item);
            EXPECT_EQ(log.text, row.message);
            EXPECT_STREQ(item.getName(), "item");
            EXPECT_FALSE(parser.getFileName().hasName());
        }
        deallocateLog();
        DataItem item;
        ProbingParser(row.fileName, item); // without a log it does no harm
    }
}

} // namespace
} // namespace mrv
